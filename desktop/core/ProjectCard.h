// The middle of the main window while a project is open: title and file, the panel to scale, the key inputs
// and the factors of the last run.
#pragma once

#include <QWidget>

#include "core/Korva.h"

class QFormLayout;
class QGridLayout;
class QLabel;

namespace korva::desktop {

class CardPlan;
class PathLabel;

class ProjectCard : public QWidget {
 public:
  explicit ProjectCard(QWidget* parent);

  void Show(const Korva& korva);

 private:
  PathLabel* title_;
  PathLabel* file_;
  QFormLayout* inputs_;
  QGridLayout* factors_;
  QLabel* outOfDate_;
  CardPlan* plan_;
};

}  // namespace korva::desktop
