#include <gtest/gtest.h>

#include "core/Text.h"

namespace korva {
namespace {

TEST(WrapText, BreaksAtTheLastBlankWithinTheWidth) {
  EXPECT_EQ(WrapText("", 21), "\r\n");
  EXPECT_EQ(WrapText("The quick brown fox a", 21), "The quick brown fox a\r\n");
  // Only the first 21 characters are looked at, so a blank behind a full line is no place to break.
  EXPECT_EQ(WrapText("The quick brown fox a jumps", 21), "The quick brown fox\r\na jumps\r\n");
  EXPECT_EQ(WrapText("one two three four five six seven eight nine", 21),
            "one two three four\r\nfive six seven eight\r\nnine\r\n");
  EXPECT_EQ(WrapText("one two three four five", 20), "one two three four five");  // too narrow to wrap
  // Blanks in front of a break stay, and those behind it go.
  EXPECT_EQ(WrapText("The quick brown fox  jumps", 21), "The quick brown fox \r\njumps\r\n");
  EXPECT_EQ(WrapText("abc" + std::string(30, ' '), 21), "abc" + std::string(17, ' ') + "\r\n\r\n");
}

TEST(WrapText, AnOverlongWordLosesItsFront) {
  EXPECT_EQ(WrapText("abcdefghijklmnopqrstuvwxyz tail", 21), "...nopqrstuvwxyz tail\r\n");
  EXPECT_EQ(WrapText("head abcdefghijklmnopqrstuvwxyz", 21), "head\r\n...ijklmnopqrstuvwxyz\r\n");
}

TEST(WrapText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(WrapText("äöüäöüäöüäöüäöüäöüäöü", 21), "äöüäöüäöüäöüäöüäöüäöü\r\n");
  EXPECT_EQ(WrapText("€-€€€€€€€€€€€€€€€€€€€€€", 21), "...€€€€€€€€€€€€€€€€€€\r\n");
  EXPECT_EQ(WrapText("üüüüüüüüüüüüüüüüüüüü öö", 21), "üüüüüüüüüüüüüüüüüüüü\r\nöö\r\n");
}

TEST(Text, PadsReachTheWidthAndLeaveLongerTextsWhole) {
  EXPECT_EQ(PadLeft("Größe", 7), "  Größe");
  EXPECT_EQ(PadRight("1.25", 7), "1.25   ");
  EXPECT_EQ(DotPad("Größe", 7), "Größe..");
  for (const auto pad : {PadLeft, PadRight, DotPad}) {
    EXPECT_EQ(pad("depth", 5) + pad("depth", 3) + pad("", 0), "depthdepth");
  }
}

TEST(Text, AByteOfNoCharacterCountsAsOne) {
  EXPECT_EQ(CharacterCount("a\xE4o"), 3U);
  EXPECT_EQ(CharacterCount("\xE2\x82"), 2U);
  EXPECT_EQ(CharacterCount("€\xF0\x9F\x98\x80"), 2U);
  EXPECT_EQ(BytesOfCharacters("a€b", 2), 4U);
  EXPECT_EQ(BytesOfCharacters("a€b", 9), 5U);
}

TEST(Text, TrimsBlanksOnlyAndTakesLinesByAnyLineEnd) {
  EXPECT_EQ(std::string(Trimmed("  a b ")) + "|" + std::string(Trimmed("  ")) + "|", "a b||");
  EXPECT_EQ(Trimmed("\ta\t"), "\ta\t");
  std::string lines;
  for (SplitLine split = {{}, "a\r\nb\rc\n\nd", true}; split.ended;) {
    split = TakeLine(split.rest);
    lines.append("[").append(split.line).append(split.ended ? "]" : ">");
  }
  EXPECT_EQ(lines, "[a][b][c][][d>");
}

}  // namespace
}  // namespace korva
