#include <gtest/gtest.h>

#include "core/Description.h"

namespace korva {
namespace {

// The description with "|" in place of its line ends, and the number of its lines.
std::string Normalized(std::string text) {
  StoredProject project;
  project.ProjectDescription = std::move(text);
  NormalizeDescription(project);
  text = project.ProjectDescription + " " + std::to_string(project.ProjectDescriptionLines);
  for (auto at = text.find("\r\n"); at != text.npos; at = text.find("\r\n")) {
    text.replace(at, 2, "|");
  }
  return text;
}

std::string X(std::size_t count) {
  return std::string(count, 'x');
}

TEST(NormalizeDescription, DropsBlankLinesAndTheLastLineEnd) {
  EXPECT_EQ(Normalized(""), " 2");
  EXPECT_EQ(Normalized("\r\n one \r\n\r\n   \r\ntwo\rthree\n"), " one |two|three 5");
}

TEST(NormalizeDescription, BreaksBehindABlankFrom40To60OrCutsAt60) {
  EXPECT_EQ(Normalized(X(60)), X(60) + " 3");
  EXPECT_EQ(Normalized(X(130)), X(60) + "|" + X(60) + "|" + X(10) + " 6");
  EXPECT_EQ(Normalized(X(38) + " " + X(31)), X(38) + " " + X(21) + "|" + X(10) + " 5");
  EXPECT_EQ(Normalized(X(39) + " " + X(30)), X(39) + " |" + X(30) + " 5");
  EXPECT_EQ(Normalized(X(44) + " aa " + X(30)), X(44) + " aa |" + X(30) + " 5");
  EXPECT_EQ(Normalized(X(58) + " " + X(10)), X(58) + " |" + X(10) + " 5");
  EXPECT_EQ(Normalized(X(59) + " " + X(10)), X(59) + " |" + X(10) + " 5");
  EXPECT_EQ(Normalized(X(60) + " " + X(10)), X(60) + "| " + X(10) + " 5");  // this blank comes too late
  // The shorter rest of a line may be split once more.
  EXPECT_EQ(Normalized(X(101) + " " + X(8)), X(60) + "|" + X(41) + " |" + X(8) + " 6");
  EXPECT_EQ(Normalized(X(98) + " " + X(8)), X(60) + "|" + X(38) + " " + X(8) + " 5");
}

TEST(NormalizeDescription, JudgesALineByItsTrimmedLengthInCharacters) {
  EXPECT_EQ(Normalized("     " + X(60) + "   "), "     " + X(60) + "    3");
  EXPECT_EQ(Normalized("  " + X(61)), "  " + X(58) + "|" + X(3) + " 5");
  EXPECT_EQ(Normalized("ä" + X(59)), "ä" + X(59) + " 3");
  EXPECT_EQ(Normalized("ä" + X(59) + "ö"), "ä" + X(59) + "|ö 5");
}

}  // namespace
}  // namespace korva
