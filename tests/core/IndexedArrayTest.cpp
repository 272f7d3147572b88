#include <gtest/gtest.h>

#include "core/IndexedArray.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

TEST(IndexedArray, HoldsItsRangeAndNothingBeyond) {
  IndexedArray<int, 3, 4> sides;
  sides[3] = 30;
  sides[4] = 40;
  const auto& fixed = sides;
  EXPECT_EQ(std::vector<int>(fixed.begin(), fixed.end()), (std::vector<int>{30, 40}));
  for (const int index : {-1, 0, 2, 5, 32768}) {
    ExpectError(ErrorNumber::kSubscript, [&] { sides[index] = 1; });
    ExpectError(ErrorNumber::kSubscript, [&] { return fixed[index]; });
  }
}

}  // namespace
}  // namespace korva
