#include <gtest/gtest.h>

#include <limits>

#include "core/Format.h"
#include "core/RuntimeError.h"

namespace korva {
namespace {

std::string Formats(std::string_view pattern, const std::vector<double>& values) {
  std::string texts;
  for (const double value : values) {
    texts += Format(value, pattern) + " ";
  }
  return texts;
}

TEST(Format, RoundsHalfAwayOnTheDecimalValue) {
  EXPECT_EQ(Formats("##0.00", {0.125, 1.005, 9.996, -0.004, -0.0}), "0.13 1.01 10.00 0.00 0.00 ");
  EXPECT_EQ(Formats("##0.0", {60.949999999999996, 0.049, 1e17}), "61.0 0.0 100000000000000000.0 ");
  EXPECT_EQ(Formats("0", {-2.5, 0.5}), "-3 1 ");
  EXPECT_EQ(Formats("000", {7, 1234, -5, 0, 99.5}), "007 1234 -005 000 100 ");
  EXPECT_EQ(Formats("#.00E+00", {999500, 999499, -0.000123456, 1e-120, -0.0}),
            "1.00E+06 9.99E+05 -1.23E-04 1.00E-120 .00E+00 ");
  EXPECT_EQ(Formats("#.##", {900, 1000, 6.205283178097832, 25.446482633742956, 100.1, 0.5, 0, 0.004, -20}),
            "900 1000 6.21 25.45 100.1 0.5 0 0 -20 ");
  EXPECT_EQ(Format(1.495F, "0.00"), "1.50");  // 1.495 at 7 digits, though the binary value lies above
  EXPECT_THROW(Format(std::numeric_limits<double>::infinity(), "##0"), RuntimeError);
  EXPECT_THROW(Format(1.0, "0.0#"), RuntimeError);
}

}  // namespace
}  // namespace korva
