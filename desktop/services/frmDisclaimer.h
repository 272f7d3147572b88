// The disclaimer. It is accepted by its button for that and no other way; what follows a refusal is its
// caller's part.
#pragma once

#include <QCheckBox>
#include <QDialog>

#include "desktop/support/Session.h"

namespace korva::desktop {

class frmDisclaimer final : public QDialog {
 public:
  explicit frmDisclaimer(Session& session, QWidget* parent = nullptr);

 private:
  void AcceptTerms();

  Session& session_;
  QCheckBox* chkShow_;
};

}  // namespace korva::desktop
