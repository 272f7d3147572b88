// Page 1: stability factors and warnings.
#include "core/Format.h"
#include "core/Tables.h"
#include "reports/PageText.h"
#include "reports/Reports.h"

namespace korva {

namespace {

constexpr std::size_t kLabelWidth = 45;
constexpr std::size_t kValueWidth = 6;

std::string FactorRow(std::string_view label, const std::string& factor) {
  return DotPad(label, kLabelWidth) + PadLeft(factor, kValueWidth);
}

}  // namespace

std::string ReportStabilityFactors(const Calculation& calculation, const Project& project,
                                   const RuleOutcome& outcome, const std::string& warnings) {
  const RunLoading loadCond = calculation.Work.LoadCond;
  const int lastCase = LastCaseShown(project, calculation.Work);
  const bool sideGobs = loadCond >= kOneSideGob;

  PageText page(kFactorsHeading);
  for (int c = kDevelopment; c <= lastCase; ++c) {
    const auto stage = StageIndex(c);
    page.Line(FactorRow(ModelStageTitles[stage], Format(outcome.Facts.SF[c], kFactorPattern)));
    if (sideGobs) {
      page.Line(SideGobNotes[2 * stage + (loadCond == kTwoSideGobs ? 1 : 0)]);
    }
  }
  if (sideGobs) {
    page.Line().Line(kBarrierFactorsHeading).Line();
    for (int c = kDevelopment; c <= lastCase; ++c) {
      page.Line("[", StageTitles[StageIndex(c)], "]");
      for (const int k : SideGobs(loadCond)) {
        page.Line(
            FactorRow(BarrierTitles[SideIndex(k)], Format(calculation.Out.BarrierSF[c][k], kFactorPattern)));
      }
    }
  }
  page.Line().Line();
  if (outcome.AnyWarning) {
    page.Line("[WARNINGS]").Line().Text(warnings);
  }
  return page.Line().Take();
}

}  // namespace korva
