#include <gtest/gtest.h>

#include "core/Description.h"

namespace korva {
namespace {

struct Normalized {
  std::string text;
  int lines;
  bool operator==(const Normalized&) const = default;
};

void PrintTo(const Normalized& normalized, std::ostream* out) {
  *out << normalized.lines << " lines: " << testing::PrintToString(normalized.text);
}

Normalized Normalize(std::string description) {
  StoredProject project;
  project.ProjectDescription = std::move(description);
  NormalizeDescription(project);
  return {project.ProjectDescription, project.ProjectDescriptionLines};
}

std::string X(int count) {
  return std::string(static_cast<std::size_t>(count), 'x');
}

TEST(NormalizeDescription, DropsBlankLinesAndTheLastLineEnd) {
  EXPECT_EQ(Normalize(""), (Normalized{"", 2}));
  EXPECT_EQ(Normalize("one"), (Normalized{"one", 3}));
  EXPECT_EQ(Normalize("\r\n one \r\n\r\n   \r\ntwo\r\n"), (Normalized{" one \r\ntwo", 4}));
  EXPECT_EQ(Normalize("one\rtwo\nthree\r\n"), (Normalized{"one\r\ntwo\r\nthree", 5}));
  EXPECT_EQ(Normalize("\r\n  \r\n"), (Normalized{"", 2}));
}

TEST(NormalizeDescription, CutsAWordThatIsTooLong) {
  EXPECT_EQ(Normalize(X(130)), (Normalized{X(60) + "\r\n" + X(60) + "\r\n" + X(10), 6}));
  EXPECT_EQ(Normalize(X(60)), (Normalized{X(60), 3}));
  EXPECT_EQ(Normalize(X(61)), (Normalized{X(60) + "\r\nx", 5}));
  EXPECT_EQ(Normalize(X(29) + " " + X(40)), (Normalized{X(29) + " " + X(30) + "\r\n" + X(10), 5}));
  EXPECT_EQ(Normalize(X(38) + " " + X(31)), (Normalized{X(38) + " " + X(21) + "\r\n" + X(10), 5}));
}

TEST(NormalizeDescription, BreaksBehindABlankFrom40To60) {
  EXPECT_EQ(Normalize(X(39) + " " + X(30)), (Normalized{X(39) + " \r\n" + X(30), 5}));
  EXPECT_EQ(Normalize(X(44) + " aa " + X(30)), (Normalized{X(44) + " aa \r\n" + X(30), 5}));
  EXPECT_EQ(Normalize(X(58) + " " + X(10)), (Normalized{X(58) + " \r\n" + X(10), 5}));
  EXPECT_EQ(Normalize(X(59) + " " + X(10)), (Normalized{X(59) + " \r\n" + X(10), 5}));
  // A blank right behind the sixtieth character comes too late.
  EXPECT_EQ(Normalize(X(60) + " " + X(10)), (Normalized{X(60) + "\r\n " + X(10), 5}));
}

TEST(NormalizeDescription, SplitsAShortRestOnceMore) {
  EXPECT_EQ(Normalize(X(60) + X(41) + " " + X(8)), (Normalized{X(60) + "\r\n" + X(41) + " \r\n" + X(8), 6}));
  EXPECT_EQ(Normalize(X(60) + X(38) + " " + X(8)), (Normalized{X(60) + "\r\n" + X(38) + " " + X(8), 5}));
}

TEST(NormalizeDescription, JudgesALineByItsTrimmedLengthAndKeepsItsBlanks) {
  EXPECT_EQ(Normalize("     " + X(60) + "   "), (Normalized{"     " + X(60) + "   ", 3}));
  EXPECT_EQ(Normalize("  " + X(61)), (Normalized{"  " + X(58) + "\r\n" + X(3), 5}));
}

TEST(NormalizeDescription, CountsCharactersAndNotBytes) {
  std::string umlauts;
  for (int i = 0; i < 60; ++i) {
    umlauts += "ä";
  }
  EXPECT_EQ(Normalize(umlauts), (Normalized{umlauts, 3}));
  EXPECT_EQ(Normalize(umlauts + "ö"), (Normalized{umlauts + "\r\nö", 5}));
}

}  // namespace
}  // namespace korva
