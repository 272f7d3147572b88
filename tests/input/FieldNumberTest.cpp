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

}  // namespace
}  // namespace korva
