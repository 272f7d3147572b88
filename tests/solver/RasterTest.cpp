#include <gtest/gtest.h>

#include <numeric>

#include "Ground.h"
#include "Layout.h"
#include "Raster.h"

namespace korva::laminated {
namespace {

double Covered(const Grid& grid, const CrosscutLine& line, const Ground& ground) {
  return IntegralOver(std::vector<double>(grid.Cells(), 1.0), grid, line, ground);
}

TEST(Raster, ARectangleCoversItsAreaCellByCell) {
  const Grid grid = {.X0 = -1, .Y0 = -2, .Cx = 0.5, .Cy = 0.25, .Nx = 10, .Ny = 20};
  std::vector<double> cells(grid.Cells());
  AddStiffness(cells, grid, CrosscutLine(), {.X0 = -0.25, .X1 = 1.1, .Y0 = 0, .Y1 = 0.3}, 2);
  EXPECT_DOUBLE_EQ(cells[grid.At(1, 8)], 2 * 0.5);
  EXPECT_DOUBLE_EQ(cells[grid.At(2, 8)], 2);
  EXPECT_NEAR(cells[grid.At(4, 9)], 2 * 0.2 * 0.2, 1e-15);
  EXPECT_EQ(cells[grid.At(0, 8)], 0);
  EXPECT_NEAR(std::accumulate(cells.begin(), cells.end(), 0.0) * grid.CellArea(), 2 * 1.35 * 0.3, 1e-14);
}

TEST(Raster, WhatLiesBeyondTheGridIsLeftOut) {
  const Grid grid = {.Nx = 4, .Ny = 4};
  EXPECT_EQ(Covered(grid, {}, {.X0 = -kUnbounded, .X1 = kUnbounded}), 16);
  EXPECT_EQ(Covered(grid, {}, {.X0 = 5, .X1 = 9}), 0);
  EXPECT_EQ(Covered(grid, {}, {.X0 = 3, .X1 = 2}), 0);
  EXPECT_EQ(Covered(grid, {}, {.X0 = -3, .X1 = 1, .Y0 = 3.5, .Y1 = 8}), 0.5);
}

TEST(Raster, TheShareOfASlantingEdgeIsExact) {
  EXPECT_DOUBLE_EQ(ReachIntoBand(0, 1, 0, 1), 0.5);
  EXPECT_DOUBLE_EQ(ReachIntoBand(-1, 3, 0, 1), 0.625);
  EXPECT_DOUBLE_EQ(ReachIntoBand(3, -1, 0, 1), 0.625);
  EXPECT_EQ(ReachIntoBand(2, 5, 0, 1), 1);
  EXPECT_EQ(ReachIntoBand(-5, -2, 0, 1), 0);
  EXPECT_NEAR(ReachIntoBand(0.3, 0.3 + 1e-12, 0, 1), 0.3, 1e-12);
}

TEST(Raster, TheCrosscutLineIsLevelOutsideAndMeansNothingOverThePanel) {
  const CrosscutLine line(0.5, 30, -10, 90);
  double sum = 0;
  for (int i = 0; i < 1000; ++i) {
    sum += line.At(-10 + (i + 0.5) * 0.1);
  }
  EXPECT_NEAR(sum / 1000, 0, 1e-4);
  EXPECT_EQ(line.At(-500), line.At(-10));
  EXPECT_EQ(line.At(500), line.At(90));
  EXPECT_NEAR(line.At(30) - line.At(90), 30, 1e-12);
  EXPECT_EQ(line.Highest(), line.At(30));
}

TEST(Raster, PillarsHaveTheirAreaAndNoCellBearsMoreThanSolidCoal) {
  for (const double angle : {90.0, 71.3, 45.0}) {
    Panel panel = TestPanel(800, 67.3, 83.9, 6, kTwoSideGobs);
    panel.XcutAngle = angle;
    panel.RowB = true;
    panel.Sides[0].SlabCut = 31.7;
    panel.Sides[1].BleederRow = true;
    panel.Sides[1].BleederWidth = 37.1;
    const Layout layout = LayOut(panel);
    const Grid grid = GridFor(layout, {.CellFactor = 1.7});
    for (const auto& [row, along] : {std::pair{0, 0}, std::pair{2, 1}, std::pair{4, -1}}) {
      const Ground pillar = layout.Pillar(row, along);
      const double area = (pillar.X1 - pillar.X0) * (pillar.Y1 - pillar.Y0);
      EXPECT_NEAR(Covered(grid, layout.Line, pillar), area, 1e-12 * area) << angle;
    }
    for (const auto& cells : {DevelopmentStiffness(layout, grid, {}), RetreatStiffness(layout, grid, {})}) {
      EXPECT_LE(*std::max_element(cells.begin(), cells.end()), 1 + 1e-12) << angle;
      EXPECT_GE(*std::min_element(cells.begin(), cells.end()), -1e-12) << angle;
    }
  }
}

}  // namespace
}  // namespace korva::laminated
