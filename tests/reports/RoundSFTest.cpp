#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "reports/RoundSF.h"

namespace korva {
namespace {

TEST(RoundSF, RoundsTheBinaryValueHalfToEven) {
  EXPECT_EQ(RoundSF(1.495, FactorRounding::kTwoDecimals), 1.5F);   // 1.49500000477 in 32 bits
  EXPECT_EQ(RoundSF(1.025, FactorRounding::kTwoDecimals), 1.02F);  // 1.02499997616
  EXPECT_EQ(RoundSF(0.375, FactorRounding::kTwoDecimals), 0.38F);
}

TEST(RoundSF, TruncatesTheProductIn32BitsOrOnlyNarrows) {
  EXPECT_EQ(RoundSF(1.4999, FactorRounding::kTruncated), 1.49F);
  EXPECT_EQ(RoundSF(1.29, FactorRounding::kTruncated), 1.29F);  // 1.28999996185 times 100 is 129 in 32 bits
  EXPECT_EQ(RoundSF(-1.239, FactorRounding::kTruncated), -1.23F);
  EXPECT_EQ(RoundSF(1.23456789, FactorRounding::kNone), 1.23456789F);
  EXPECT_THROW(RoundSF(1e39, FactorRounding::kNone), RuntimeError);
}

}  // namespace
}  // namespace korva
