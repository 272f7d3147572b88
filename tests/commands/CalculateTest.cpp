#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "commands/Calculate.h"
#include "support/ExpectError.h"
#include "support/Panels.h"
#include "support/ScriptedMessages.h"
#include "support/TempFolder.h"

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
           {[](Project& p) { p.LoadingCondition = PanelLoading{-1}; }, ErrorNumber::kSubscript, "condition"},
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

// A project in the mode `calcMode`, whose laminated runs have a folder of their own.
Korva Laminated(OverburdenModel calcMode, const TempFolder& folder) {
  Korva korva = WithProject(TwoSideGobs());
  korva.Stored.ProjectInput.CalcMode = calcMode;
  korva.ProjectCalc = korva.Stored.ProjectInput;
  korva.Places.TempRoot = folder / "";
  return korva;
}

constexpr const char* kTakesMinutes =
    "The laminated model will invoke Strondel in the background and may take a few minutes to run.";

TEST(CalculateStabilityFactors, TreatsBothLaminatedModesAlike) {
  const TempFolder folder;
  for (const OverburdenModel mode : {kLaminatedModel, kComparedModels}) {
    Korva korva = Laminated(mode, folder);
    ScriptedMessages messages;
    messages.Expect(kTakesMinutes);
    ASSERT_TRUE(CalculateStabilityFactors(korva, messages));
    EXPECT_NE(korva.OutBuf[0].find("[PROJECT TITLE]"), std::string::npos);
    EXPECT_EQ(korva.OutBuf[1].find("[KORVA-STROND STABILITY FACTORS]"), 0);
    EXPECT_EQ(korva.OutBuf[4].find("[REMNANT"), 0);
    EXPECT_EQ(korva.OutBuf[5], "");
    EXPECT_EQ(korva.WarningText, "") << "an earlier run's warnings";
    EXPECT_EQ(korva.StrondResultFile, folder / "Untitled_KVSD.CSV");
    EXPECT_GT(korva.Strond.StrondSF[1], 0.3);
    EXPECT_EQ(korva.LastRun->Model, kLaminatedModel);
    for (const FactorLine& line : korva.LastRun->Factors) {
      EXPECT_NE(korva.OutBuf[1].find("..  " + line.Zone), std::string::npos);
    }
  }
}

TEST(CalculateFromForm, AsksBeforeALaminatedRun) {
  const TempFolder folder;
  Korva korva = Laminated(kComparedModels, folder);
  const OutputPages before = korva.OutBuf;
  ScriptedMessages messages;
  messages.Expect(std::string(kTakesMinutes) + " Continue?", MessageButtons::kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(CalculateFromForm(korva, messages));
  EXPECT_EQ(korva.OutBuf, before);
  EXPECT_EQ(korva.WarningText, "earlier");

  messages.Expect(std::string(kTakesMinutes) + " Continue?", MessageButtons::kYesNo, MessageAnswer::kYes);
  messages.Expect(
      "Results from the Traditional Overburden KORVA will be included in the results without any "
      "warnings. Results should be used with caution.");
  ASSERT_TRUE(CalculateFromForm(korva, messages));
  EXPECT_NE(korva.OutBuf[1].find("KORVA-TRADITIONAL"), std::string::npos);
  EXPECT_EQ(korva.WarningText, "");
}

TEST(CalculateFromForm, AFailedLaminatedRunLeavesThePages) {
  const TempFolder folder;
  Korva korva = Laminated(kLaminatedModel, folder);
  korva.ProjectCalc.EntryHeight = 1e6;  // beyond what the solver takes
  const OutputPages before = korva.OutBuf;
  ScriptedMessages messages;
  messages.Expect(std::string(kTakesMinutes) + " Continue?", MessageButtons::kYesNo, MessageAnswer::kYes);
  const std::string detail =
      ExpectError(ErrorNumber::kInvalidCall, [&] { CalculateFromForm(korva, messages); });
  EXPECT_NE(detail.find("entry height"), std::string::npos) << detail;
  EXPECT_EQ(korva.OutBuf, before);
  EXPECT_EQ(korva.WarningText, "earlier");

  korva.ProjectCalc.EntryHeight = 0;  // the check comes before the question
  messages.Expect("Invalid entry height");
  EXPECT_FALSE(CalculateFromForm(korva, messages));
}

}  // namespace
}  // namespace korva
