#include <gtest/gtest.h>

#include <cmath>

#include "core/ArithmeticWatch.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

// What the compiler cannot work out beforehand.
volatile double zero = 0, one = 1, huge = 1e308, result = 0;

using Watch = ArithmeticWatch;

TEST(ArithmeticWatch, NamesTheQuantityThatFailed) {
  const Watch watch(Watch::Mode::kStepwise);
  result = one / 3;
  result = one / huge / huge;
  EXPECT_NO_THROW(watch.Step("neither inexact nor tiny results are faults"));
  result = one / zero;
  EXPECT_EQ(ExpectError(ErrorNumber::kDivisionByZero, [&] { watch.Step("Load", 3); }),
            "in the calculation of Load[3]");
  result = zero / zero;
  ExpectError(ErrorNumber::kDivisionByZero, [&] { watch.Step("Fpa"); });
  result = huge * huge;
  ExpectError(ErrorNumber::kOverflow, [&] { watch.Step("Strength"); });
  EXPECT_NO_THROW(watch.Step("a fault is told once"));
}

TEST(ArithmeticWatch, SeesAnInfinityThatACapHides) {
  const Watch watch(Watch::Mode::kWhole);
  EXPECT_FALSE(watch.Raised());
  result = std::fmin(one / zero, 100.0);
  EXPECT_TRUE(watch.Raised());
  EXPECT_NO_THROW(watch.Step("only a stepwise watch throws"));
  EXPECT_FALSE(Watch(Watch::Mode::kWhole).Raised());
}

TEST(ArithmeticWatch, RootsAndLogarithmsWithoutAValueAreInvalidCalls) {
  EXPECT_EQ(SquareRoot(9, "r") + SquareRoot(0, "r") + NaturalLog(1, "l"), 3);
  ExpectError(ErrorNumber::kInvalidCall, [] { SquareRoot(-1e-300, "Width"); });
  for (const double value : {0.0, -1.0}) {
    const std::string detail = ExpectError(ErrorNumber::kInvalidCall, [&] { NaturalLog(value, "Arch"); });
    EXPECT_NE(detail.find("Arch"), std::string::npos);
  }
}

}  // namespace
}  // namespace korva
