#include <gtest/gtest.h>

#include "core/Text.h"

namespace korva {
namespace {

std::string Repeated(std::string_view text, int times) {
  std::string result;
  for (; times > 0; --times) {
    result += text;
  }
  return result;
}

TEST(WrapText, BreaksAtTheLastBlankWithinTheWidth) {
  EXPECT_EQ(WrapText("The quick brown fox jumps", 21), "The quick brown fox\r\njumps\r\n");
  EXPECT_EQ(WrapText("The quick brown fox a", 21), "The quick brown fox a\r\n");
  // Only the first 21 characters are looked at, so a blank behind a full line is no place to break.
  EXPECT_EQ(WrapText("The quick brown fox a jumps", 21), "The quick brown fox\r\na jumps\r\n");
  EXPECT_EQ(WrapText("one two three four five six seven eight nine ten", 21),
            "one two three four\r\nfive six seven eight\r\nnine ten\r\n");
}

TEST(WrapText, EndsWithALineEndUnlessTheWidthIsTooSmallToWrap) {
  EXPECT_EQ(WrapText("", 21), "\r\n");
  EXPECT_EQ(WrapText("one two three four five", 20), "one two three four five");
  EXPECT_EQ(WrapText("one two three four five", 0), "one two three four five");
}

TEST(WrapText, BlanksInFrontOfABreakStayAndThoseBehindItGo) {
  EXPECT_EQ(WrapText("The quick brown fox  jumps", 21), "The quick brown fox \r\njumps\r\n");
  EXPECT_EQ(WrapText("The quick brown foxes   jump", 22), "The quick brown foxes\r\njump\r\n");
  EXPECT_EQ(WrapText("abc" + std::string(30, ' '), 21), "abc" + std::string(17, ' ') + "\r\n\r\n");
}

TEST(WrapText, AnOverlongWordLosesItsFront) {
  EXPECT_EQ(WrapText("abcdefghijklmnopqrstuvwxyz", 21), "...ijklmnopqrstuvwxyz\r\n");
  EXPECT_EQ(WrapText("abcdefghijklmnopqrstuvwxyz tail", 21), "...nopqrstuvwxyz tail\r\n");
  EXPECT_EQ(WrapText("head abcdefghijklmnopqrstuvwxyz", 21), "head\r\n...ijklmnopqrstuvwxyz\r\n");
}

TEST(WrapText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(WrapText(Repeated("ä", 21), 21), Repeated("ä", 21) + "\r\n");
  EXPECT_EQ(WrapText(Repeated("€", 22), 21), "..." + Repeated("€", 18) + "\r\n");
  EXPECT_EQ(WrapText(Repeated("ü", 20) + " öö", 21), Repeated("ü", 20) + "\r\nöö\r\n");
}

TEST(Text, PadsReachTheWidthAndLeaveLongerTextsWhole) {
  EXPECT_EQ(PadLeft("1.25", 7), "   1.25");
  EXPECT_EQ(PadRight("1.25", 7), "1.25   ");
  EXPECT_EQ(DotPad("Depth", 8), "Depth...");
  EXPECT_EQ(PadLeft("Größe", 7), "  Größe");
  EXPECT_EQ(DotPad("Größe", 7), "Größe..");
  for (const auto pad : {PadLeft, PadRight, DotPad}) {
    EXPECT_EQ(pad("depth", 5), "depth");
    EXPECT_EQ(pad("depth", 3), "depth");
    EXPECT_EQ(pad("", 0), "");
  }
}

TEST(Text, AByteOfNoCharacterCountsAsOne) {
  EXPECT_EQ(CharacterCount("a\xE4o"), 3U);
  EXPECT_EQ(CharacterCount("\xE2\x82"), 2U);
  EXPECT_EQ(CharacterCount("€\xF0\x9F\x98\x80"), 2U);
  EXPECT_EQ(BytesOfCharacters("a€b", 2), 4U);
  EXPECT_EQ(BytesOfCharacters("a€b", 9), 5U);
}

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(Trimmed("  a b "), "a b");
  EXPECT_EQ(Trimmed("   "), "");
  EXPECT_EQ(Trimmed("\ta\t"), "\ta\t");
}

TEST(Text, TakesLinesByAnyLineEnd) {
  std::string_view rest = "a\r\nb\rc\n\nd";
  std::string lines;
  while (!rest.empty()) {
    const SplitLine split = TakeLine(rest);
    lines.append("[").append(split.line).append(split.ended ? "]" : ">");
    rest = split.rest;
  }
  EXPECT_EQ(lines, "[a][b][c][][d>");
}

}  // namespace
}  // namespace korva
