// The dialog "Select Path": chooses a folder.
#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <array>

#include "desktop/support/FormTools.h"
#include "desktop/support/Session.h"

class QComboBox;
class QTreeView;

namespace korva::desktop {

class frmPath final : public QDialog {
 public:
  // The choice goes to LastPath.
  explicit frmPath(Session& session, QWidget* parent = nullptr);

  void done(int result) override;

 private:
  void Build();
  void GoTo(const QString& folder);
  void DriveChosen(const QString& root);
  QString Folder() const;

  Session& session_;
  QFileSystemModel model_;
  std::array<QRadioButton*, 4> places_{};
  QComboBox* drive_ = nullptr;
  QTreeView* folders_ = nullptr;
};

}  // namespace korva::desktop
