#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "core/RuntimeError.h"
#include "plan/PlanGeometry.h"
#include "support/Panels.h"

namespace korva {
namespace {

constexpr float kClose = 2e-3F;

PlanGeometry PlanOf(const Project& project, bool schematic = true) {
  PlanOptions options;
  options.SchematicGobs = schematic;
  for (float& spacing : options.PlotXcutSpacing) {
    spacing = static_cast<float>(project.XcutSpacing);
  }
  return ComputePlan(project, options);
}

void ExpectCorners(const PlanCorners& corners, const std::array<std::pair<float, float>, 4>& expected) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    EXPECT_NEAR(corners[i].X, expected[i].first, kClose) << i;
    EXPECT_NEAR(corners[i].Y, expected[i].second, kClose) << i;
  }
}

// What the golden lists of the examples do not show; corners are compared there.

// Worked by hand: W 20, S 100, centers 70, 80 and 90 ft; cot 60 = 0.57735, 20 / sin 60 = 23.0940.
TEST(PlanGeometry, AngledCrosscutsMakeAChevron) {
  Project p = test::DevelopmentPanel();
  p.XcutAngle = 60;
  p.XcutSpacing = 100;
  p.XcutCenters[1] = 70;
  p.XcutCenters[2] = 80;
  p.XcutCenters[3] = 90;
  const PlanGeometry g = PlanOf(p);
  EXPECT_NEAR(g.RowStart[3], 86.1880F, kClose);
  EXPECT_NEAR(g.RowStart[2], 120.8290F, kClose);
  EXPECT_NEAR(g.RowStart[1], 161.2435F, kClose);
  ExpectCorners(g.Pillars[1][1], {{{20, 184.3375F}, {70, 155.4700F}, {70, 232.3760F}, {20, 261.2435F}}});
  ExpectCorners(g.Pillars[3][1], {{{170, 109.2820F}, {240, 149.6966F}, {240, 226.6025F}, {170, 186.1880F}}});
  p.XcutAngle = 0;  // counts as a sine of 1, and nothing slopes
  EXPECT_EQ(PlanOf(p).Pillars[1][1][1].Y, PlanOf(p).Pillars[1][1][0].Y);
}

// Rows A and B are those of the golden lists.
TEST(PlanGeometry, TheOnlyLineIsTheFirstAndTheLast) {
  Project p = test::AtCondition(test::DevelopmentPanel(), 1);
  p.ExtentActiveGob = 500;
  p.RowA = p.RowB = 1;
  p.NumberEntries = 2;
  const PlanGeometry g = PlanOf(p);
  EXPECT_EQ(std::count(g.PillarDrawn[1].begin(), g.PillarDrawn[1].end(), true), 6);
  EXPECT_EQ(std::count(g.PillarDrawn[2].begin(), g.PillarDrawn[2].end(), true), 0);
}

TEST(PlanGeometry, GobsReachACommonTopAndSchematicOnesAreTwiceTheirBarrier) {
  const Project p = test::TwoSideGobs();
  for (const bool schematic : {true, false}) {
    const PlanGeometry g = PlanOf(p, schematic);
    EXPECT_FLOAT_EQ(g.Gobs[kFirstBarrier][0].X, -60);
    EXPECT_FLOAT_EQ(g.Gobs[kFirstGob][0].X, schematic ? -180 : -1060);
    EXPECT_FLOAT_EQ(g.Gobs[kSecondBarrier][1].X, 320) << "panel side, next to the last entry";
    EXPECT_FLOAT_EQ(g.Gobs[kSecondGob][1].X, schematic ? 395 : 845);
    for (const PlanGobIndex gob : {kFirstGob, kFirstBarrier, kSecondBarrier, kSecondGob}) {
      EXPECT_EQ(g.GobDrawn[gob], 1);
      EXPECT_FLOAT_EQ(g.Gobs[gob].back().Y, g.GobTop);
    }
  }
  const PlanGeometry oneSide = PlanOf(test::AtCondition(p, 2));
  EXPECT_EQ(oneSide.GobDrawn[kFirstGob], 1);
  EXPECT_EQ(oneSide.GobDrawn[kSecondGob], 0);
  EXPECT_EQ(PlanOf(test::AtCondition(p, 4)).GobDrawn[kSecondGob], 0) << "a sibling's one side gob";
}

