// The documents that come with the program, one button each.
#pragma once

#include <QDialog>

#include "desktop/support/Session.h"

namespace korva::desktop {

class frmResource final : public QDialog {
 public:
  explicit frmResource(Session& session, QWidget* parent = nullptr);
};

}  // namespace korva::desktop
