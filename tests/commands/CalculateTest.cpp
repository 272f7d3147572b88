#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

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
  std::fill(korva.OutBuf.begin(), korva.OutBuf.end(), "earlier");
  korva.WarningText = "earlier";
  return korva;
}

TEST(CalculateStabilityFactors, FillsAllPages) {
  Korva korva = WithProject(TwoSideGobs());
  korva.Stored.ProjectDescription = "one\r\n\r\ntwo\r\n";
  ScriptedMessages messages;
  ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
  EXPECT_NE(korva.OutBuf[0].find("[PROJECT DESCRIPTION]\r\none\r\ntwo\r\n\r\n["), std::string::npos);
  EXPECT_EQ(korva.ProjectCalc, TwoSideGobs());
  EXPECT_EQ(korva.PlotXcutSpacing[6], 0);

  korva.Stored.ProjectInput = DevelopmentPanel();
  ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
  EXPECT_EQ(korva.WarningText, "");  // nothing to warn of any more
}

TEST(CalculateStabilityFactors, FailureLeavesThePages) {
  // What an error names, or the message of a failure that is none.
  for (const auto& [put, number, message] :
       std::vector<std::tuple<void (*)(Project&), ErrorNumber, const char*>>{
           {nullptr, {}, "Current file is empty"},
           {[](Project& p) { p.EntryHeight = 0; }, {}, "Invalid entry height"},
           {[](Project& p) { p.XcutAngle = 0; }, ErrorNumber::kDivisionByZero, "PillarLength"},
           {[](Project& p) { p.LoadingCondition = -1; }, ErrorNumber::kSubscript, "condition"},
           // A factor that has no 32-bit form fails in the rules.
           {[](Project& p) { p.UnitWeight = 1e-40; }, ErrorNumber::kOverflow, "factor"},
       }) {
    Project project = DevelopmentPanel();
    if (put) {
      put(project);
    }
    Korva korva = WithProject(project);
    korva.ProjectEmpty = !put;
    ScriptedMessages messages;
    if (number == ErrorNumber{}) {
      messages.Expect(message);
      EXPECT_FALSE(CalculateStabilityFactors(korva, messages));
      EXPECT_EQ(korva.ProjectCalc, put ? project : Project{});  // copied behind the test for an empty one
    } else {
      const std::string detail = ExpectError(number, [&] { CalculateStabilityFactors(korva, messages); });
      EXPECT_NE(detail.find(message), std::string::npos) << detail;
    }
    EXPECT_EQ(korva.OutBuf, WithProject(project).OutBuf);
    EXPECT_EQ(korva.WarningText, "earlier");
  }
}

}  // namespace
}  // namespace korva
