// From the open project to its output pages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/Korva.h"
#include "core/Messages.h"
#include "model/Calculation.h"
#include "reports/Rules.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

// What commands say that need a project.
inline constexpr std::string_view kEmptyFile = "Current file is empty";

// What a run yields, before it is put on pages; or the check's refusal. Which parts there are is told by the
// model.
struct Evaluated {
  OverburdenModel Model = kTraditionalModel;
  Calculation Run;    // of the traditional model
  RuleOutcome Rules;  // only if that ran alone
  StrondRun Laminated;
  std::optional<std::string> Refusal;
};

// Runs `model` on the working copy. The laminated one writes and reads files where the preferences and the
// project's name say. Run-time errors of both.
Evaluated EvaluateProject(const Korva& korva, OverburdenModel model);

// The stability factors of one of the models that ran, by case, as page 1 has them.
ByCase<std::string> ShownFactors(const Evaluated& evaluated, bool laminated, const OptionSettings& options);

// What a run says about the pillars, in output units, as the plan shows it.
PlanValues PillarValuesOf(const Korva& korva, const Evaluated& evaluated);

// Writes page 0, the echo of the working copy.
void LoadOutBuf0(Korva& korva);

// Fills the plan view's single-precision copies from the working copy.
void FillPlotCopies(Korva& korva);

// Runs the working copy in `model` and fills all output pages, WarningText and LastRun. False,
// after a message, for a record that the check refuses. Neither then nor after a run-time error is any page
// changed. A comparison tells that its traditional numbers come without warnings.
bool CalculateWorkingCopy(Korva& korva, MessagePort& messages, OverburdenModel model);

// The command "Stability Factors...": copies the project to the working copy and runs that. Of the laminated
// models it always runs the laminated one alone, after a notice. False, after a message, also for an empty
// project.
bool CalculateStabilityFactors(Korva& korva, MessagePort& messages);

// The button "Results" of the parameters form: runs the working copy, whose laminated models ask first. False
// also if the person does not want to.
bool CalculateFromForm(Korva& korva, MessagePort& messages);

}  // namespace korva
