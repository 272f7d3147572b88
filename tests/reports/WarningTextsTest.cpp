#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "core/Text.h"
#include "reports/Rules.h"
#include "support/Panels.h"

namespace korva {
namespace {

WarningTexts TextsOf(const std::vector<int>& flags, std::int16_t units = kEnglish, double depth = 900,
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

// The page's text in one line for each warning.
std::string Unwrapped(std::string_view page) {
  std::string text;
  for (; !page.empty(); page = TakeLine(page).rest) {
    const std::string_view line = TakeLine(page).line;
    if (line.empty()) {
      text.back() = '\n';
    } else {
      text.append(line).push_back(' ');
    }
  }
  return text;
}

const std::string kBOpening =
    "B. Analysis of the KORVA case history data base suggests that when the depth of cover is ";
const std::string kBRisk = ", the risk of pillar failure is increased when the KORVA SF is less than 1.5 ";

TEST(WarningTexts, WrapOnThePageOnly) {
  const WarningTexts texts = TextsOf({0});
  EXPECT_EQ(texts.Page,
            "A. Analysis of the KORVA case history data base suggests that the\r\n"
            "risk of pillar failure is increased when the KORVA SF is less than\r\n"
            "1.5.  For more information, consult Help/Stability Factors.\r\n\r\n");
  EXPECT_EQ(texts.Popup,
            "A. Analysis of the KORVA case history data base suggests that the risk of pillar failure is "
            "increased when the "
            "KORVA SF is less than 1.5.\r\n\r\n");
}

TEST(WarningTexts, ModerateDepthNamesItsFactor) {
  EXPECT_EQ(
      TextsOf({1}).Popup,
      kBOpening + "900 ft" + kBRisk +
          "or (1.36 if the panel width is less than 425 ft and the Barrier Pillar SF exceeds 2.0.) \r\n\r\n");
  EXPECT_EQ(
      TextsOf({1}, kMetric, 243.84).Popup,
      kBOpening + "244 m" + kBRisk +
          "or (1.36 if the panel width is less than 130 m and the Barrier Pillar SF exceeds 2.0.) \r\n\r\n");
  // Just beneath 650 ft there is no second limit.
  EXPECT_EQ(TextsOf({1}, kEnglish, 655, 1.4971F).Popup, kBOpening + "655 ft" + kBRisk + "\r\n\r\n");
  EXPECT_EQ(Unwrapped(TextsOf({1}, kEnglish, 655, 1.4971F).Page),
            kBOpening + "655 ft" + kBRisk + "  For more information, consult Help/Stability Factors.\n");
  EXPECT_NE(TextsOf({1}, kEnglish, 655, 1.494F).Popup.find("or (1.49 if"), std::string::npos);
}

TEST(WarningTexts, NameLimitsInProjectUnits) {
  const std::string english = TextsOf({2, 3, 6, 7}).Popup;
  for (const char* text :
       {"when the depth of cover is greater than 1000 ft, the risk",
        "less than 1.5 or (1.3 if the panel width is less than 425 ft", "greater than 650 ft, the risk",
        "exceeded 2000 ft, and three", "exceeds 2000 ft\r\n\r\n", "exceeded 1000 ft.  Of these, 20 were",
        "exceeds 1000 ft. \r\n\r\n"}) {
    EXPECT_NE(english.find(text), std::string::npos) << text;
  }
  const std::string metric = TextsOf({2, 3, 6, 7}, kMetric).Popup;
  for (const char* text :
       {"greater than 300 m, the risk", "less than 130 m and", "greater than 200 m, the risk",
        "exceeded 600 m, and three", "exceeds 600 m\r\n\r\n", "exceeded 300 m.  Of these, 20 were",
        "exceeds 300 m. \r\n\r\n"}) {
    EXPECT_NE(metric.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(metric.find(" ft"), std::string::npos);
}

TEST(WarningTexts, StandInTheirOrder) {
  const WarningTexts all = TextsOf({0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
  const std::string page = Unwrapped(all.Page);
  std::size_t at = 0;
  for (const char* text :
       {"A. Analysis", "B. Analysis", "C. Analysis", "when the Barrier Pillar SF is less than 1.5.",
        "large groups of slender", "only 7 retreat mining cases", "44 failures",
        "(AMZ = 5 times the square root", "unit weight of 162 pcf", "coal strength of 900 psi",
        "19 case histories", "abutment angles of 21", "(Fpa = 0.28 times", "used in KORVA v6"}) {
    const std::size_t found = page.find(text, at);
    ASSERT_NE(found, std::string::npos) << text;
    at = found;
  }
  EXPECT_EQ(std::count(page.begin(), page.end(), '\n'), 14);

  // The popup has the first seven, without the pointers to the help.
  EXPECT_EQ(all.Popup.find("For more information"), std::string::npos);
  EXPECT_NE(page.find("exceeds 2000 ft.  For more information"), std::string::npos);
  EXPECT_TRUE(all.Popup.ends_with("the depth of cover exceeds 1000 ft. \r\n\r\n"));
}

TEST(WarningTexts, PrintedBarrierFactorHasNone) {
  EXPECT_EQ(TextsOf({8}).Page, "");
  EXPECT_EQ(TextsOf({8}).Popup, "");
  EXPECT_EQ(TextsOf({9, 10, 11, 12, 13, 14, 15}).Popup, "");
}

}  // namespace
}  // namespace korva
