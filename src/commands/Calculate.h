// The command "Stability Factors...": from the open project to its output pages.
#pragma once

#include <optional>
#include <string>

#include "core/Korva.h"
#include "core/Messages.h"
#include "model/Calculation.h"
#include "reports/Rules.h"

namespace korva {

// What a run yields, before it is put on pages; or the check's refusal.
struct Evaluated {
  Calculation Run;
  RuleOutcome Rules;
  std::optional<std::string> Refusal;
};

// What to say of an overburden model (CalcMode) that is not built yet; nothing for one that is.
std::optional<std::string> MissingModel(std::int16_t calcMode);

// Runs the traditional model on a record and judges it. Run-time errors of the calculation, and 5 for a
// project that asks for a model that is missing.
Evaluated EvaluateProject(const Project& project, std::int16_t units, const OptionSettings& options);

// Fills the plan view's single-precision copies from the working copy.
void FillPlotCopies(Korva& korva);

// Runs the working copy as it stands and fills all output pages, WarningText and LastRun. False, after a
// message, for a record that the check refuses or a model that is missing. Neither then nor after a run-time
// error is any page changed.
bool CalculateWorkingCopy(Korva& korva, MessagePort& messages);

// Copies the project to the working copy, with the overburden model `calcMode` if one is given, and runs
// that. False, after a message, also for an empty project.
bool CalculateStabilityFactors(Korva& korva, MessagePort& messages,
                               std::optional<std::int16_t> calcMode = {});

}  // namespace korva
