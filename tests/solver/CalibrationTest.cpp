#include <gtest/gtest.h>

#include <cmath>

#include "Calibration.h"

namespace korva::laminated {
namespace {

TEST(Calibration, NinetyPercentOfAnAbutmentLoadLieWithinTheKnownDistance) {
  for (const double depth : {100.0, 1000.0, 2500.0}) {
    EXPECT_NEAR(1 - std::exp(-5 * std::sqrt(depth) / LengthScale(depth, false)), 0.9, 1e-12);
  }
  EXPECT_NEAR(LengthScale(304.8, true) / 0.3048, LengthScale(1000, false), 1e-9);
}

TEST(Calibration, ShedCoverFollowsTheAbutmentAngle) {
  const double reach = 1000 * std::tan(21 * 0.017453292519943278);
  EXPECT_NEAR(ShedCover(1000, {.Width = 2 * reach + 1, .AbutmentAngle = 21}), reach / 2, 1e-9);
  // A narrow gob keeps the wedge below the lines of the abutment angle from both edges.
  EXPECT_NEAR(ShedCover(1000, {.Width = 400, .AbutmentAngle = 21}), 200 - 160000 / (8 * reach), 1e-9);
  EXPECT_EQ(ShedCover(1000, {.Width = 0, .AbutmentAngle = 21}), 0);
  EXPECT_EQ(ShedCover(1000, {.Width = 400, .AbutmentAngle = 0}), 0);
  EXPECT_EQ(ShedCover(1000, {.Width = 1e5, .AbutmentAngle = 90}),
            ShedCover(1000, {.Width = 1e5, .AbutmentAngle = 95}));
}

TEST(Calibration, TheStiffnessShedsWhatIsWanted) {
  for (const double depth : {50.0, 300.0, 1000.0, 3000.0}) {
    for (const double width : {1.0, 60.0, 700.0, 20000.0}) {
      for (const double angle : {1.0, 21.0, 45.0, 89.9}) {
        for (const double abutment : {0.5, 1.0}) {
          const GobSetting gob = {.Width = width, .AbutmentAngle = angle, .AbutmentStiffness = abutment};
          const double length = LengthScale(depth, false);
          const double ratio = GobStiffness(depth, length, gob);
          ASSERT_GT(ratio, 0);
          ASSERT_LE(ratio, abutment);
          const double wanted = ShedCover(depth, gob);
          EXPECT_NEAR(ShedByStrip(ratio, length, gob), wanted, 1e-10 * wanted)
              << depth << " " << width << " " << angle << " " << abutment;
        }
      }
    }
  }
}

TEST(Calibration, AGobThatShedsNothingIsAsStiffAsItsAbutments) {
  EXPECT_EQ(GobStiffness(1000, 68, {.Width = 0, .AbutmentAngle = 21, .AbutmentStiffness = 0.7}), 0.7);
  EXPECT_EQ(GobStiffness(1000, 68, {.Width = 500, .AbutmentAngle = 0}), 1);
}

TEST(Calibration, AWideGobHasAClosedForm) {
  const double length = LengthScale(1000, false);
  const GobSetting gob = {.Width = 1e5, .AbutmentAngle = 21, .AbutmentStiffness = 0.8};
  const double root = ShedCover(1000, gob) / length + 1 / std::sqrt(0.8);
  EXPECT_NEAR(GobStiffness(1000, length, gob), 1 / (root * root), 1e-12);
}

}  // namespace
}  // namespace korva::laminated
