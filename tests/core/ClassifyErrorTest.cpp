#include <gtest/gtest.h>

#include "core/ClassifyError.h"
#include "core/Korva.h"
#include "support/ScriptedMessages.h"

namespace korva {
namespace {

class ClassifyErrorTest : public testing::Test {
 protected:
  ClassifyErrorTest() {
    korva_.Preferences.DisplayHistoryWin = true;
    SetMessageTitles(korva_, TitleSlot::kParameters);
  }

  ErrorAction Classify(std::int64_t number, bool show = true) {
    return ClassifyError(korva_, port_, RuntimeError(static_cast<ErrorNumber>(number), "a.kvl, line 3"),
                         show);
  }

  Korva korva_;
  ScriptedMessages port_;
};

TEST_F(ClassifyErrorTest, DeviceFileAndPrinterErrorsOfferRetryAndOthersEndTheCommand) {
  for (const int number : {24, 25, 27, 53, 57, 61, 62, 70, 71, 72, 482, 483, 484}) {
    port_.Expect("Error occurred: ", MessageButtons::kRetryCancel, MessageAnswer::kRetry)
        .Expect("Error occurred: ", MessageButtons::kRetryCancel, MessageAnswer::kCancel);
    EXPECT_EQ(Classify(number), ErrorAction::kRetry) << number;
    EXPECT_EQ(Classify(number), ErrorAction::kContinue) << number;
    EXPECT_EQ(port_.Shown.back().text.find("Procedure Terminated"), std::string::npos) << number;
  }
  for (const int number : {5, 6, 7, 9, 11, 13, 52, 55, 64, 68, 75, 76, 999}) {
    port_.Expect("Error occurred: ");
    EXPECT_EQ(Classify(number), ErrorAction::kEndCommand) << number;
    const std::string end = "(" + std::to_string(number) + "). Procedure Terminated";
    EXPECT_NE(port_.Shown.back().text.find(end), std::string::npos);
    EXPECT_EQ(port_.Shown.back().topic, "error-" + std::to_string(number));
  }
}

TEST_F(ClassifyErrorTest, ShownErrorsAreLoggedAndNamed) {
  EXPECT_EQ(Classify(62, false), ErrorAction::kContinue);
  EXPECT_EQ(Classify(11, false), ErrorAction::kEndCommand);
  EXPECT_EQ(Classify(32755), ErrorAction::kCancelled);
  EXPECT_EQ(Classify(0x80040E14), ErrorAction::kDataSource);
  port_.Expect("Error occurred: Input past end of file (62)", MessageButtons::kRetryCancel);
  Classify(62);
  EXPECT_EQ(port_.Shown[0].title + "|" + port_.Shown[0].detail, "Project Parameters: Error|a.kvl, line 3");
  const std::string& log = korva_.SessionHistory.Text;
  EXPECT_TRUE(log.starts_with("1. Cancel was selected\r\n2. Error 2147749396:")) << log;
  EXPECT_NE(log.find("\r\n3. Error 62:Input past end of file\r\n4. Project Parameters: Error: "), log.npos)
      << log;
}

}  // namespace
}  // namespace korva
