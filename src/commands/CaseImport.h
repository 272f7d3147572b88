// Rows of the cases' workbook become project files.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/Korva.h"
#include "core/Ports.h"
#include "core/RuntimeError.h"
#include "workbook/Sheet.h"

namespace korva {

// Makes row `row` of `sheet` the open project, in the units that the program is in, and saves it in `folder`
// (the current one if that is empty) under case number and mine name. A file there that holds anything else
// stays as it is: the name then tells the row, too. Returns the full name. Run-time errors of ReadCase, which
// leave an empty project, and of FileSave.
std::string ImportCase(Korva& korva, const Sheet& sheet, int row, const std::string& folder);

// Whether an error of ImportCase is about the row alone, so that other rows may do.
bool IsCaseFault(const RuntimeError& error);

// What the dialog shows while rows are imported, and after.
struct CaseImportState {
  int Row = 0;         // done, or the one at which it ended
  int LastRow = 0;     // of all that are to be done
  std::string Text;    // the row with ":completed" or ":canceled"; empty if nothing was begun
  std::string Reason;  // what was written, or why it ended; may be empty
};

struct CaseImportSteps {
  // Keeps unsaved work, which is about to be dropped.
  std::function<void()> KeepWork;
  // Shows a state and lets pending events run. False if the person wants it to end.
  std::function<bool(const CaseImportState&)> MayContinue;
};

// The whole import of the options dialog: question, file dialog, workbook, rows. `rowText` is 0 for the first
// case, 999 for all rows that the data base has; any other number imports nothing. Returns the last state; a
// failure shows there and nowhere else but in the history.
CaseImportState ImportCases(Korva& korva, Ports& ports, std::string_view rowText,
                            const CaseImportSteps& steps);

}  // namespace korva
