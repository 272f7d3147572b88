// The window "View Source Files": browses the disk and shows text files.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "desktop/services/FileList.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Session.h"

class QComboBox;
class QLineEdit;
class QListView;
class QListWidget;

namespace korva::desktop {

class PageView;
class PathLabel;
class TextLoader;

class frmTextBrow final : public QDialog {
 public:
  explicit frmTextBrow(Session& session, QWidget* parent = nullptr);

  void done(int result) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* DiskSide();
  QWidget* TextSide();
  QLayout* Buttons();
  void Wire();
  void Load();

  // Moves to a folder; an error is reported and leaves everything where it is. False after one.
  bool MoveTo(const std::string& folder);
  void ShowFolders(const std::vector<std::string>& below);
  void OpenFolder();
  void ShowFile();
  void ChooseFont();

  Session& session_;
  FileList files_;
  std::string folder_;                // without a separator at its end
  std::vector<std::string> folders_;  // full names of the rows of Dir1
  QComboBox* drive_ = nullptr;
  QListWidget* dir_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QListView* list_ = nullptr;
  QCheckBox* external_ = nullptr;
  PathLabel* name_ = nullptr;
  PageView* text_ = nullptr;
  QLabel* progress_ = nullptr;
  TextLoader* loader_ = nullptr;
};

}  // namespace korva::desktop
