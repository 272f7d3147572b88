#include "commands/Calculate.h"

#include "core/Description.h"
#include "core/Format.h"
#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "plan/KORVAgraf.h"
#include "reports/Reports.h"
#include "reports/RoundSF.h"

namespace korva {

namespace {

constexpr std::string_view kTakesMinutes =
    "The laminated model will invoke Strondel in the background and may take a few minutes to run.";
constexpr std::string_view kWithoutWarnings =
    "Results from the Traditional Overburden KORVA will be included in the results without any warnings. "
    "Results should be used with caution.";

struct PageSet {
  OutputPages Pages;
  std::string WarningText;
};

PageSet TraditionalPages(const Korva& korva, const Evaluated& evaluated) {
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
  set.WarningText = std::move(warnings.Popup);
  return set;
}

// The laminated models leave page 5 empty and have no warnings.
PageSet LaminatedPages(const Korva& korva, const Evaluated& evaluated) {
  const UnitSystem units = korva.Stored.ProjectUnits;
  const StrondResults& results = evaluated.Laminated.Results;
  const StrondPages pages = evaluated.Model == kComparedModels
                                ? StrondCompareReport(results, korva.ProjectCalc, units, evaluated.Run,
                                                      korva.Preferences.Options.RoundKORVASF)
                                : StrondReport(results, korva.ProjectCalc, units);
  PageSet set;
  for (int page = pages.Page.kFirst; page <= pages.Page.kLast; ++page) {
    set.Pages[page] = pages.Page[page];
  }
  return set;
}

// A barrier that is not there leaves 0 as its factor.
template <class Factor>
std::string ShownBarrier(Factor factor) {
  return factor == 0 ? std::string() : Format(factor, kFactorPattern);
}

FactorLine FactorLineOf(const Evaluated& evaluated, bool laminated, int c, int sideGobs,
                        const OptionSettings& options) {
  FactorLine line{laminated, c == kRetreat, ShownFactors(evaluated, laminated, options)[c], {}};
  for (int side = 0; side < sideGobs; ++side) {
    line.Barriers.at(static_cast<std::size_t>(side)) =
        laminated ? ShownBarrier(evaluated.Laminated.Results.StrondBarrierSF[c - kDevelopment][side])
                  : ShownBarrier(evaluated.Run.Out.BarrierSF[c][kFirstSide + side]);
  }
  return line;
}

// What the pages were made of, which tells whether they are out of date.
RunSummary SummaryOf(const Korva& korva, const Evaluated& evaluated) {
  const int sideGobs = SideGobCount(evaluated.Run.Work.LoadCond);
  RunSummary summary{korva.ProjectCalc, korva.Stored.ProjectUnits, evaluated.Model, sideGobs, {}};
  for (const bool laminated : {false, true}) {
    const bool ran = laminated ? UsesLaminated(evaluated.Model) : UsesTraditional(evaluated.Model);
    for (int c = kDevelopment; ran && c <= LastCaseShown(korva.ProjectCalc, evaluated.Run.Work); ++c) {
      summary.Factors.push_back(FactorLineOf(evaluated, laminated, c, sideGobs, korva.Preferences.Options));
    }
  }
  return summary;
}

bool IsRefused(Korva& korva, MessagePort& messages) {
  const auto refusal = PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits).Refusal;
  if (refusal) {
    ShowMessage(korva, messages, {.text = *refusal, .topic = "warnings-refusals"});
  }
  return refusal.has_value();
}

std::string InputPage(Korva& korva) {
  NormalizeDescription(korva.Stored);
  return InputEcho(korva.Stored, korva.ProjectCalc, korva.ProjectFileName, korva.Preferences.Options);
}

void KeepLaminatedRun(Korva& korva, Evaluated& evaluated) {
  korva.Strond = evaluated.Laminated.Results;
  korva.StrondOutFile = std::move(evaluated.Laminated.StrondOutFile);
  korva.StrondResultFile = std::move(evaluated.Laminated.StrondResultFile);
}

}  // namespace

void LoadOutBuf0(Korva& korva) {
  korva.OutBuf[0] = InputPage(korva);
}

// The same spacing goes into every slot.
void FillPlotCopies(Korva& korva) {
  for (int i = 1; i < korva.ProjectCalc.NumberEntries; ++i) {
    korva.PlotXcutSpacing[i] = static_cast<float>(korva.ProjectCalc.XcutSpacing);
    korva.PlotXcutAngle = static_cast<float>(korva.ProjectCalc.XcutAngle);
  }
}

