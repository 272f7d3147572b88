// The program's lasting preferences, by the names of their keys. The values here are those of a fresh
// settings file after it has been read back.
#pragma once

#include <cstdint>
#include <string>

#include "core/IndexedArray.h"

namespace korva {

// Section "KORVAOptions".
struct OptionSettings {
  std::int16_t OutputStrUnits = 0;      // stresses in English projects: 0 psi, 1 psf
  std::int16_t OutputStrGradUnits = 1;  // loads in English projects: 0 lbs, 1 tons
  std::int16_t ShowInputScreenOnLoad = 1;
  std::int16_t IssueWarningCancel = 1;
  std::int16_t ViewChildWindow = 1;
  std::int16_t PrintModuleHeader = 1;
  std::int16_t PlotEntryDims = 1;
  std::int16_t PlotXcutDims = 1;
  std::int16_t PlotGobDims = 1;
  std::int16_t PlotSingleXcutDims = 1;
  std::int16_t PlotGobExtLoose = 1;
  float PlotRangeMin = 50;   // percent
  float PlotRangeMax = 150;  // percent
  std::int16_t PrintPlotReminder = 1;
  std::int16_t AskOfficeInstall = 1;
  std::int16_t RoundKORVASF = 0;     // see RoundSF
  std::int16_t CellSizeEnglish = 2;  // ft
  float CellSizeMetric = 0.5F;       // m
  std::int16_t Strond2DViewProgress = 0;
  std::int16_t Strond2DViewProgOutput = 0;
  std::int16_t Strond2DViewOutput = 0;
  std::int16_t iOptDir = 3;
};

// A font as the settings keep it. Flags hold -1 and 0.
struct FontSettings {
  std::string Name;
  float Size = 10;  // points
  std::int16_t Bold = 0;
  std::int16_t Italic = 0;
};

inline constexpr int kMostRecentFiles = 4;

// Section "FileMenu": the recent files, the latest first; 1 to MaxLastFiles are in use.
struct RecentFiles {
  std::int16_t MaxLastFiles = 0;
  IndexedArray<std::string, 1, kMostRecentFiles> LastFile;  // as the menu shows it
  IndexedArray<std::int16_t, 1, kMostRecentFiles> LastFileMode;
  IndexedArray<std::string, 1, kMostRecentFiles> LastFileLong;  // full name
};

// Section "TextBrowse".
struct BrowseSettings {
  FontSettings BrowseFont;
  std::string BrowseDefaultFilter;
  std::int16_t BrowseUseNotepad = 0;
};

// Section "Graph".
struct GraphSettings {
  std::int16_t GraphSetParams = 0;
  std::int16_t GridStyle = 0;
  std::int16_t GraphStyle = 3;
  std::int16_t CurveLegend = 1;
  std::int16_t SymbolSize = 5;
  std::int16_t GraphUnits = 0;
  std::string GraphTitle = "Korva Panel Review - Strondel";
  IndexedArray<std::string, 0, 6> XAxisTitle;
  IndexedArray<std::string, 0, 1> YAxisTitle;
};

struct Settings {
  // Section "Settings".
  std::int16_t DefaultUnits = 0;       // unit system of new projects
  std::int16_t DisplayHistoryWin = 0;  // 1 keeps and shows the history
  std::int16_t MaxDisplaySize = 4096;  // characters of the history
  FontSettings DisplayFont;            // of the history
  std::int16_t KeepFileNames = 1;      // keep the recent files
  std::int16_t ShowDisclaim = 1;       // show the disclaimer at the start
  std::int16_t MaxMainMenu = 0;        // start with the main window maximized
  std::int16_t EnableMainMenuToolbar = 1;
  std::int16_t ShortRecentFiles = 0;   // recent files without their folders
  std::int16_t LoadLastInputFile = 0;  // open the latest recent file at the start
  std::int16_t RemindAnnualUpdates = 1;
  std::int16_t CopyExampleFiles = 1;  // copy missing example projects at the start
  std::string ExternalEditor = "Notepad.exe";
  std::string DataPath;  // folder that the file dialogs open in, with a separator at its end
  std::string FileExtension = "KVL";

  RecentFiles FileMenu;
  BrowseSettings TextBrowse;
  GraphSettings Graph;
  OptionSettings Options;
};

}  // namespace korva
