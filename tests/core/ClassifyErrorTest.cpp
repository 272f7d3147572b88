#include <gtest/gtest.h>

#include "core/ClassifyError.h"
#include "core/Korva.h"
#include "support/ScriptedMessages.h"

namespace korva {
namespace {

class ClassifyErrorTest : public testing::Test {
 protected:
  ClassifyErrorTest() {
    korva_.Preferences.DisplayHistoryWin = 1;
    korva_.Titles = MessageTitlesOf(2);
  }

  ErrorAction Classify(ScriptedMessages& port, int number, bool show = true) {
    return ClassifyError(korva_, port, RuntimeError(static_cast<ErrorNumber>(number), "a.kvl, line 3"), show);
  }

  Korva korva_;
};

TEST_F(ClassifyErrorTest, DeviceFileAndPrinterErrorsOfferRetry) {
  for (const int number : {24, 25, 27, 53, 57, 61, 62, 70, 71, 72, 482, 483, 484}) {
    ScriptedMessages port;
    port.Expect("Error occurred: ", MessageButtons::kRetryCancel, MessageAnswer::kRetry)
        .Expect("Error occurred: ", MessageButtons::kRetryCancel, MessageAnswer::kCancel);
    EXPECT_EQ(Classify(port, number), ErrorAction::kRetry) << number;
    EXPECT_EQ(Classify(port, number), ErrorAction::kContinue) << number;
    EXPECT_EQ(port.Shown.back().text.find("Procedure Terminated"), std::string::npos) << number;
    EXPECT_EQ(Classify(port, number, false), ErrorAction::kContinue) << number;
  }
}

TEST_F(ClassifyErrorTest, AllOthersEndTheCommand) {
  for (const int number : {5, 6, 7, 9, 11, 13, 52, 55, 64, 68, 75, 76, 999}) {
    ScriptedMessages port;
    port.Expect("Error occurred: ");
    EXPECT_EQ(Classify(port, number), ErrorAction::kEndCommand) << number;
    EXPECT_NE(port.Shown.back().text.find("(" + std::to_string(number) + "). Procedure Terminated"),
              std::string::npos);
    EXPECT_EQ(Classify(port, number, false), ErrorAction::kEndCommand) << number;
  }
}

TEST_F(ClassifyErrorTest, NamesErrorAndCauseUnderTheErrorTitle) {
  ScriptedMessages port;
  port.Expect("Error occurred: Input past end of file (62)", MessageButtons::kRetryCancel,
              MessageAnswer::kCancel);
  Classify(port, 62);
  EXPECT_EQ(port.Shown[0].title, "Project Parameters: Error");
  EXPECT_NE(port.Shown[0].text.find("a.kvl, line 3"), std::string::npos);
  EXPECT_TRUE(korva_.SessionHistory.Text.starts_with(
      "1. Error 62:Input past end of file\r\n2. Project Parameters: Error: "))
      << korva_.SessionHistory.Text;
}

TEST_F(ClassifyErrorTest, CancelledDialogsAndDataSourcesAreOnlyLogged) {
  ScriptedMessages port;
  EXPECT_EQ(Classify(port, 32755), ErrorAction::kCancelled);
  EXPECT_EQ(korva_.SessionHistory.Text, "1. Cancel was selected\r\n");
  EXPECT_EQ(ClassifyError(korva_, port, RuntimeError(ErrorNumber::kDataSource), true),
            ErrorAction::kDataSource);
  EXPECT_TRUE(korva_.SessionHistory.Text.find("2. Error 2147749396:") != std::string::npos)
      << korva_.SessionHistory.Text;
}

TEST_F(ClassifyErrorTest, UnshownErrorsAreNotLogged) {
  ScriptedMessages port;
  Classify(port, 62, false);
  Classify(port, 11, false);
  Classify(port, 32755, false);
  EXPECT_EQ(korva_.SessionHistory.Text, "");
}

}  // namespace
}  // namespace korva