Evaluated EvaluateProject(const Korva& korva, OverburdenModel model) {
  const Project& project = korva.ProjectCalc;
  const UnitSystem units = korva.Stored.ProjectUnits;
  const OptionSettings& options = korva.Preferences.Options;
  Evaluated evaluated;
  evaluated.Model = model;
  Prepared prepared = PrepareCalculation(project, units);
  evaluated.Refusal = std::move(prepared.Refusal);
  if (evaluated.Refusal) {
    return evaluated;
  }
  if (UsesLaminated(evaluated.Model)) {
    evaluated.Laminated =
        RunStrond2D(project, units, korva.ProjectFileName, StrondPlaceOf(korva.Places, options.iOptDir));
  }
  evaluated.Run = prepared.Run;
  if (UsesTraditional(evaluated.Model)) {
    RunCalculation(evaluated.Run);
  }
  if (!UsesLaminated(model)) {
    evaluated.Rules = EvaluateRules(project, evaluated.Run, options.RoundKORVASF);
  }
  return evaluated;
}

ByCase<std::string> ShownFactors(const Evaluated& evaluated, bool laminated, const OptionSettings& options) {
  ByCase<std::string> texts;
  for (int c = kDevelopment; c <= kRetreat; ++c) {
    texts[c] = laminated
                   ? Format(evaluated.Laminated.Results.StrondSF[c - kDevelopment], kFactorPattern)
                   : Format(RoundSF(evaluated.Run.Out.SFKorva[c], options.RoundKORVASF), kFactorPattern);
  }
  return texts;
}

PlanValues PillarValuesOf(const Korva& korva, const Evaluated& evaluated) {
  const OptionSettings& options = korva.Preferences.Options;
  return PlanValuesOf(UsesTraditional(evaluated.Model) ? &evaluated.Run : nullptr,
                      UsesLaminated(evaluated.Model) ? &evaluated.Laminated.Results : nullptr,
                      korva.Stored.ProjectUnits, {options.OutputStrUnits, options.OutputStrGradUnits});
}

bool CalculateWorkingCopy(Korva& korva, MessagePort& messages, OverburdenModel model) {
  korva.OutPageLast = OutputPages::kLast;
  Evaluated evaluated = EvaluateProject(korva, model);
  if (evaluated.Refusal) {
    ShowMessage(korva, messages, {.text = *evaluated.Refusal, .topic = "warnings-refusals"});
    return false;
  }
  if (model == kComparedModels) {
    ShowMessage(korva, messages, {.text = std::string(kWithoutWarnings), .topic = "messages-run"});
  }
  PageSet set = UsesLaminated(model) ? LaminatedPages(korva, evaluated) : TraditionalPages(korva, evaluated);
  set.Pages[0] = InputPage(korva);
  korva.LastRun = SummaryOf(korva, evaluated);
  korva.PillarValues = PillarValuesOf(korva, evaluated);
  korva.OutBuf = std::move(set.Pages);
  korva.WarningText = std::move(set.WarningText);
  if (UsesLaminated(model)) {
    KeepLaminatedRun(korva, evaluated);
  }
  HistoryLog(korva, "KORVA stability factors calculated");
  return true;
}

bool CalculateStabilityFactors(Korva& korva, MessagePort& messages) {
  if (korva.ProjectEmpty) {
    ShowMessage(korva, messages, {.text = std::string(kEmptyFile), .topic = "messages-run"});
    return false;
  }
  korva.OutPageLast = OutputPages::kLast;
  korva.ProjectCalc = korva.Stored.ProjectInput;
  FillPlotCopies(korva);
  if (!UsesLaminated(korva.ProjectCalc.CalcMode)) {
    return CalculateWorkingCopy(korva, messages, kTraditionalModel);
  }
  if (IsRefused(korva, messages)) {
    return false;
  }
  ShowMessage(korva, messages, {.text = std::string(kTakesMinutes), .topic = "messages-run"});
  return CalculateWorkingCopy(korva, messages, kLaminatedModel);
}

bool CalculateFromForm(Korva& korva, MessagePort& messages) {
  const OverburdenModel model = korva.ProjectCalc.CalcMode;
  if (UsesLaminated(model) &&
      (IsRefused(korva, messages) ||
       !IsConfirmed(korva, messages, std::string(kTakesMinutes) + " Continue?", "messages-run"))) {
    return false;
  }
  return CalculateWorkingCopy(korva, messages, model);
}

}  // namespace korva
