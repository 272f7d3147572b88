#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "core/NumberParsing.h"

namespace korva {
namespace {

struct PrefixCase {
  std::string text;
  std::size_t length;
  double value;
};

TEST(ParseNumberPrefix, TakesTheLongestNumberAtTheStart) {
  const PrefixCase cases[] = {
      {"12", 2, 12},     {"12.5", 4, 12.5}, {"-3 m", 2, -3},   {"+7", 2, 7},        {"5.", 2, 5},
      {".5", 2, 0.5},    {"+.5e1", 5, 5},   {"1.2.3", 3, 1.2}, {"1,5", 1, 1},       {"1e3x", 3, 1000},
      {"1E-2", 4, 0.01}, {"2.e2", 4, 200},  {"1e", 1, 1},      {"1e+", 1, 1},       {"1e+-3", 1, 1},
      {"0x10", 1, 0},    {"1 000", 1, 1},   {"007", 3, 7},     {"1e0003", 6, 1000}, {"6ft", 1, 6},
  };
  for (const PrefixCase& c : cases) {
    const ParsedNumber parsed = ParseNumberPrefix(c.text);
    EXPECT_EQ(parsed.length, c.length) << c.text;
    EXPECT_EQ(parsed.value, c.value) << c.text;
    EXPECT_FALSE(parsed.overflow) << c.text;
  }
}

TEST(ParseNumberPrefix, WordsAndBareSignsAreNoNumbers) {
  for (const char* text : {"", " 5", "-", "+", ".", "-.", "e5", ".e5", "+-5", "--5", "inf", "-inf", "INF",
                           "infinity", "nan", "NaN", "-nan(1)", ",5", "x1"}) {
    EXPECT_EQ(ParseNumberPrefix(text).length, 0U) << text;
    EXPECT_EQ(ParseNumberPrefix(text).value, 0) << text;
  }
}

TEST(ParseNumberPrefix, BeyondTheRangeIsOverflowOrZero) {
  const std::string zeros(400, '0');
  for (const std::string& text : {std::string("1e999"), "1" + zeros, "1" + zeros + "e-50",
                                  std::string("0.001e+400"), std::string("1e99999999999999999999999")}) {
    const ParsedNumber parsed = ParseNumberPrefix(text);
    EXPECT_TRUE(parsed.overflow) << text;
    EXPECT_EQ(parsed.value, std::numeric_limits<double>::max()) << text;
    EXPECT_EQ(parsed.length, text.size());
    EXPECT_EQ(ParseNumberPrefix("-" + text).value, -std::numeric_limits<double>::max()) << text;
  }
  for (const std::string& text :
       {std::string("1e-999"), "0." + zeros + "1", "0." + zeros + "1e+50", "100e-400" + zeros,
        std::string("0e999"), std::string("0.000e+99999999999999999999"),
        std::string("1e-99999999999999999999999")}) {
    const ParsedNumber parsed = ParseNumberPrefix(text);
    EXPECT_FALSE(parsed.overflow) << text;
    EXPECT_EQ(parsed.value, 0) << text;
    EXPECT_EQ(parsed.length, text.size());
  }
}

TEST(ParseNumberPrefix, ManyZerosAndAnExponentCancelOut) {
  const std::string zeros(330, '0');
  EXPECT_EQ(ParseNumberPrefix("0." + zeros + "1e+400").value, 1e69);
  EXPECT_EQ(ParseNumberPrefix("1" + zeros + "e-330").value, 1);
  EXPECT_EQ(ParseNumberPrefix("4.9e-324").value, std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(ParseNumberPrefix("1.7976931348623157e308").value, std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace korva
