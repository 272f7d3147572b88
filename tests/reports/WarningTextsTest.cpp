#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/Rules.h"
#include "support/Panels.h"

namespace korva {
namespace {

WarningTexts TextsOf(const std::vector<int>& flags, UnitSystem units = kEnglish, double depth = 900,
                     float crit = 1.36F) {
  RuleOutcome outcome;
  for (const int flag : flags) {
    outcome.RuleFlags[flag] = true;
  }
  outcome.Facts.CritSF = crit;
  Project p = test::DevelopmentPanel();
  p.DepthCover = depth;
  return ComposeWarnings(outcome, p, units);
}

const std::string kBOpening =
    "B. Analysis of the KORVA case history data base suggests that when the depth of cover is ";
const std::string kBRisk = ", the risk of pillar failure is increased when the KORVA SF is less than 1.5 ";

TEST(WarningTexts, WrapOnThePageOnly) {
  EXPECT_EQ(TextsOf({0}).Page,
            "A. Analysis of the KORVA case history data base suggests that the\r\n"
            "risk of pillar failure is increased when the KORVA SF is less than\r\n"
            "1.5.  For more information, consult Help/Stability Factors.\r\n\r\n");
  // A barrier's own flag has no text, and settings stand on the page only.
  EXPECT_EQ(TextsOf({8}).Page, "");
  EXPECT_EQ(TextsOf({8, 9, 10, 11, 12, 13, 14, 15}).Popup, "");
}

TEST(WarningTexts, ModerateDepthNamesItsFactor) {
  EXPECT_EQ(
      TextsOf({1}).Popup,
      kBOpening + "900 ft" + kBRisk +
          "or (1.36 if the panel width is less than 425 ft and the Barrier Pillar SF exceeds 2.0.) \r\n\r\n");
  EXPECT_TRUE(TextsOf({1}, kMetric, 243.84)
                  .Popup.starts_with(kBOpening + "244 m" + kBRisk +
                                     "or (1.36 if the panel width is less than 130 m"));
  // Just beneath 650 ft there is no second limit.
  EXPECT_EQ(TextsOf({1}, kEnglish, 655, 1.4971F).Popup, kBOpening + "655 ft" + kBRisk + "\r\n\r\n");
}

// The golden pages have the limits in feet.
TEST(WarningTexts, NameLimitsInMeters) {
  const std::string metric = TextsOf({2, 3, 6, 7}, kMetric).Popup;
  for (const char* text : {"greater than 300 m, the", "less than 130 m and", "greater than 200 m, the",
                           "exceeded 600 m, and", "exceeds 600 m\r\n\r\n", "exceeds 300 m. \r\n\r\n"}) {
    EXPECT_NE(metric.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(metric.find(" ft"), std::string::npos);
}

TEST(WarningTexts, StandInTheirOrder) {
  const std::string page = TextsOf({0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}).Page;
  std::size_t at = 0;
  for (const char* text :
       {"A. Analysis", "B. Analysis", "C. Analysis", "Barrier Pillar SF is less than 1.5.", "slender",
        "only 7", "44 failures", "(AMZ", "162 pcf", "900 psi", "19 case", "21 degrees", "(Fpa", "KORVA v6"}) {
    const std::size_t found = page.find(text, at);
    ASSERT_NE(found, std::string::npos) << text;
    at = found;
  }
}

}  // namespace
}  // namespace korva
