#include <gtest/gtest.h>

#include "commands/AcceptForms.h"
#include "support/Panels.h"
#include "support/ScriptedPorts.h"

namespace korva {
namespace {

TEST(AcceptForms, ChangesAreDiscardedAfterAQuestionOnly) {
  Korva korva;
  korva.Preferences.DisplayHistoryWin = true;
  korva.Stored = test::Stored(test::DevelopmentPanel());
  ScriptedMessages port;
  ParameterTexts texts = TextsOfProject(korva.Stored.ProjectInput);
  EXPECT_TRUE(DiscardParameters(korva, port, texts)) << "nothing to discard";
  texts.Numbers[0] = "777";
  for (const auto answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
    const std::string before = korva.SessionHistory.Text;
    port.Expect("Changes in Input Data will be discarded. Proceed?", MessageButtons::kYesNo, answer);
    EXPECT_EQ(DiscardParameters(korva, port, texts), answer == MessageAnswer::kYes);
    const std::string told = korva.SessionHistory.Text.substr(before.size());
    EXPECT_EQ(told.find("Project Parameters Not Modified") != std::string::npos,
              answer == MessageAnswer::kYes);
  }
  korva.Preferences.Options.IssueWarningCancel = false;
  EXPECT_TRUE(DiscardParameters(korva, port, texts));
}

}  // namespace
}  // namespace korva
