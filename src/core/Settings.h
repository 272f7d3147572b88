// The program's lasting preferences, by the names of their keys. The values here are those of a fresh
// settings file after it has been read back.
#pragma once

#include <string>

#include "core/IndexedArray.h"
#include "core/Limits.h"
#include "core/OutputUnits.h"

namespace korva {

// How a stability factor is rounded, see RoundSF.
enum class FactorRounding : int { kTwoDecimals = 0, kNone = 1, kTruncated = 2 };

// Where the files of a laminated run go, see StrondPlaceOf.
enum class SolverFolder : int { kApplication = 0, kUserTemporary = 1, kRoot = 2, kDocuments = 3 };

// The grid lines of a graph, and what its curves are drawn with.
enum class GridLines : int { kNone = 0, kHorizontal = 1, kVertical = 2, kBoth = 3 };
enum class CurveStyle : int { kLines = 1, kSymbols = 2, kLinesAndSymbols = 3 };

inline constexpr const char* kDefaultGraphTitle = "Korva Panel Review - Strondel";
inline constexpr const char* kDefaultEditor = "Notepad.exe";

// Section "KORVAOptions".
struct OptionSettings {
  StressUnit OutputStrUnits = StressUnit::kPsi;   // in English projects
  LoadUnit OutputStrGradUnits = LoadUnit::kTons;  // in English projects
  bool ShowInputScreenOnLoad = true;
  bool IssueWarningCancel = true;
  bool ViewChildWindow = true;
  bool PrintModuleHeader = true;
  bool PlotEntryDims = true;
  bool PlotXcutDims = true;
  bool PlotGobDims = true;
  bool PlotSingleXcutDims = true;
  bool PlotGobExtLoose = true;
  float PlotRangeMin = 50;   // percent
  float PlotRangeMax = 150;  // percent
  bool PrintPlotReminder = true;
  bool AskOfficeInstall = true;
  FactorRounding RoundKORVASF = FactorRounding::kTwoDecimals;
  int CellSizeEnglish = 2;      // ft
  float CellSizeMetric = 0.5F;  // m
  bool Strond2DViewProgress = false;
  bool Strond2DViewProgOutput = false;
  bool Strond2DViewOutput = false;
  SolverFolder iOptDir = SolverFolder::kDocuments;
};

// A font as the settings keep it. Flags hold -1 and 0.
struct FontSettings {
  std::string Name;
  float Size = 10;  // points
  int Bold = 0;
  int Italic = 0;
};

inline constexpr int kMostRecentFiles = 4;

// Section "FileMenu": the recent files, the latest first; 1 to MaxLastFiles are in use.
struct RecentFiles {
  int MaxLastFiles = 0;
  IndexedArray<std::string, 1, kMostRecentFiles> LastFile;  // as the menu shows it
  IndexedArray<int, 1, kMostRecentFiles> LastFileMode;
  IndexedArray<std::string, 1, kMostRecentFiles> LastFileLong;  // full name
};

// Section "TextBrowse".
struct BrowseSettings {
  FontSettings BrowseFont;
  std::string BrowseDefaultFilter;
  bool BrowseUseNotepad = false;
};

// Section "Graph".
struct GraphSettings {
  bool GraphSetParams = false;  // whether the format is the last used one, not the default
  GridLines GridStyle = GridLines::kNone;
  CurveStyle GraphStyle = CurveStyle::kLinesAndSymbols;
  bool CurveLegend = true;
  int SymbolSize = 5;
  UnitSystem GraphUnits = kEnglish;
  std::string GraphTitle = kDefaultGraphTitle;
  IndexedArray<std::string, 0, 6> XAxisTitle;
  IndexedArray<std::string, 0, 1> YAxisTitle;
};

struct Settings {
  // Section "Settings".
  UnitSystem DefaultUnits = kEnglish;  // of new projects
  bool DisplayHistoryWin = false;      // 1 keeps and shows the history
  int MaxDisplaySize = kLeastHistory;  // characters of the history
  FontSettings DisplayFont;            // of the history
  bool KeepFileNames = true;           // keep the recent files
  bool ShowDisclaim = true;            // show the disclaimer at the start
  bool MaxMainMenu = false;            // start with the main window maximized
  bool EnableMainMenuToolbar = true;
  bool ShortRecentFiles = false;   // recent files without their folders
  bool LoadLastInputFile = false;  // open the latest recent file at the start
  bool RemindAnnualUpdates = true;
  bool CopyExampleFiles = true;  // copy missing example projects at the start
  std::string ExternalEditor = kDefaultEditor;
  std::string DataPath;  // folder that the file dialogs open in, with a separator at its end
  std::string FileExtension = "KVL";

  RecentFiles FileMenu;
  BrowseSettings TextBrowse;
  GraphSettings Graph;
  OptionSettings Options;
};

}  // namespace korva
