#include <gtest/gtest.h>

#include "files/FieldCursor.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

class FieldCursorTest : public testing::Test {
 protected:
  FieldCursor Over(std::string_view text) { return {text, "a.kvl", notices_}; }

  std::vector<FileNotice> notices_;
};

TEST_F(FieldCursorTest, FieldsEndAtCommasAndLineEnds) {
  FieldCursor cursor = Over("  one , two\r\n\"a, b\" rest\r\"open, quote\n\"\" ,last");
  for (const char* field : {"one ", "two", "a, b", "rest", "open, quote", "", "last"}) {
    EXPECT_EQ(cursor.ReadText("a text"), field);
  }
  EXPECT_TRUE(cursor.AtEnd());
}

TEST_F(FieldCursorTest, NumbersAreReadWhole) {
  const std::pair<const char*, double> numbers[] = {{"  12.5\t \n", 12.5}, {"\" 7 \"\n", 7}, {" \r\n", 0}};
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(Over(text).ReadNumber("DepthCover"), value);
  }
  EXPECT_TRUE(notices_.empty());
  const std::pair<ErrorNumber, std::vector<const char*>> faults[] = {
      {ErrorNumber::kTypeMismatch,
       {"12 3\n", "1.2.3\n", "nan\n", "-Infinity\n", "1e\n", "-\n", "0x10\n", "12f"}},
      {ErrorNumber::kInputPastEnd, {"", "  ", "-", "+.", "12e", "-1.5E+"}}};  // cut off in front of a digit
  for (const auto& [number, texts] : faults) {
    for (const char* text : texts) {
      ExpectError(number, [&] { Over(text).ReadNumber("DepthCover"); });
    }
  }
}

TEST_F(FieldCursorTest, IntegersTakeFractionsToTheNearest) {
  const std::pair<const char*, int> integers[] = {
      {" 2.5 \n", 2}, {" 3.5 \n", 4}, {"32767.4\n", 32767}, {"-32768.5\n", -32768}};
  for (const auto& [text, value] : integers) {
    EXPECT_EQ(Over(text).ReadInteger("RowA"), value);
  }
  for (const char* text : {"32767.5\n", "-32769\n", "65536\n", "1e300\n"}) {
    ExpectError(ErrorNumber::kOverflow, [&] { Over(text).ReadInteger("RowA"); });
  }
}

TEST_F(FieldCursorTest, MessagesAreShortAndALongRestIsNotListedLineByLine) {
  const std::string text = "\x1b[31m" + std::string(100000, 'x') + "\n";
  const std::string detail = ExpectError(ErrorNumber::kTypeMismatch, [&] { Over(text).ReadNumber("RowD"); });
  EXPECT_LT(detail.size(), 150U);
  EXPECT_EQ(detail.find('\x1b'), std::string::npos);

  std::string rest;
  for (int i = 0; i < 1000; ++i) {
    rest += "x\n";
  }
  Over(rest).NoticeRest();
  ASSERT_EQ(notices_.size(), 21U);
  EXPECT_EQ(notices_[19].line, 20);
  EXPECT_EQ(notices_[20].line, 1000);
  EXPECT_TRUE(notices_[20].text.starts_with("980 more lines")) << notices_[20].text;
}

}  // namespace
}  // namespace korva