// Row 4 of the first line ends at 360 ft; the cut of 20 ft starts behind the crosscut.
TEST(PlanGeometry, SlabCutIsASlantedStep) {
  const PlanGeometry g = PlanOf(test::TwoSideGobs());
  const auto& outline = g.Gobs[kFirstBarrier];
  ASSERT_EQ(outline.size(), 6U);
  EXPECT_FLOAT_EQ(outline[2].Y, 380);
  EXPECT_FLOAT_EQ(outline[3].X, -20);
  EXPECT_FLOAT_EQ(outline[3].Y, 400);
  EXPECT_EQ(g.Gobs[kSecondBarrier].size(), 4U);
  Project chevron = test::TwoSideGobs();
  chevron.XcutAngle = 60;
  chevron.SlabcutSecondGob = 10;
  test::SetRows(chevron, 4, 60);
  const PlanGeometry mirrored = PlanOf(chevron);
  EXPECT_NEAR(mirrored.Gobs[kFirstBarrier][2].Y, mirrored.Gobs[kSecondBarrier][2].Y, kClose)
      << "level on both sides of a symmetric panel";
  EXPECT_TRUE(std::any_of(g.ActiveGob.begin(), g.ActiveGob.end(), [](const PlanPoint& corner) {
    return corner.X == -20;
  })) << "the active gob fills the cut";
}

// Row 4 of the panel ends at 360 ft, so a cut of that width would end 20 ft above the gobs.
TEST(PlanGeometry, SlabCutEndsAtTheCommonTop) {
  Project p = test::TwoSideGobs();
  const float top = PlanOf(p).GobTop;
  p.SlabcutFirstGob = p.SlabcutSecondGob = static_cast<double>(top) - 380 + 20;
  p.BarrierFirstGob = p.SlabcutFirstGob;
  p.BarrierSecondGob = p.SlabcutFirstGob + 50;
  PlanGeometry g = PlanOf(p);
  for (const auto& outline : {g.Gobs[kFirstBarrier], g.Gobs[kSecondBarrier], g.ActiveGob}) {
    for (const PlanPoint& corner : outline) {
      EXPECT_LE(corner.Y, top);
    }
  }
  EXPECT_FLOAT_EQ(g.Gobs[kFirstBarrier][3].X, 380 - top) << "cut off in its slope";
  p.SlabcutFirstGob = p.BarrierFirstGob = 60;
  g = PlanOf(p);
  ASSERT_EQ(g.Gobs[kFirstBarrier].size(), 4U) << "nothing is left of the barrier behind the slope";
  EXPECT_FLOAT_EQ(g.Gobs[kFirstBarrier][3].Y, 440);
}

TEST(PlanGeometry, BleederPillarsFillTheGobsHeight) {
  Project p = test::TwoSideGobs();
  p.RowC = p.RowD = 1;
  p.WidthRowC = 30;
  p.WidthRowD = 44;
  for (const double angle : {90.0, 60.0}) {
    p.XcutAngle = angle;
    const PlanGeometry g = PlanOf(p);
    float least = g.GobTop;
    float greatest = 0;
    for (const PlanBleeder& bleeder : g.Bleeders) {
      const bool c = bleeder.Side == kFirstSideLine;
      EXPECT_FLOAT_EQ(bleeder.Corners[0].X, c ? -110 : 365);
      EXPECT_FLOAT_EQ(bleeder.Corners[1].X, c ? -80 : 409);
      EXPECT_GE(bleeder.Corners[0].Y, 0);
      least = std::min(least, bleeder.Corners[0].Y);
      greatest = std::max(greatest, bleeder.Corners[2].Y);
      if (bleeder.Row == 4) {  // level with the line beside it
        EXPECT_FLOAT_EQ(bleeder.Corners[3].Y, g.Pillars[c ? 1 : 5][4][3].Y);
      }
    }
    EXPECT_LT(least, 80) << "less than a spacing is left in front";
    EXPECT_FLOAT_EQ(greatest, g.GobTop);
    EXPECT_FLOAT_EQ(g.Gobs[kFirstGob][1].X, -130) << "makes room for the row and its entries";
  }
  EXPECT_TRUE(PlanOf(test::AtCondition(p, 1)).Bleeders.empty());
  const auto oneSide = PlanOf(test::AtCondition(p, 2)).Bleeders;
  EXPECT_TRUE(std::all_of(oneSide.begin(), oneSide.end(),
                          [](const PlanBleeder& bleeder) { return bleeder.Side == kFirstSideLine; }));
}

TEST(PlanGeometry, CoordinatesThatCannotBeHadAreErrors) {
  Project p = test::DevelopmentPanel();
  p.XcutCenters[1] = std::numeric_limits<double>::max();
  EXPECT_THROW(PlanOf(p), RuntimeError);
  p = test::DevelopmentPanel();
  p.NumberEntries = 12;
  EXPECT_THROW(PlanOf(p), RuntimeError);
}

}  // namespace
}  // namespace korva
