#include "commands/Calculate.h"

#include "core/Description.h"
#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "reports/Reports.h"

namespace korva {

namespace {

constexpr std::string_view kEmptyFile = "Current file is empty";

struct PageSet {
  OutputPages Pages;
  std::string WarningText;
};

PageSet BuildPages(const Korva& korva, const Evaluated& evaluated) {
  const OptionSettings& options = korva.Preferences.Options;
  const Project& project = korva.ProjectCalc;
  WarningTexts warnings = ComposeWarnings(evaluated.Rules, project, korva.Stored.ProjectUnits);
  const OutputResults output =
      ConvertResultUnits(evaluated.Run, {options.OutputStrUnits, options.OutputStrGradUnits});
  PageSet set;
  set.Pages[1] = ReportStabilityFactors(evaluated.Run, project, evaluated.Rules, warnings.Page);
  set.Pages[2] = ReportAMZ(output, project);
  set.Pages[3] = ReportPillars(output, options);
  set.Pages[4] = ReportBarriers(output, project);
  set.Pages[5] = ReportRemnants(output, project);
  set.Pages[0] = InputEcho(korva.Stored, project, korva.ProjectFileName, options);
  set.WarningText = std::move(warnings.Popup);
  return set;
}

// What the pages were made of, as the input record would have to be for them to hold still.
RunSummary SummaryOf(const Korva& korva, const Evaluated& evaluated) {
  const auto& factors = evaluated.Rules.Facts.SF;
  return {korva.ProjectCalc, korva.Stored.ProjectUnits,
          LastCaseShown(korva.ProjectCalc, evaluated.Run.Work) == kRetreat, factors[kDevelopment],
          factors[kRetreat]};
}

}  // namespace

// The same spacing goes into every slot.
void FillPlotCopies(Korva& korva) {
  for (int i = 1; i < korva.ProjectCalc.NumberEntries; ++i) {
    korva.PlotXcutSpacing[i] = static_cast<float>(korva.ProjectCalc.XcutSpacing);
    korva.PlotXcutAngle = static_cast<float>(korva.ProjectCalc.XcutAngle);
  }
}

std::optional<std::string> MissingModel(std::int16_t calcMode) {
  if (calcMode == kTraditionalModel) {
    return std::nullopt;
  }
  return "the laminated overburden model is not built yet; the traditional model is";
}

Evaluated EvaluateProject(const Project& project, std::int16_t units, const OptionSettings& options) {
  Evaluated evaluated;
  Prepared prepared = PrepareCalculation(project, units);
  evaluated.Refusal = std::move(prepared.Refusal);
  if (evaluated.Refusal) {
    return evaluated;
  }
  if (const auto missing = MissingModel(project.CalcMode)) {
    throw RuntimeError(ErrorNumber::kInvalidCall, *missing);
  }
  evaluated.Run = prepared.Run;
  RunCalculation(evaluated.Run);
  evaluated.Rules = EvaluateRules(project, evaluated.Run, options.RoundKORVASF);
  return evaluated;
}

bool CalculateWorkingCopy(Korva& korva, MessagePort& messages) {
  korva.OutPageLast = OutputPages::kLast;
  if (const auto refusal = PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits).Refusal) {
    ShowMessage(korva, messages, {.text = *refusal, .title = {}});
    return false;
  }
  if (const auto missing = MissingModel(korva.ProjectCalc.CalcMode)) {
    ShowMessage(korva, messages, {.text = "Not calculated: " + *missing, .title = {}});
    return false;
  }
  const Evaluated evaluated =
      EvaluateProject(korva.ProjectCalc, korva.Stored.ProjectUnits, korva.Preferences.Options);
  NormalizeDescription(korva.Stored);
  PageSet set = BuildPages(korva, evaluated);
  korva.OutBuf = std::move(set.Pages);
  korva.WarningText = std::move(set.WarningText);
  korva.LastRun = SummaryOf(korva, evaluated);
  HistoryLog(korva.SessionHistory, korva.Preferences, "KORVA stability factors calculated");
  return true;
}

bool CalculateStabilityFactors(Korva& korva, MessagePort& messages, std::optional<std::int16_t> calcMode) {
  if (korva.ProjectEmpty) {
    ShowMessage(korva, messages, {.text = std::string(kEmptyFile), .title = {}});
    return false;
  }
  korva.ProjectCalc = korva.Stored.ProjectInput;
  if (calcMode) {
    korva.ProjectCalc.CalcMode = *calcMode;
  }
  FillPlotCopies(korva);
  return CalculateWorkingCopy(korva, messages);
}

}  // namespace korva
