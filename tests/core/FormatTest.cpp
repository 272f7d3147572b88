#include <gtest/gtest.h>

#include <limits>

#include "core/Format.h"
#include "core/RuntimeError.h"

namespace korva {
namespace {

TEST(Format, RoundsHalfAwayOnTheDecimalValue) {
  EXPECT_EQ(Format(0.125, "##0.00"), "0.13");
  EXPECT_EQ(Format(1.005, "##0.00"), "1.01");
  EXPECT_EQ(Format(60.949999999999996, "##0.0"), "61.0");
  EXPECT_EQ(Format(-2.5, "0"), "-3");
  EXPECT_EQ(Format(1.495F, "0.00"), "1.50");  // 1.495 at 7 digits, though the binary value lies above
  EXPECT_EQ(Format(0.5, "##0"), "1");
  EXPECT_EQ(Format(0.049, "##0.0"), "0.0");
  EXPECT_EQ(Format(9.996, "##0.00"), "10.00");
  EXPECT_EQ(Format(1e20, "##0.0"), "100000000000000000000.0");
}

TEST(Format, ZeroHasNoSign) {
  EXPECT_EQ(Format(-0.004, "##0.00"), "0.00");
  EXPECT_EQ(Format(-0.0, "##0.000"), "0.000");
  EXPECT_EQ(Format(-0.0, "#.00E+00"), ".00E+00");
}

TEST(Format, ScientificMantissaIsRenormalised) {
  EXPECT_EQ(Format(999500.0, "#.00E+00"), "1.00E+06");
  EXPECT_EQ(Format(999499.0, "#.00E+00"), "9.99E+05");
  EXPECT_EQ(Format(-0.000123456, "#.00E+00"), "-1.23E-04");
  EXPECT_EQ(Format(1e-120, "#.00E+00"), "1.00E-120");
}

TEST(Format, RefusesWhatHasNoText) {
  EXPECT_THROW(Format(std::numeric_limits<double>::infinity(), "##0"), RuntimeError);
  EXPECT_THROW(Format(std::numeric_limits<double>::quiet_NaN(), "#.00E+00"), RuntimeError);
  EXPECT_THROW(Format(1.0, "0.0#"), RuntimeError);
}

}  // namespace
}  // namespace korva
