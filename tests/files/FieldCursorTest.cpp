#include <gtest/gtest.h>

#include "files/FieldCursor.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

struct FieldCursorTest : testing::Test {
  FieldCursor Over(std::string_view text) { return {text, "a.kvl", Notices}; }
  std::vector<FileNotice> Notices;
};

TEST_F(FieldCursorTest, FieldsEndAtCommasAndLineEnds) {
  FieldCursor cursor = Over("  one , two\r\n\"a, b\" rest\r\"open, quote\n\"\" ,last");
  for (const char* field : {"one ", "two", "a, b", "rest", "open, quote", "", "last"}) {
    EXPECT_EQ(cursor.ReadText("a text"), field);
  }
  EXPECT_TRUE(cursor.AtEnd());
}

TEST_F(FieldCursorTest, NumbersAreReadWhole) {
  EXPECT_EQ(Over("  12.5\t \n").ReadNumber("DepthCover"), 12.5);
  EXPECT_EQ(Over("\" 7 \"\n").ReadNumber("DepthCover"), 7);
  EXPECT_EQ(Over(" \r\n").ReadNumber("DepthCover"), 0);
  EXPECT_TRUE(Notices.empty());
  for (const char* text : {"12 3\n", "1.2.3\n", "nan\n", "-Infinity\n", "1e\n", "-\n", "0x10\n", "12f"}) {
    ExpectError(ErrorNumber::kTypeMismatch, [&] { Over(text).ReadNumber("DepthCover"); });
  }
  for (const char* text : {"", "  ", "-", "+.", "12e", "-1.5E+"}) {  // cut off in front of a digit
    ExpectError(ErrorNumber::kInputPastEnd, [&] { Over(text).ReadNumber("DepthCover"); });
  }
}

TEST_F(FieldCursorTest, IntegersTakeFractionsToTheNearest) {
  EXPECT_EQ(Over(" 2.5 \n").ReadInteger("RowA"), 2);
  EXPECT_EQ(Over(" 3.5 \n").ReadInteger("RowA"), 4);
  EXPECT_EQ(Over("-32768.5\n").ReadInteger("RowA"), -32768);
  EXPECT_EQ(Over("32767\n").ReadInteger("RowA"), 32767);
  for (const char* text : {"32767.5\n", "-32769\n", "1e300\n"}) {
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
  ASSERT_EQ(Notices.size(), 21U);
  EXPECT_EQ(Notices[19].line, 20);
  EXPECT_EQ(Notices[20].line, 1000);
  EXPECT_TRUE(Notices[20].text.starts_with("980 more lines")) << Notices[20].text;
}

}  // namespace
}  // namespace korva
