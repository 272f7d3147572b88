// The group "File association" of the options: project files open with this program from the desktop.
#pragma once

#include <QGroupBox>

#include "desktop/support/Session.h"

class QPushButton;

namespace korva::desktop {

class AssociationBox final : public QGroupBox {
 public:
  AssociationBox(Session& session, QWidget* parent);

 private:
  void Associate();
  void Dissociate();
  void ShowState();

  Session& session_;
  QPushButton* remove_ = nullptr;
};

}  // namespace korva::desktop
