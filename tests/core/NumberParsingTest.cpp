#include <gtest/gtest.h>

#include <limits>

#include "core/NumberParsing.h"

namespace korva {
namespace {

TEST(ParseNumberPrefix, TakesTheLongestNumberAtTheStart) {
  const std::tuple<std::string, std::size_t, double> cases[] = {
      {"12", 2, 12},     {"12.5", 4, 12.5}, {"-3 m", 2, -3},   {"+7", 2, 7},        {"5.", 2, 5},
      {".5", 2, 0.5},    {"+.5e1", 5, 5},   {"1.2.3", 3, 1.2}, {"1,5", 1, 1},       {"1e3x", 3, 1000},
      {"1E-2", 4, 0.01}, {"2.e2", 4, 200},  {"1e", 1, 1},      {"1e+", 1, 1},       {"1e+-3", 1, 1},
      {"0x10", 1, 0},    {"1 000", 1, 1},   {"007", 3, 7},     {"1e0003", 6, 1000}, {"6ft", 1, 6},
  };
  for (const auto& [text, length, value] : cases) {
    EXPECT_EQ(ParseNumberPrefix(text).length, length) << text;
    EXPECT_EQ(ParseNumberPrefix(text).value, value) << text;
  }
  for (const char* text : {"", " 5", "-", "+", ".", "-.", "e5", ".e5", "+-5", "--5", "inf", "-inf", "INF",
                           "infinity", "nan", "NaN", "-nan(1)", ",5", "x1"}) {
    EXPECT_EQ(ParseNumberPrefix(text).length, 0U) << text;
  }
}

TEST(ParseNumberPrefix, BeyondTheRangeIsOverflowOrZero) {
  const std::string zeros(400, '0');
  const std::string nines(24, '9');
  const std::vector<std::string> large = {"1e999", "1" + zeros + "e-50", "0.001e+400", "1e" + nines};
  const std::vector<std::string> tiny = {"1e-999", "0." + zeros + "1e+50", "0e999", "1e-" + nines};
  for (const auto& texts : {large, tiny}) {
    for (const std::string& text : texts) {
      const ParsedNumber parsed = ParseNumberPrefix("-" + text);
      EXPECT_EQ(parsed.overflow, texts == large) << text;
      EXPECT_EQ(parsed.value, texts == large ? -std::numeric_limits<double>::max() : 0) << text;
      EXPECT_EQ(parsed.length, text.size() + 1);
    }
  }
  EXPECT_EQ(ParseNumberPrefix("1" + zeros + "e-400").value, 1);
  EXPECT_EQ(ParseNumberPrefix("0." + zeros + "1e+401").value, 1);
}

}  // namespace
}  // namespace korva
