#include <gtest/gtest.h>

#include <locale>
#include <string>

#include "commands/Calculate.h"
#include "support/ExpectError.h"
#include "support/Panels.h"
#include "support/ScriptedMessages.h"

namespace korva {
namespace {

using test::DevelopmentPanel;
using test::Stored;
using test::TwoSideGobs;

Korva WithProject(const Project& project) {
  Korva korva;
  korva.Stored = Stored(project);
  korva.ProjectEmpty = false;
  for (std::string& page : korva.OutBuf) {
    page = "earlier";
  }
  korva.WarningText = "earlier";
  return korva;
}

void ExpectPagesUntouched(const Korva& korva) {
  for (const std::string& page : korva.OutBuf) {
    EXPECT_EQ(page, "earlier");
  }
  EXPECT_EQ(korva.WarningText, "earlier");
}

TEST(CalculateStabilityFactors, FillsAllPages) {
  Korva korva = WithProject(TwoSideGobs());
  korva.Stored.ProjectDescription = "one\r\n\r\ntwo\r\n";
  ScriptedMessages messages;
  ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
  EXPECT_TRUE(korva.OutBuf[0].starts_with("KORVA-STROND module build: "));
  EXPECT_NE(korva.OutBuf[0].find("[PROJECT DESCRIPTION]\r\none\r\ntwo\r\n\r\n["), std::string::npos);
  const char* titles[] = {"[KORVA STABILITY FACTORS]", "[DATA ABOUT THE ACTIVE MINING ZONE (AMZ)]",
                          "[PILLAR PARAMETERS]", "[BARRIER PILLAR PARAMETERS]",
                          "[REMNANT PILLAR AND LEAVE PILLAR PARAMETERS]"};
  for (int page = 1; page <= 5; ++page) {
    EXPECT_TRUE(korva.OutBuf[page].starts_with(titles[page - 1])) << page;
  }
  EXPECT_TRUE(korva.WarningText.starts_with("B. Analysis"));
  EXPECT_EQ(korva.ProjectCalc, TwoSideGobs());
  EXPECT_EQ(korva.PlotXcutSpacing[5], 80);
  EXPECT_EQ(korva.PlotXcutSpacing[6], 0);
  EXPECT_EQ(korva.PlotXcutAngle, 90);

  korva.Stored.ProjectInput = DevelopmentPanel();
  ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
  EXPECT_EQ(korva.WarningText, "");  // nothing to warn of any more
}

TEST(CalculateStabilityFactors, EmptyProject) {
  Korva korva = WithProject(TwoSideGobs());
  korva.ProjectEmpty = true;
  ScriptedMessages messages;
  messages.Expect("Current file is empty");
  EXPECT_FALSE(CalculateStabilityFactors(korva, messages));
  ExpectPagesUntouched(korva);
  EXPECT_EQ(korva.ProjectCalc, Project{});  // not copied before the test
}

TEST(CalculateStabilityFactors, RefusalLeavesThePages) {
  Project refused = TwoSideGobs();
  refused.RowA = 1;
  Korva korva = WithProject(refused);
  ScriptedMessages messages;
  messages.Expect("Cannot take slab cut from first side barrier when Row A pillars are left");
  EXPECT_FALSE(CalculateStabilityFactors(korva, messages));
  ExpectPagesUntouched(korva);
  EXPECT_EQ(korva.ProjectCalc, refused);
}

TEST(CalculateStabilityFactors, RunTimeErrorLeavesThePages) {
  ScriptedMessages messages;
  Project angleless = TwoSideGobs();
  angleless.XcutAngle = 0;
  Korva korva = WithProject(angleless);
  EXPECT_NE(ExpectError(ErrorNumber::kDivisionByZero, [&] { CalculateStabilityFactors(korva, messages); })
                .find("PillarLength"),
            std::string::npos);
  ExpectPagesUntouched(korva);

  Project unknown = DevelopmentPanel();
  unknown.LoadingCondition = -1;
  korva = WithProject(unknown);
  ExpectError(ErrorNumber::kSubscript, [&] { CalculateStabilityFactors(korva, messages); });
  ExpectPagesUntouched(korva);

  // A factor that has no 32-bit form fails in the rules.
  Project light = DevelopmentPanel();
  light.UnitWeight = 1e-40;
  korva = WithProject(light);
  ExpectError(ErrorNumber::kOverflow, [&] { CalculateStabilityFactors(korva, messages); });
  ExpectPagesUntouched(korva);
}

TEST(CalculateStabilityFactors, ModelOfTheCall) {
  Project laminated = DevelopmentPanel();
  laminated.CalcMode = kLaminatedModel;
  Korva korva = WithProject(laminated);
  ScriptedMessages messages;
  EXPECT_TRUE(CalculateStabilityFactors(korva, messages, kTraditionalModel));
  EXPECT_NE(korva.OutBuf[0].find("KORVA Traditional Model"), std::string::npos);
  EXPECT_EQ(korva.Stored.ProjectInput.CalcMode, kLaminatedModel);
  EXPECT_THROW(CalculateStabilityFactors(korva, messages), RuntimeError);
}

// A decimal comma and grouped digits, as a desktop may set them for the whole process.
struct CommaPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(CalculateStabilityFactors, KnowsNoLocale) {
  Korva korva = WithProject(TwoSideGobs());
  ScriptedMessages messages;
  ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
  const OutputPages pages = korva.OutBuf;
  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
  EXPECT_TRUE(CalculateStabilityFactors(korva, messages));
  std::locale::global(before);
  EXPECT_EQ(korva.OutBuf, pages);
}

}  // namespace
}  // namespace korva
