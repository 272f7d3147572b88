#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/ArithmeticWatch.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

// What the compiler cannot work out beforehand.
volatile double zero = 0;
volatile double huge = 1e308;
volatile double one = 1;
volatile double result = 0;

using Watch = ArithmeticWatch;

TEST(ArithmeticWatch, NamesTheQuantityThatFailed) {
  const Watch watch(Watch::Mode::kStepwise);
  result = one / (one + one);
  EXPECT_NO_THROW(watch.Step("half"));
  result = one / zero;
  EXPECT_EQ(ExpectError(ErrorNumber::kDivisionByZero, [&] { watch.Step("Load", 3); }),
            "in the calculation of Load[3]");
  result = zero / zero;
  EXPECT_EQ(ExpectError(ErrorNumber::kDivisionByZero, [&] { watch.Step("Fpa"); }),
            "in the calculation of Fpa");
  result = huge * huge;
  ExpectError(ErrorNumber::kOverflow, [&] { watch.Step("Strength"); });
  EXPECT_NO_THROW(watch.Step("a fault is told once"));
}

TEST(ArithmeticWatch, SeesAnInfinityThatACapHides) {
  const Watch watch(Watch::Mode::kWhole);
  EXPECT_FALSE(watch.Raised());
  result = std::fmin(one / zero, 100.0);
  EXPECT_EQ(result, 100.0);
  EXPECT_TRUE(watch.Raised());
  EXPECT_NO_THROW(watch.Step("only a stepwise watch throws"));
  EXPECT_FALSE(Watch(Watch::Mode::kWhole).Raised());
}

TEST(ArithmeticWatch, UnderflowAndInexactResultsAreNoFaults) {
  const Watch watch(Watch::Mode::kStepwise);
  result = one / huge / huge;
  result = one / 3;
  EXPECT_NO_THROW(watch.Step("tiny"));
}

TEST(ArithmeticWatch, RootsAndLogarithmsWithoutAValueAreInvalidCalls) {
  EXPECT_EQ(SquareRoot(9, "r"), 3);
  EXPECT_EQ(SquareRoot(0, "r"), 0);
  EXPECT_EQ(NaturalLog(1, "l"), 0);
  EXPECT_NE(ExpectError(ErrorNumber::kInvalidCall, [] { SquareRoot(-1e-300, "Width"); }).find("Width"),
            std::string::npos);
  EXPECT_NE(ExpectError(ErrorNumber::kInvalidCall, [] { NaturalLog(0, "Arch"); }).find("Arch"),
            std::string::npos);
  ExpectError(ErrorNumber::kInvalidCall, [] { NaturalLog(-1, "Arch"); });
}

}  // namespace
}  // namespace korva
