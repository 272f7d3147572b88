#include <gtest/gtest.h>

#include "files/FieldCursor.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

class FieldCursorTest : public testing::Test {
 protected:
  FieldCursor Over(std::string_view text) { return {text, "a.kvl", notices_}; }

  double Number(std::string_view text) { return Over(text).ReadNumber("DepthCover"); }
  int Integer(std::string_view text) { return Over(text).ReadInteger("RowA"); }

  std::vector<FileNotice> notices_;
};

TEST_F(FieldCursorTest, FieldsEndAtCommasAndLineEnds) {
  FieldCursor cursor = Over("  one , two\r\n\"a, b\" rest\r\"open, quote\nlast");
  for (const char* field : {"one ", "two", "a, b", "rest", "open, quote", "last"}) {
    EXPECT_EQ(cursor.ReadText("a text"), field);
  }
  EXPECT_TRUE(cursor.AtEnd());
  EXPECT_EQ(ExpectError(ErrorNumber::kInputPastEnd, [&] { cursor.ReadText("a text"); }),
            "a.kvl, line 4: expected a text, found the end of the file");
}

TEST_F(FieldCursorTest, ACommaBehindAClosingQuoteEndsItsField) {
  FieldCursor cursor = Over("\"one\" ,two\n\"\"\nthree");
  for (const char* field : {"one", "two", "", "three"}) {
    EXPECT_EQ(cursor.ReadText("a text"), field);
  }
}

TEST_F(FieldCursorTest, NumbersAreReadWhole) {
  EXPECT_EQ(Number("  12.5\t \n"), 12.5);
  EXPECT_EQ(Number("\" 7 \"\n"), 7);
  EXPECT_EQ(Number("\n"), 0);
  EXPECT_EQ(Number("   \r\n"), 0);
  EXPECT_EQ(Number("1e-999\n"), 0);
  EXPECT_TRUE(notices_.empty());
  for (const char* text :
       {"12 3\n", "1.2.3\n", "inf\n", "nan\n", "-Infinity\n", "1e\n", "-\n", "12ft\n", "0x10\n"}) {
    ExpectError(ErrorNumber::kTypeMismatch, [&] { Number(text); });
  }
  ExpectError(ErrorNumber::kOverflow, [&] { Number("-1e999\n"); });
  for (const char* text : {"", "  ", "-", "+.", "12e", "-1.5E+"}) {  // cut off in front of a digit
    ExpectError(ErrorNumber::kInputPastEnd, [&] { Number(text); });
  }
  ExpectError(ErrorNumber::kTypeMismatch, [&] { Number("12f"); });
  EXPECT_EQ(Over("3e38\n").ReadSingle("ArchFactor"), 3e38F);
  ExpectError(ErrorNumber::kOverflow, [&] { Over("4e38\n").ReadSingle("ArchFactor"); });
}

TEST_F(FieldCursorTest, IntegersTakeFractionsToTheNearest) {
  EXPECT_EQ(Integer(" 2.5 \n"), 2);
  EXPECT_EQ(Integer(" 3.5 \n"), 4);
  EXPECT_EQ(Integer("-0.5\n"), 0);
  EXPECT_EQ(Integer("32767.4\n"), 32767);
  EXPECT_EQ(Integer("-32768.5\n"), -32768);
  for (const char* text : {"32767.5\n", "-32769\n", "65536\n", "1e300\n"}) {
    ExpectError(ErrorNumber::kOverflow, [&] { Integer(text); });
  }
}

TEST_F(FieldCursorTest, NoticesCommasAndAMissingLineEndWithTheirLine) {
  FieldCursor cursor = Over("1\n2,5\n3");
  for (int i = 0; i < 4; ++i) {
    cursor.ReadNumber("DepthCover");
  }
  ASSERT_EQ(notices_.size(), 2U);
  EXPECT_EQ(notices_[0].line, 2);
  EXPECT_NE(notices_[0].text.find("comma"), std::string::npos);
  EXPECT_EQ(notices_[1].line, 3);
  EXPECT_NE(notices_[1].text.find("DepthCover has no line end"), std::string::npos);
}

TEST_F(FieldCursorTest, MessagesShowNoControlCharactersAndNoWallsOfText) {
  const std::string text = "\x1b[31m" + std::string(100000, 'x') + "\n";
  const std::string detail = ExpectError(ErrorNumber::kTypeMismatch, [&] { Number(text); });
  EXPECT_LT(detail.size(), 150U);
  EXPECT_EQ(detail.find('\x1b'), std::string::npos);
}

TEST_F(FieldCursorTest, ALongRestIsNotListedLineByLine) {
  std::string text = "1\n";
  for (int i = 0; i < 100000; ++i) {
    text += "x\n";
  }
  FieldCursor cursor = Over(text);
  cursor.ReadNumber("RowD");
  cursor.NoticeRest();
  EXPECT_TRUE(cursor.AtEnd());
  ASSERT_EQ(notices_.size(), 21U);
  EXPECT_EQ(notices_[19].line, 21);
  EXPECT_EQ(notices_[20].line, 100001);
  EXPECT_TRUE(notices_[20].text.starts_with("99980 more lines")) << notices_[20].text;
}

}  // namespace
}  // namespace korva
