#include <gtest/gtest.h>

#include <limits>

#include "core/NumberText.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

template <class Number>
std::string Texts(const std::vector<Number>& values) {
  std::string texts;
  for (const Number value : values) {
    texts += GeneralText(value) + " ";
  }
  return texts;
}

std::vector<double> Rounded(int decimals, std::vector<double> values) {
  for (double& value : values) {
    value = RoundHalfEven(value, decimals);
  }
  return values;
}

using Doubles = std::vector<double>;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(GeneralText, Has15DigitsOr7AndAnExponentBeyondItsLimits) {
  EXPECT_EQ(Texts<double>({900 / 145.0377, 0.1 + 0.2, -0.5, 2.0 / 3, 1200, 0, -0.0}),
            "6.20528317809783 0.3 -0.5 0.666666666666667 1200 0 0 ");
  EXPECT_EQ(Texts<double>({0.0001, 0.00012345, 0.00001, -0.0000125, 1.5e100, 1e-300}),
            "0.0001 0.00012345 1E-05 -1.25E-05 1.5E+100 1E-300 ");
  EXPECT_EQ(Texts<double>({123456789012345, 999999999999999.75, 1e15, std::numeric_limits<double>::lowest()}),
            "123456789012345 1E+15 1E+15 -1.79769313486231E+308 ");  // rounded, the last could not be read
  EXPECT_EQ(Texts<float>({0.85F, 1.0F / 3, 9999999, 1e7F, 0.00001F}), "0.85 0.3333333 9999999 1E+07 1E-05 ");
  ExpectError(ErrorNumber::kOverflow, [] { GeneralText(kInfinity); });
  ExpectError(ErrorNumber::kOverflow, [] { GeneralText(static_cast<float>(-kInfinity)); });
}

TEST(ShortestText, ReadsBackToTheSameValue) {
  std::string texts;
  for (const double value : {0.1 + 0.2, 1e15, 123456789012345.6, -0.00012345, 1e-5, -2.5e300, 0.0}) {
    texts += ShortestText(value) + " ";
    EXPECT_EQ(std::stod(ShortestText(value)), value);
  }
  EXPECT_EQ(texts, "0.30000000000000004 1E+15 123456789012345.6 -0.00012345 1E-05 -2.5E+300 0 ");
}

TEST(PaddedText, HasABlankOrMinusInFrontAndABlankBehind) {
  EXPECT_EQ(PaddedText(2) + PaddedText(-32768), " 2 -32768 ");
  EXPECT_EQ(PaddedText(-0.5F) + PaddedText(-0.0F), "-0.5  0 ");
}

TEST(RoundHalfEven, TakesTiesOfTheExactBinaryValueToEven) {
  EXPECT_EQ(Rounded(0, {0.5, 2.5, 3.5}), (Doubles{0, 2, 4}));
  EXPECT_EQ(Rounded(3, {0.0625, 1.7e308}), (Doubles{0.062, 1.7e308}));
  EXPECT_EQ(Rounded(2, {0.125, 0.375, -0.125, 1e22, 5e-324}), (Doubles{0.12, 0.38, -0.12, 1e22, 0}));
  // The products of these with 100 are ties, though they are none.
  EXPECT_EQ(Rounded(2, {2.675, 1.005, 1.115, 8.345}), (Doubles{2.67, 1, 1.11, 8.35}));
  EXPECT_EQ(Rounded(2, {-31.25 / 3.280839895013123, 45035996273705.015625}),
            (Doubles{-9.53, 45035996273705.02}));
}

}  // namespace
}  // namespace korva
