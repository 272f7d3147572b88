#include "commands/CaseImport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <new>

#include "commands/FileCommands.h"
#include "commands/Formats.h"
#include "core/Description.h"
#include "core/Encoding.h"
#include "core/FileNames.h"
#include "core/NumberText.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "input/FieldNumber.h"
#include "workbook/CaseRow.h"

namespace korva {

namespace {

constexpr int kAllRows = 999;

// Whether the file `path` holds just `bytes`; false also if that cannot be told.
bool HasContent(const std::string& path, const std::string& bytes) {
  try {
    return ReadWholeFile(path, kLargestProjectFile) == bytes;
  } catch (const RuntimeError&) {
    return false;
  }
}

// Whether `path` is still free, or a file that holds just `bytes`. A link is neither. Run-time error of
// looking into the folder.
bool IsAvailable(const std::string& path, const std::string& bytes) {
  const FileState state = StateOfFile(path);
  return !IsLink(path) && (!state.exists || (state.isRegular && HasContent(path, bytes)));
}

// The name of a case's file that replaces no other file.
std::string CaseFileName(const std::string& folder, const std::string& name, int row,
                         const std::string& bytes) {
  for (int copy = 0;; ++copy) {
    const std::string mark = copy == 0   ? std::string()
                             : copy == 1 ? fmt::format(" (row {})", row)
                                         : fmt::format(" (row {}, {})", row, copy);
    std::string path = NameWithin(folder, fmt::format("{}{}.{}", name, mark, kProjectExtension));
    if (IsAvailable(path, bytes)) {
      return path;
    }
  }
}

struct CaseRows {
  int First = 0;
  int Last = 0;
};

// What the number in the dialog asks for. Only two numbers do what its caption promises; any other one stands
// for row 0, which no sheet has.
CaseRows RowsOf(std::string_view text) {
  const double number = RoundHalfEven(FieldNumber(text), 0);
  if (number == 0) {
    return {kFirstCaseRow, kFirstCaseRow};
  }
  return number == kAllRows ? CaseRows{kFirstCaseRow, kLastCaseRow} : CaseRows{};
}

std::string ChooseWorkbook(Korva& korva, FileChoicePort& files) {
  FileQuestion question;
  if (!korva.LastCaseWorkbook.empty()) {
    question.Name = FileBaseName(korva.LastCaseWorkbook, false);
  }
  question.Folder = FolderOf(WithSeparator(korva.Preferences.DataPath));
  question.Filters = {kAllFiles, "Excel Files (*.XLS)", "Excel Files (*.XLSX)"};
  question.ActiveFilter = 1;
  const auto chosen = files.ChooseFile(question);
  if (!chosen) {
    throw RuntimeError(ErrorNumber::kDialogCancelled, "No workbook was chosen.");
  }
  korva.LastCaseWorkbook = *chosen;
  return *chosen;
}

// Where the dialog's import puts its files: the current folder. That is the program's own after a start,
// which an installed program may not write into; they go to the data path then.
std::string FolderOfCases(const Settings& settings) {
  try {
    RequireWritable(".");
    return {};
  } catch (const RuntimeError&) {
    return settings.DataPath;
  }
}

class DialogImport {
 public:
  DialogImport(Korva& korva, Ports& ports, const CaseImportSteps& steps)
      : korva_(korva), ports_(ports), steps_(steps) {}

  CaseImportState Run(std::string_view rowText) {
    try {
      Import(rowText);
    } catch (const RuntimeError& error) {
      End(error);
    } catch (const std::bad_alloc&) {
      End(RuntimeError(ErrorNumber::kOutOfMemory));
    }
    HistoryLog(korva_, fmt::format("Case import {} {}", state_.Text, state_.Reason));
    return state_;
  }

