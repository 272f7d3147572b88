// Many projects at once, one row a project.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/Calculate.h"
#include "core/Progress.h"
#include "core/RuntimeError.h"
#include "core/Settings.h"

namespace korva {

// What became of one project file. Without refusal and error it has a run.
struct BatchRow {
  std::string File;
  std::string Title;
  UnitSystem Units = kEnglish;
  OverburdenModel CalcMode = kTraditionalModel;
  std::optional<std::string> Refusal;
  std::optional<RuntimeError> Error;
  bool Read = false;                 // the file is a project and was read whole
  std::string Failure;               // why there is no run, for neither of the two reasons above
  std::vector<std::string> Notices;  // what was odd in the file, and what the input form would refuse
  // What the table shows of a run.
  ByCase<double> SFKorva;
  ByCase<BySide<double>> BarrierSF;
  BySide<double> RemnantSF;
  ByCase<std::string> ShownSF;
  RunLoading LoadCond = kUnknown;
  int LastCase = kDevelopment;             // the last case that the pages show
  std::vector<int> RuleFlags;              // indices of the flags that are set
  std::optional<StrondResults> Laminated;  // of a laminated run, whose numbers stand above if it ran alone
};

// The project files that `paths` name: a folder stands for all files in it and below it with the project
// extension in any letter case. In name order, no name twice.
std::vector<std::string> FindProjectFiles(const std::vector<std::string>& paths);

// Evaluates each file, on `jobs` threads, in the order of `files`. No fault of one file touches another.
std::vector<BatchRow> RunBatch(const std::vector<std::string>& files, const Settings& settings,
                               std::optional<OverburdenModel> calcMode, unsigned jobs,
                               ProgressPort& progress);

}  // namespace korva
