#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "core/Korva.h"
#include "core/Messages.h"
#include "support/ExpectError.h"
#include "support/ScriptedMessages.h"

namespace korva {
namespace {

TEST(ShowMessage, LogsUnderItsTitleAndFallsBackToTheProgramTitle) {
  Korva korva;
  korva.Preferences.DisplayHistoryWin = 1;
  ScriptedMessages port;
  port.Expect("Save?", MessageButtons::kYesNo, MessageAnswer::kNo).Expect("Too deep");
  EXPECT_EQ(ShowMessage(korva, port, {.text = "Save?", .buttons = MessageButtons::kYesNo, .title = {}}),
            MessageAnswer::kNo);
  ShowMessage(korva, port, {.text = "Too deep", .title = "Range Error"});
  EXPECT_EQ(korva.SessionHistory.Text, "1. Message: Save?\r\n2. Range Error: Too deep\r\n");
  EXPECT_EQ(port.Shown[0].title, "Korva Panel Review - Laminated Overburden");
  EXPECT_EQ(port.Shown[1].title, "Range Error");
}

TEST(MessageTitles, CarryThePrefixOfTheirSlot) {
  const MessageTitles titles = MessageTitlesOf(2);
  EXPECT_EQ(titles.TitleMessage, "Message");
  EXPECT_EQ(titles.TitleRangeError, "Project Parameters: Range Error");
  EXPECT_EQ(titles.TitleRangeWarning, "Project Parameters: Range Warning");
  EXPECT_EQ(titles.TitleInvalidCharacter, "Project Parameters: Invalid Character");
  EXPECT_EQ(titles.TitleError, "Project Parameters: Error");
  EXPECT_EQ(titles.TitleLogicError, "Project Parameters: Logic Error");
  EXPECT_EQ(MessageTitlesOf(1).TitleError, "Project Description: Error");
  EXPECT_EQ(MessageTitlesOf(7).TitleError, "Program Options: Error");
  EXPECT_EQ(MessageTitlesOf(8).TitleError, "Settings: Error");
  for (const int slot : {3, 9, 10, 12, 13}) {
    EXPECT_EQ(MessageTitlesOf(slot).TitleError, "Error") << slot;
  }
  ExpectError(ErrorNumber::kSubscript, [] { MessageTitlesOf(0); });
  ExpectError(ErrorNumber::kSubscript, [] { MessageTitlesOf(14); });
}

TEST(ScriptedMessages, FailTheTestThatDoesNotFollowTheScript) {
  EXPECT_NONFATAL_FAILURE(ScriptedMessages().Show({.text = "Surprise", .title = {}}), "nobody expected");
  EXPECT_NONFATAL_FAILURE(ScriptedMessages().Expect("Save?"), "never came");
  EXPECT_NONFATAL_FAILURE(ScriptedMessages().Expect("Save?").Show({.text = "Delete?", .title = {}}),
                          "instead of");
}

}  // namespace
}  // namespace korva
