#include <gtest/gtest.h>

#include "Ground.h"
#include "Layout.h"

namespace korva::laminated {
namespace {

// The stiffness of the cell that holds a place.
double At(const std::vector<double>& cells, const Grid& grid, double x, double y) {
  return cells[grid.At(static_cast<int>((x - grid.X0) / grid.Cx), static_cast<int>((y - grid.Y0) / grid.Cy))];
}

TEST(Layout, DevelopmentHasThePanelBetweenItsSides) {
  Panel panel = TestPanel(1000, 80, 90, 5, kOneSideGob);
  panel.Sides[0].BleederRow = true;
  panel.Sides[0].BleederWidth = 40;
  const Layout layout = LayOut(panel);
  const Grid grid = GridFor(layout);
  const auto cells = DevelopmentStiffness(layout, grid, {});
  const double rowY = 45;  // beside the middle of a pillar
  EXPECT_NEAR(At(cells, grid, 0, rowY), 0, 1e-12) << "the first entry";
  EXPECT_NEAR(At(cells, grid, 40, rowY), 1, 1e-12) << "a pillar";
  EXPECT_NEAR(At(cells, grid, 40, 0), 0, 1e-12) << "a crosscut";
  EXPECT_NEAR(At(cells, grid, 40, -135), 1, 1e-12) << "a pillar inby";
  EXPECT_NEAR(At(cells, grid, -70, 0), 1, 1e-12) << "the barrier";
  EXPECT_NEAR(At(cells, grid, -140, rowY), 0, 1e-12) << "the entry before the bleeder row";
  EXPECT_NEAR(At(cells, grid, -170, rowY), 1, 1e-12) << "a bleeder pillar";
  EXPECT_NEAR(At(cells, grid, -170, 0), 0, 1e-12) << "between bleeder pillars";
  EXPECT_NEAR(At(cells, grid, -200, rowY), 0, 1e-12) << "the entry behind it";
  EXPECT_NEAR(At(cells, grid, -250, 0), layout.SideStiffness[0], 1e-12) << "the side gob";
  EXPECT_NEAR(At(cells, grid, 400, 0), 1, 1e-12) << "solid coal on the other side";
  EXPECT_LT(layout.SideStiffness[0], 0.2);
}

TEST(Layout, RetreatHasTheGobBehindAnOpenCrosscut) {
  Panel panel = TestPanel(1000, 80, 90, 5, kTwoSideGobs);
  panel.RowA = true;
  panel.Sides[1].SlabCut = 40;
  panel.ExtentActiveGob = 500;
  const Layout layout = LayOut(panel);
  const Grid grid = GridFor(layout);
  const auto cells = RetreatStiffness(layout, grid, {});
  const double gob = layout.ActiveStiffness;
  EXPECT_NEAR(At(cells, grid, 200, 45), 1, 1e-12) << "a pillar outby";
  EXPECT_NEAR(At(cells, grid, 200, -5), 0, 1e-12) << "the crosscut at the gob line";
  EXPECT_NEAR(At(cells, grid, 200, -45), gob, 1e-12);
  EXPECT_NEAR(At(cells, grid, 80, -45), gob, 1e-12) << "the entry behind row A has caved";
  EXPECT_NEAR(At(cells, grid, 40, -45), 1, 1e-12) << "row A stays";
  EXPECT_NEAR(At(cells, grid, 0, -45), 0, 1e-12) << "and so does its entry";
  EXPECT_NEAR(At(cells, grid, 350, -45), gob, 1e-12) << "the slab cut";
  EXPECT_NEAR(At(cells, grid, 350, -5), 1, 1e-12) << "none beside the open crosscut";
  EXPECT_NEAR(At(cells, grid, 400, -45), 1, 1e-12) << "what is left of the barrier";
  EXPECT_NEAR(At(cells, grid, 350, -520), 1, 1e-12) << "inby the gob the barrier is whole";
  EXPECT_NEAR(At(cells, grid, 0, -520), 1, 1e-12) << "and the coal solid";
  EXPECT_EQ(layout.RemnantLength, (320 - 80 + 40) / 2.0);
}

TEST(Layout, OverloadedPartsKeepWhatTheyAreGiven) {
  Panel panel = TestPanel(1000, 80, 90, 5, kTwoSideGobs);
  panel.Sides[0].BleederRow = true;
  panel.Sides[0].BleederWidth = 40;
  const Layout layout = LayOut(panel);
  const Grid grid = GridFor(layout);
  const Yield yield = {
      .Barrier = {0.5, 1}, .BesideGob = {0.25, 1}, .Bleeder = {0.75, 1}, .BleederBesideGob = {0.125, 1}};
  const auto development = DevelopmentStiffness(layout, grid, yield);
  EXPECT_NEAR(At(development, grid, -70, 60), 0.5, 1e-12);
  EXPECT_NEAR(At(development, grid, -70, -60), 0.5, 1e-12);
  EXPECT_NEAR(At(development, grid, -170, -45), 0.75, 1e-12);
  const auto retreat = RetreatStiffness(layout, grid, yield);
  EXPECT_NEAR(At(retreat, grid, -70, 60), 0.5, 1e-12);
  EXPECT_NEAR(At(retreat, grid, -70, -60), 0.25, 1e-12);
  EXPECT_NEAR(At(retreat, grid, -170, 45), 0.75, 1e-12);
  EXPECT_NEAR(At(retreat, grid, -170, -45), 0.125, 1e-12);
  EXPECT_NEAR(At(retreat, grid, 390, 60), 1, 1e-12);
}

TEST(Layout, WithoutARoomForItThereIsNoActiveGob) {
  Panel panel = TestPanel(1000, 80, 90, 2, kActiveGob);
  panel.RowA = panel.RowB = true;
  EXPECT_FALSE(LayOut(panel).Retreats);
  panel.RowA = panel.RowB = false;
  EXPECT_TRUE(LayOut(panel).Retreats);
  panel.ExtentActiveGob = 0;
  EXPECT_FALSE(LayOut(panel).Retreats);
}

TEST(Layout, TheGridFollowsItsRuleAndItsBound) {
  const Panel panel = TestPanel(1000, 80, 90, 5, kTwoSideGobs);
  const Layout layout = LayOut(panel);
  const Grid grid = GridFor(layout);
  EXPECT_LE(grid.Cx, 20.0 / 5);
  EXPECT_NEAR(grid.Cx / grid.Cy, 1, 0.1);
  EXPECT_EQ(grid.Nx % 32, 0);
  EXPECT_EQ(grid.Ny % 32, 0);
  EXPECT_NEAR(std::remainder(grid.Y0 + grid.Ny * grid.Cy, 45), 0, 1e-9) << "the outby end mirrors the array";
  EXPECT_NEAR(std::remainder(grid.Y0, 45), 0, 1e-9) << "and so does the inby end";
  EXPECT_LE(grid.X0, -10 - 120 - 6 * layout.Length);

  Panel vast = panel;
  vast.Sides[0].Extent = vast.Sides[1].Extent = vast.ExtentActiveGob = 1e5;
  vast.Sides[0].AbutmentAngle = vast.Sides[1].AbutmentAngle = vast.AbutmentAngleActiveGob = 89;
  vast.DepthCover = 1e4;
  vast.XcutAngle = 1;
  for (const double spacing : {1.0, 90.0, 1e5}) {
    vast.XcutSpacing = spacing;
    EXPECT_LE(GridFor(LayOut(vast)).Cells(), 1'200'000) << spacing;
  }
}

}  // namespace
}  // namespace korva::laminated