 private:
  void Import(std::string_view rowText) {
    const std::string workbook = ChooseWorkbook(korva_, ports_.Files);
    const Sheet sheet =
        Formats().ReadSheet(workbook, kCaseSheet, [this] { return steps_.MayContinue(state_); });
    steps_.KeepWork();
    folder_ = FolderOfCases(korva_.Preferences);
    const CaseRows rows = RowsOf(rowText);
    state_.LastRow = rows.Last;
    for (int row = rows.First; row <= rows.Last; ++row) {
      if (!steps_.MayContinue(state_)) {
        throw RuntimeError(ErrorNumber::kDialogCancelled, "The import was stopped.");
      }
      state_.Row = row;
      if (row == 0) {
        FileNew(korva_, {.ResetUnits = false});
        throw RuntimeError(ErrorNumber::kSubscript, fmt::format("0 imports row {0}, and {1} rows {0} to {2}",
                                                                kFirstCaseRow, kAllRows, kLastCaseRow));
      }
      if (HoldsCase(sheet, row)) {
        ImportCase(korva_, sheet, row, folder_);
        ++written_;
      } else {
        ++empty_;
      }
      state_.Text = fmt::format("{}:completed", row);
    }
    state_.Reason = Summary();
    if (rows.Last == kLastCaseRow && sheet.LastRow() > kLastCaseRow) {
      state_.Reason += fmt::format(" The sheet goes on to row {}, which was not imported.", sheet.LastRow());
    }
  }

  void End(const RuntimeError& error) {
    state_.Text = fmt::format("{}:canceled", state_.Row);
    state_.Reason = error.Number() == ErrorNumber::kDialogCancelled ? error.Detail() : error.what();
    if (written_ > 0) {
      state_.Reason += "\n" + Summary();
    }
  }

  std::string Summary() const {
    std::string text = fmt::format("{} {} written to {}.", written_, written_ == 1 ? "project" : "projects",
                                   folder_.empty() ? CurrentFolder() : folder_);
    if (empty_ > 0) {
      text += fmt::format(" {} {} empty.", empty_, empty_ == 1 ? "row was" : "rows were");
    }
    if (korva_.Stored.ProjectUnits == kMetric) {
      text += " The program is in metric units: the numbers were taken as metric, not converted.";
    }
    return text;
  }

  Korva& korva_;
  Ports& ports_;
  const CaseImportSteps& steps_;
  CaseImportState state_;
  std::string folder_;
  int written_ = 0;
  int empty_ = 0;
};

}  // namespace

std::string ImportCase(Korva& korva, const Sheet& sheet, int row, const std::string& folder) {
  FileNew(korva, {.ResetUnits = false});
  CaseProject read = ReadCase(sheet, row, korva.Stored);
  NormalizeDescription(read.Stored);
  const std::string bytes = FileBytesFromText(ComposeProject(read.Stored));
  const std::string name = SafeFileName(fmt::format("{}-{}", read.Number, read.Stored.ProjectTitle));
  korva.Stored = std::move(read.Stored);
  korva.ProjectSaved = false;
  korva.ProjectEmpty = false;
  korva.ProjectFileName = CaseFileName(folder, name, row, bytes);
  FileSave(korva);
  return korva.ProjectFileName;
}

bool IsCaseFault(const RuntimeError& error) {
  constexpr std::array kFaults = {ErrorNumber::kTypeMismatch, ErrorNumber::kOverflow, ErrorNumber::kSubscript,
                                  ErrorNumber::kInvalidCall};
  return std::find(kFaults.begin(), kFaults.end(), error.Number()) != kFaults.end();
}

CaseImportState ImportCases(Korva& korva, Ports& ports, std::string_view rowText,
                            const CaseImportSteps& steps) {
  return IsConfirmed(korva, ports.Messages, "This operation will override current data. Proceed?",
                     "messages-files", MessageButtons::kYesNo, MessageIcon::kQuestion)
             ? DialogImport(korva, ports, steps).Run(rowText)
             : CaseImportState{};
}

}  // namespace korva
