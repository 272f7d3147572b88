// The dialog "File Conversion Utility": the open project in the other unit system.
#pragma once

#include <QDialog>
#include <array>

#include "desktop/support/Session.h"

class QRadioButton;

namespace korva::desktop {

class frmConvert final : public QDialog {
 public:
  explicit frmConvert(Session& session, QWidget* parent = nullptr);

  void done(int result) override;

 private:
  void Build();
  void Load();
  void Convert();

  Session& session_;
  std::array<QRadioButton*, 2> units_{};
  std::array<QRadioButton*, 2> files_{};
};

}  // namespace korva::desktop
