#include <gtest/gtest.h>

#include "core/Korva.h"
#include "core/Messages.h"
#include "support/ScriptedMessages.h"

namespace korva {
namespace {

TEST(ShowMessage, LogsUnderItsTitleAndFallsBackToTheProgramTitle) {
  Korva korva;
  korva.Preferences.DisplayHistoryWin = true;
  ScriptedMessages port;
  port.Expect("Save?", MessageButtons::kYesNo, MessageAnswer::kNo).Expect("Too deep");
  EXPECT_EQ(ShowMessage(korva, port, {.text = "Save?", .buttons = MessageButtons::kYesNo}),
            MessageAnswer::kNo);
  ShowMessage(korva, port, {.text = "Too deep", .title = "Range Error"});
  EXPECT_EQ(korva.SessionHistory.Text, "1. Message: Save?\r\n2. Range Error: Too deep\r\n");
  EXPECT_EQ(port.Shown[0].title, "Korva Panel Review - Laminated Overburden");
  EXPECT_EQ(port.Shown[1].title, "Range Error");
}

}  // namespace
}  // namespace korva
