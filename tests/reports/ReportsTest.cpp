// What the golden pages of the examples do not show.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "commands/Calculate.h"
#include "reports/Reports.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::AtCondition;
using test::DevelopmentPanel;
using test::TwoSideGobs;

// Page `number` of a panel.
std::string PageOf(std::size_t number, const Project& p, const OptionSettings& options = {},
                   UnitSystem units = kEnglish) {
  Korva korva;
  korva.ProjectCalc = p;
  korva.Stored.ProjectUnits = units;
  korva.Preferences.Options = options;
  const Evaluated run = EvaluateProject(korva, kTraditionalModel);
  const OutputResults output =
      ConvertResultUnits(run.Run, {options.OutputStrUnits, options.OutputStrGradUnits});
  const std::string warnings = ComposeWarnings(run.Rules, p, units).Page;
  return std::array{InputEcho(test::Stored(p, units), p, "panel.KVL", options),
                    ReportStabilityFactors(run.Run, p, run.Rules, warnings),
                    ReportAMZ(output, p),
                    ReportPillars(output, options),
                    ReportBarriers(output, p),
                    ReportRemnants(output, p)}
      .at(number);
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Reports, WithoutActiveGobShowDevelopmentAlone) {
  Project p = DevelopmentPanel();
  p.ExtentActiveGob = 500;  // plays no part at this condition
  EXPECT_FALSE(Holds(PageOf(1, p), "Retreat"));
  p = AtCondition(TwoSideGobs(), 2);
  p.ExtentActiveGob = 0;
  p.RowC = p.RowD = 1;  // row D stands beside no gob
  p.WidthRowC = p.WidthRowD = 50;
  for (const std::size_t page : {1U, 2U, 4U}) {
    EXPECT_FALSE(Holds(PageOf(page, p), "Retreat") || Holds(PageOf(page, p), "RETREAT")) << page;
  }
  const std::string barriers = PageOf(4, p);
  EXPECT_TRUE(Holds(barriers, "*\r\n *Includes contribution from row 'C' bleeder pillar\r\n\r\n\r\n["));
  EXPECT_FALSE(Holds(barriers, "row 'D'") || Holds(barriers, "2nd") || Holds(barriers, "Second"));
  // Two empty lines behind the table, three that close the page.
  EXPECT_TRUE(barriers.ends_with("E+00\r\n\r\n\r\n\r\n\r\n\r\n"));
  EXPECT_FALSE(Holds(PageOf(5, p), "      D "));
  EXPECT_TRUE(Holds(PageOf(4, TwoSideGobs()), "Front Abutment              5.06E+05        3.30E+05"));
}

// A barrier below 1.5 by its 64-bit value only sets a flag that has no text.
TEST(ReportStabilityFactors, HeadingWithoutText) {
  RuleOutcome outcome;
  outcome.RuleFlags[8] = outcome.AnyWarning = true;
  Calculation run;
  run.Work.LoadCond = kNoGob;
  EXPECT_TRUE(ReportStabilityFactors(run, DevelopmentPanel(), outcome, "")
                  .ends_with("\r\n\r\n\r\n[WARNINGS]\r\n\r\n\r\n"));
}

TEST(Reports, FollowTheOptions) {
  const Project p = DevelopmentPanel();
  EXPECT_TRUE(PageOf(3, p, {.PrintPlotReminder = 0}).ends_with(" 2.01E+06 (tons)\r\n\r\n"));
  EXPECT_TRUE(PageOf(0, p, {.PrintModuleHeader = 0}).starts_with("[PROJECT TITLE]\r\n"));
  EXPECT_TRUE(
      Holds(PageOf(0, p, {.OutputStrUnits = StressUnit::kPsf, .OutputStrGradUnits = LoadUnit::kPounds}),
            "Units:  (ft) (psf) (lbs)\r\n"));
  EXPECT_TRUE(
      Holds(PageOf(3, p, {.OutputStrUnits = StressUnit::kPsf, .OutputStrGradUnits = LoadUnit::kPounds}),
            "(psf)         (lbs)\r\n"));
  // Condition 4 runs like 2, but has no name.
  EXPECT_TRUE(PageOf(0, AtCondition(p, 4)).ends_with("Loading Condition..................\r\n\r\n\r\n\r\n"));
  EXPECT_TRUE(Holds(PageOf(0, p, {}, kMetric), "Units:  (m) (kPa) (kN)\r\n"));
}

}  // namespace
}  // namespace korva
