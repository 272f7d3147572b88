// The program's state. Each program makes one and hands it on; only commands and forms see the whole of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/FileNotice.h"
#include "core/Folders.h"
#include "core/GraphData.h"
#include "core/History.h"
#include "core/IndexedArray.h"
#include "core/Messages.h"
#include "core/PlanValues.h"
#include "core/Project.h"
#include "core/RunSummary.h"
#include "core/Settings.h"
#include "core/StrondResults.h"
#include "core/UpdateSource.h"

namespace korva {

inline constexpr std::string_view ProgramTitle = "Korva Panel Review - Laminated Overburden";
inline constexpr std::string_view kUntitled = "Untitled";

// The project's file as this program read or wrote it last, so that nobody else's work is replaced unseen.
struct KnownFile {
  std::string Name;
  std::string Bytes;
  bool ReadWhole = false;  // false: saving over it would lose what was not read
};

// The six output pages; page 0 is the input echo.
using OutputPages = IndexedArray<std::string, 0, 5>;

struct Korva {
  // The open project: what its file holds, and the values around it.
  StoredProject Stored;
  std::string ProjectFileName{kUntitled};
  std::string ProjectPreviousFileName;
  // The full name of the project whose data `Stored` holds, or "Untitled". ProjectFileName goes ahead of it
  // while a file is chosen and loses its folder in a cancelled dialog.
  std::string ProjectOwnName{kUntitled};
  bool ProjectSaved = true;
  bool ProjectEmpty = true;
  bool ProjectUnitsLocked = false;
  int ProjectFileMode = 0;       // kept with the recent files, which nobody asks for it
  int ProjectFormatVersion = 0;  // of the file that was read last; nobody reads it
  KnownFile OpenFile;
  std::vector<FileNotice> FileNotices;  // what the open file held beyond what was read

  // The working copy that a calculation reads; never saved.
  Project ProjectCalc;

  // The plan view: single-precision copies, and what the last run says about the pillars.
  IndexedArray<float, 1, 10> PlotXcutSpacing;
  float PlotXcutAngle = 0;  // nobody reads it: the plan has the working copy's
  std::optional<PlanValues> PillarValues;

  // The last run's output. An empty WarningText means no popup.
  OutputPages OutBuf;
  int OutPageLast = 5;
  std::string WarningText;
  std::optional<RunSummary> LastRun;

  // The last laminated run: its results, the file that they were read from, and one that its solver may
  // leave. Nobody reads them here: the pages are made from the run's own.
  StrondResults Strond;
  std::string StrondResultFile;
  std::string StrondOutFile;

  // The last parametric sweep.
  SweepData Sweep;

  std::string LastCaseWorkbook;  // chosen last for the import of cases
  std::string LastBrowseFolder;  // of the text viewer, between its openings

  UpdateSource Updates;
  bool AutoUpdate = false;  // while the check at the start drives the window of updates

  Settings Preferences;
  Folders Places;
  History SessionHistory;
  MessageTitles Titles;
};

}  // namespace korva
