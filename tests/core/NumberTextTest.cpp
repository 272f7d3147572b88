#include <gtest/gtest.h>

#include <limits>

#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

TEST(GeneralText, Has15DigitsAtMost) {
  EXPECT_EQ(GeneralText(900 / 145.0377), "6.20528317809783");
  EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
  EXPECT_EQ(GeneralText(-0.5), "-0.5");
  EXPECT_EQ(GeneralText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(GeneralText(2.0 / 3), "0.666666666666667");
  EXPECT_EQ(GeneralText(1200.0), "1200");
  EXPECT_EQ(GeneralText(0.0), "0");
  EXPECT_EQ(GeneralText(-0.0), "0");
}

TEST(GeneralText, TakesAnExponentBeyondItsLimits) {
  EXPECT_EQ(GeneralText(0.0001), "0.0001");
  EXPECT_EQ(GeneralText(0.00012345), "0.00012345");
  EXPECT_EQ(GeneralText(0.00001), "1E-05");
  EXPECT_EQ(GeneralText(-0.0000125), "-1.25E-05");
  EXPECT_EQ(GeneralText(123456789012345.0), "123456789012345");
  EXPECT_EQ(GeneralText(999999999999999.0), "999999999999999");
  EXPECT_EQ(GeneralText(999999999999999.75), "1E+15");  // the digits carry into the exponent form
  EXPECT_EQ(GeneralText(1e15), "1E+15");
  EXPECT_EQ(GeneralText(1.5e100), "1.5E+100");
  EXPECT_EQ(GeneralText(1e-300), "1E-300");
}

TEST(GeneralText, ASingleHas7Digits) {
  EXPECT_EQ(GeneralText(0.85F), "0.85");
  EXPECT_EQ(GeneralText(1.0F / 3), "0.3333333");
  EXPECT_EQ(GeneralText(9999999.0F), "9999999");
  EXPECT_EQ(GeneralText(1e7F), "1E+07");
  EXPECT_EQ(GeneralText(0.0001F), "0.0001");
  EXPECT_EQ(GeneralText(0.00001F), "1E-05");
  EXPECT_EQ(GeneralText(-0.0F), "0");
}

TEST(GeneralText, TheLargestNumbersReadBack) {
  for (const double sign : {1.0, -1.0}) {
    const double largest = sign * std::numeric_limits<double>::max();
    const ParsedNumber parsed = ParseNumberPrefix(GeneralText(largest));
    EXPECT_FALSE(parsed.overflow);
    EXPECT_NEAR(parsed.value / largest, 1, 1e-14);
  }
}

TEST(GeneralText, WhatIsNotFiniteHasNone) {
  for (const double value :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    ExpectError(ErrorNumber::kOverflow, [value] { GeneralText(value); });
    ExpectError(ErrorNumber::kOverflow, [value] { GeneralText(static_cast<float>(value)); });
  }
}

TEST(PaddedText, HasABlankOrMinusInFrontAndABlankBehind) {
  EXPECT_EQ(PaddedText(std::int16_t{2}), " 2 ");
  EXPECT_EQ(PaddedText(std::int16_t{-32768}), "-32768 ");
  EXPECT_EQ(PaddedText(1.0F), " 1 ");
  EXPECT_EQ(PaddedText(0.85F), " 0.85 ");
  EXPECT_EQ(PaddedText(-0.5F), "-0.5 ");
  EXPECT_EQ(PaddedText(-0.0F), " 0 ");
}

TEST(RoundHalfEven, TakesTiesOfTheBinaryValueToEven) {
  EXPECT_EQ(RoundHalfEven(0.125, 2), 0.12);
  EXPECT_EQ(RoundHalfEven(0.375, 2), 0.38);
  EXPECT_EQ(RoundHalfEven(-0.125, 2), -0.12);
  EXPECT_EQ(RoundHalfEven(0.5, 0), 0.0);
  EXPECT_EQ(RoundHalfEven(2.5, 0), 2.0);
  EXPECT_EQ(RoundHalfEven(3.5, 0), 4.0);
  EXPECT_EQ(RoundHalfEven(0.0625, 3), 0.062);
}

// Values whose product with 100 is a tie in binary though they are not: their exact value stands behind them.
TEST(RoundHalfEven, IsNotFooledByAProductThatOnlyLooksLikeATie) {
  EXPECT_EQ(RoundHalfEven(2.675, 2), 2.67);                      // 2.67499999999999982...
  EXPECT_EQ(RoundHalfEven(1.005, 2), 1.0);                       // 1.00499999999999989...
  EXPECT_EQ(RoundHalfEven(1.115, 2), 1.11);                      // 1.11499999999999999...
  EXPECT_EQ(RoundHalfEven(8.345, 2), 8.35);                      // 8.34500000000000063...
  EXPECT_EQ(RoundHalfEven(31.25 / 3.280839895013123, 2), 9.53);  // 9.52500000000000035...
  EXPECT_EQ(RoundHalfEven(-31.25 / 3.280839895013123, 2), -9.53);
}

TEST(RoundHalfEven, LeavesHugeValuesAndKeepsTinyOnesSmall) {
  EXPECT_EQ(RoundHalfEven(1e22, 2), 1e22);
  EXPECT_EQ(RoundHalfEven(1.7e308, 3), 1.7e308);
  EXPECT_EQ(RoundHalfEven(45035996273705.015625, 2), 45035996273705.02);  // its neighbours are 0.0078 away
  EXPECT_EQ(RoundHalfEven(5e-324, 2), 0.0);
}

}  // namespace
}  // namespace korva
