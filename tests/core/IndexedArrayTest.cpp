#include <gtest/gtest.h>

#include "core/IndexedArray.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

TEST(IndexedArray, HoldsItsRangeAndNothingBeyond) {
  IndexedArray<int, 3, 4> sides;
  sides[3] = 30;
  sides[4] = 40;
  EXPECT_EQ(*sides.begin(), 30);
  EXPECT_EQ(sides.end() - sides.begin(), 2);
  const auto& fixed = sides;
  for (const int index : {-1, 0, 2, 5, 32768}) {
    EXPECT_NE(ExpectError(ErrorNumber::kSubscript, [&] { sides[index] = 1; }).find("3 to 4"),
              std::string::npos);
    ExpectError(ErrorNumber::kSubscript, [&] { return fixed[index]; });
  }
  EXPECT_EQ(sides[3] + sides[4], 70);
}

}  // namespace
}  // namespace korva
