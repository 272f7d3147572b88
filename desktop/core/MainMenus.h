// The menus, toolbar buttons and shortcuts of the main window, by the names and indexes of their commands.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <QToolBar>
#include <array>
#include <functional>
#include <map>
#include <string>

#include "core/Settings.h"

class QMainWindow;

namespace korva::desktop {

// Indexes of the commands that the main window tells apart.
enum FileIndex {
  kNew = 0,
  kOpen,
  kSave,
  kSaveAs,
  kImportVosk = 5,
  kPrintSeparator,  // of no command
  kPrinterSetup,
  kPrint,
  kPrintPreview,
  kViewSourceFiles = 11,
  kExit = 13
};
enum EditIndex { kDescription = 0, kParameters };
enum CalcIndex { kStabilityFactors = 0 };
enum UtilIndex {
  kSettings = 0,
  kOptions,
  kUnitConversion,
  kFileConversion,
  kClearHistory = 5,
  kToggleHistory,
  kCopyHistory
};
// Of kToggleHistory, while the history box stands there.
inline constexpr const char* kCloseHistoryCaption = "Close History &Window";

enum HelpIndex {
  kHelpContents = 0,
  kHelpIndex,
  kHelpManual,
  kResourceFiles = 4,
  kDisclaimer = 6,
  kProgramUpdates = 8,
  kAbout = 10
};

// The menus and what each of their groups does when one of its items is chosen.
class MainMenus {
 public:
  using Command = std::function<void(int index)>;
  struct Commands {
    Command File;    // mnuFileItem
    Command Recent;  // mnuFileArray
    Command Edit;    // mnuEditItem
    Command Calc;    // mnuCalcItem
    Command Graph;   // mnuCalcGrafItem
    Command Util;    // mnuUtilItem
    Command Help;    // mnuHelpItem
  };

  MainMenus(QMainWindow& window, const Commands& commands);

  // The item `index` of the group `array`, such as "mnuFileItem".
  QAction& Item(const char* array, int index) const;

  void ShowRecentFiles(const IndexedArray<std::string, 1, kMostRecentFiles>& captions);

  QToolBar& ToolBar() const { return *toolBar_; }
  // Draws the toolbar's images again, in the colours of the window's palette.
  void PaintImages(const QPalette& palette);

 private:
  void AddToolBar(QMainWindow& window, const Commands& commands);

  std::map<QString, QAction*> items_;
  QMenu* fileMenu_ = nullptr;
  QToolBar* toolBar_ = nullptr;
};

}  // namespace korva::desktop
