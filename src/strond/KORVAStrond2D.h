// The laminated overburden model: the files that the program and the solver library exchange, a run of the
// library, and the reports of its results.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/Folders.h"
#include "core/Project.h"
#include "core/RuntimeError.h"
#include "core/Settings.h"
#include "core/StrondResults.h"
#include "model/Calculation.h"

namespace korva {

// Where the files of a run go: the setting iOptDir chooses between the folder of the program (0), the user's
// temporary folder (1), the root folder (2) and the documents' temporary folder (3).
struct StrondPlace {
  SolverFolder iOptDir = SolverFolder::kDocuments;
  std::string App;    // of the running program, without a separator at its end
  std::string Tmp;    // the user's temporary folder, with one
  std::string Drive;  // what stands in front of the root's separator; empty here
  std::string Docs;   // "MyFolvane/Temp" under the documents folder, with a separator at its end
};

StrondPlace StrondPlaceOf(const Folders& folders, SolverFolder iOptDir);

// The exchange file, the file that the library may write, and the result file of a project; `ext` is ".KVSD",
// ".OUT" and ".CSV". They differ by their rules, among them two points in the result's name in the program's
// folder. Empty for an iOptDir beyond 0 to 3.
std::string StrondInputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place);
std::string StrondOutputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place);
std::string StrondResultPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place);

// The fields of the exchange file, with its line end. Run-time error 6 for a value that is not finite.
inline constexpr int kStrondFields = 52;
std::string StrondLine(const Project& project, UnitSystem units);

// What field 1 to 52 holds, such as "entry height"; "field 1" for one that is the same for every panel.
std::string StrondFieldName(int field);

// The results that a result file holds: a heading line, nine items that are skipped, then 35 numbers,
// separated by commas or line ends. Run-time errors name the file, the line and what was expected: 62 for a
// file that ends early, 13 for an item that is no number, 6 for one beyond its type.
StrondResults ReadStrondResults(std::string_view text, const std::string& fileName);

// Calls the function of the solver library with the name of an exchange file, and gives back what it gives.
// The library is looked for by name in the usual places, at the first call. Run-time error 53 if it cannot be
// loaded or does not have the function.
int CallSolverLibrary(const std::string& exchangePath);
int CallSolverLibrary(const std::string& library, const std::string& exchangePath);

// The library's value in words; nothing for 0.
std::string SolverStatusText(int status);

// The number of the run-time error that a run without a result ends in. Those that offer Retry stand for what
// may be otherwise the next time, such as a full disk; a refusal of the solver stays one.
ErrorNumber SolverStatusError(int status);

struct StrondRun {
  std::string StrondOutFile;
  std::string StrondResultFile;
  StrondResults Results;
};

// One run: an old result file is set aside, the exchange file written and held for the time of the run, the
// library called, and what it left read. The library's value counts only where there is no result to read.
// Run-time errors: 55 if another run holds the exchange file, those of writing and reading, of the library,
// and that of its value if it left no result.
StrondRun RunStrond2D(
    const Project& project, UnitSystem units, const std::string& projectPath, const StrondPlace& place,
    const std::function<int(const std::string&)>& solver = [](const std::string& path) {
      return CallSolverLibrary(path);
    });

// Output pages 1 to 4.
struct StrondPages {
  IndexedArray<std::string, 1, 4> Page;
};

// The pages of the laminated model alone, and beside the factors of a run of the traditional model, rounded
// by RoundKORVASF.
StrondPages StrondReport(const StrondResults& results, const Project& project, UnitSystem units);
StrondPages StrondCompareReport(const StrondResults& results, const Project& project, UnitSystem units,
                                const Calculation& traditional, FactorRounding roundKORVASF);

}  // namespace korva
