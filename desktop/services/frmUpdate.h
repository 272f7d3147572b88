// Looking for a newer version of the program, downloading and installing it.
#pragma once

#include <QDialog>

#include "commands/Updates.h"
#include "desktop/support/Session.h"

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace korva::desktop {

class frmUpdate final : public QDialog {
  Q_OBJECT

 public:
  explicit frmUpdate(Session& session, QWidget* parent = nullptr);

  void cmdCheck_Click() { updates_.Check(); }
  void cmdDownUpdate_Click() { updates_.Download(); }
  void cmdInstall_Click() { updates_.Install(); }
  // Checks, downloads and installs without further questions.
  void RunAll() { updates_.RunAll(); }

 protected:
  void done(int result) override;

 private:
  void LayOut();
  void ShowView();

  Session& session_;
  QLabel* lblLastVer_;
  QLabel* lblbytes_;
  QProgressBar* ProgressBar1_;
  QPushButton* cmdCheck_;
  QPushButton* cmdDownUpdate_;
  QPushButton* cmdInstall_;
  QPushButton* Command1_;
  QCheckBox* chkShow_;
  Updates updates_;
};

}  // namespace korva::desktop
