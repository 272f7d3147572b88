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
  frmPath(Session& session, std::string lastPath, QWidget* parent = nullptr);

  // The folder chosen; before OK the one that it was opened with.
  std::string LastPath() const;

 private:
  void Build();
  void GoTo(const QString& folder);
  void DriveChosen(const QString& root);

  Session& session_;
  std::string lastPath_;
  QFileSystemModel model_;
  std::array<QRadioButton*, 4> places_{};
  QComboBox* drive_ = nullptr;
  QTreeView* folders_ = nullptr;
};

}  // namespace korva::desktop
