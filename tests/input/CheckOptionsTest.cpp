#include <gtest/gtest.h>

#include "input/CheckOptions.h"

namespace korva {
namespace {

TEST(CheckOptions, RefusesTheFirstFaultOfTheRange) {
  EXPECT_FALSE(CheckOptions("2", "150"));
  EXPECT_EQ(CheckOptions("", "1")->Text, "Blank field not allowed");
  EXPECT_EQ(CheckOptions("", "1")->Control, "Text1");
  EXPECT_EQ(CheckOptions("1", "150")->Text, "Value '1' is outside input range\r\nValid range is: 2-150");
  EXPECT_EQ(CheckOptions("50", "151")->Control, "Text2");
  const auto equal = CheckOptions("150", "150");
  EXPECT_FALSE(equal->IsRange);
  EXPECT_EQ(equal->Control, "Text1");
}

}  // namespace
}  // namespace korva
