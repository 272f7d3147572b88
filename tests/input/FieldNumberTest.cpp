#include <gtest/gtest.h>

#include "input/FieldNumber.h"

namespace korva {
namespace {

TEST(FieldNumber, ReadsTheLongestLeadingNumber) {
  EXPECT_EQ(FieldNumber("  12.5 ft"), 12.5);
  EXPECT_EQ(FieldNumber("1,5"), 1);
  EXPECT_EQ(FieldNumber("1e3x"), 1000);
  EXPECT_EQ(FieldNumber("nan"), 0);
  EXPECT_EQ(FieldNumber("ft 3"), 0);
}

TEST(FieldNumber, SkipsBlanksOfEveryKindAndKnowsTheMinusSign) {
  for (const char* blank :
       {" ", "\t", "\r\n", "\u00A0", "\u2009", "\u202F", "\u3000", "\uFEFF", "\u200B", " \t\u2007 "}) {
    EXPECT_EQ(FieldNumber(std::string(blank) + "300" + blank), 300);
    EXPECT_EQ(CountsAs(std::string(blank) + "300" + blank), std::nullopt);
    EXPECT_EQ(CountsAs(blank), std::nullopt) << "an empty box is 0, as it looks";
  }
  EXPECT_EQ(FieldNumber("\u22125.5"), -5.5);
  EXPECT_EQ(FieldNumber("5e\u22121"), 0.5);
  EXPECT_EQ(CountsAs("\u22125.5"), std::nullopt);
  EXPECT_EQ(FieldNumber("\xC2"), 0) << "half a character is none";
}

TEST(FieldNumber, TellsWhatCountsAsAnotherNumber) {
  for (const auto& [text, note] : {std::pair{"12,5", "12"},
                                   {"1,200", "1"},
                                   {"1 200", "1"},
                                   {"5 ft", "5"},
                                   {"abc", "0"},
                                   {"\u20135", "0"},
                                   {"1e400", "1.79769313486231E+308"}}) {
    EXPECT_EQ(CountsAs(text), std::string("counts as ") + note);
  }
  for (const char* number : {"12", "+12.50", ".5", "5.", "1e3", "-0"}) {
    EXPECT_EQ(CountsAs(number), std::nullopt) << number;
  }
}

}  // namespace
}  // namespace korva
