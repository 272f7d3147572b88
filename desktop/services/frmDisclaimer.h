// The disclaimer. What follows a refusal is its caller's part.
#pragma once

#include <QCheckBox>
#include <QDialog>

#include "desktop/support/Session.h"

namespace korva::desktop {

class frmDisclaimer final : public QDialog {
 public:
  explicit frmDisclaimer(Session& session, QWidget* parent = nullptr);

  // Whether it was closed by its button for that and no other way.
  bool Accepted() const { return accepted_; }

 private:
  void AcceptTerms();

  Session& session_;
  QCheckBox* chkShow_;
  bool accepted_ = false;
};

}  // namespace korva::desktop
