// The middle of the main window while a project is open: title and file, the panel's picture, the key inputs
// and the factors of the last run.
#pragma once

#include <QWidget>

#include "core/Korva.h"

class QFormLayout;
class QHBoxLayout;
class QLabel;

namespace korva::desktop {

class ProjectCard : public QWidget {
 public:
  explicit ProjectCard(QWidget* parent);

  void Show(const Korva& korva);

 private:
  void ShowPicture(const Project& project);

  QLabel* title_;
  QLabel* file_;
  QHBoxLayout* body_;
  QFormLayout* inputs_;
  QFormLayout* factors_;
  QLabel* outOfDate_;
  QWidget* picture_ = nullptr;
  int pictureIndex_ = -1;
};

}  // namespace korva::desktop
