#include <gtest/gtest.h>

#include <cstring>

#include "Factors.h"
#include "Ground.h"
#include "Status.h"
#include "korvastrond.h"

namespace korva::laminated {
namespace {

constexpr GridRule kCoarse = {.CellFactor = 2};

std::vector<double> Values(const Factors& f) {
  std::vector<double> values(f.Pillars.begin(), f.Pillars.end());
  for (int c = 0; c < kCases; ++c) {
    for (std::size_t side = 0; side < kSides; ++side) {
      values.push_back(f.BarrierFactor.at(static_cast<std::size_t>(c)).at(side));
      values.push_back(f.RemnantFactor.at(static_cast<std::size_t>(c)).at(side));
    }
  }
  return values;
}

void ExpectNear(const Factors& a, const Factors& b, double share) {
  const std::vector<double> va = Values(a);
  const std::vector<double> vb = Values(b);
  for (std::size_t i = 0; i < va.size(); ++i) {
    EXPECT_NEAR(va[i], vb[i], share * va[i]) << i;
  }
}

Panel DeepPanel() {
  Panel panel = TestPanel(1000, 80, 90, 6, kTwoSideGobs);
  panel.Sides[0].SlabCut = 40;
  panel.Sides[1].Barrier = 60;
  panel.Sides[1].BleederRow = true;
  panel.Sides[1].BleederWidth = 45;
  return panel;
}

TEST(Factors, AShallowWidePanelBearsItsTributaryLoad) {
  const Panel panel = TestPanel(100, 60, 70, 10, kDevelopmentOnly);
  const Factors f = ComputeFactors(panel);
  const double strength = 900 * PillarShape(40, 50, 6);
  const double tributary = strength * 144 * 40 * 50 / (162.0 * 100 * 60 * 70);
  EXPECT_NEAR(f.PillarStrength[0], strength, 1e-9);
  // Solid coal beside the panel takes a little of its edge rows.
  EXPECT_GT(f.Pillars[0], tributary);
  EXPECT_LT(f.Pillars[0], 1.1 * tributary);
  EXPECT_EQ(f.Pillars[1], f.Pillars[0]);
  EXPECT_EQ(f.Barrier[0].Area, 0);
}

// Barriers, remnants and areas by hand; loads from the grid.
TEST(Factors, StrengthsAndAreasAreThoseOfTheFormulas) {
  const Factors f = ComputeFactors(DeepPanel(), {.Cells = kCoarse});
  EXPECT_NEAR(f.Barrier[0].Strength, 900 * (0.64 + 0.54 * 120 / 6), 1e-9);
  EXPECT_NEAR(f.Barrier[0].Area, 120 * 5 * std::sqrt(1000.0), 1e-9);
  EXPECT_NEAR(f.Remnant[0].Strength, 900 * (0.64 + 0.54 * 80 / 6), 1e-9);
  // Half the panel's width with its slab cut is more than 500 ft of gob reach, and less than half its extent.
  EXPECT_NEAR(f.Remnant[0].Area, 80 * (400 + 40) / 2.0, 1e-9);
  EXPECT_NEAR(f.BarrierFactor[1][0], f.Barrier[0].Strength * 144 * f.Barrier[0].Area / f.Barrier[0].Load[1],
              1e-12);
  EXPECT_GT(f.Barrier[0].Load[1], f.Barrier[0].Load[0]);
  EXPECT_DOUBLE_EQ(PillarShape(30, 30, 6), 0.64 + 0.54 * 5 - 0.18 * 5);
  EXPECT_EQ(LongPillarShape(5.999, 6), 0);
  EXPECT_DOUBLE_EQ(LongPillarShape(6, 6), 0.64 + 0.54);
}

TEST(Factors, AMirroredPanelHasMirroredFactors) {
  for (const double angle : {90.0, 60.0}) {
    Panel panel = DeepPanel();
    panel.XcutAngle = angle;
    panel.Entries = 5;  // an odd count has its apex in the middle
    panel.Centers = {70, 80, 80, 90};
    Panel mirrored = panel;
    mirrored.Centers = {90, 80, 80, 70};
    std::swap(mirrored.Sides[0], mirrored.Sides[1]);
    if (angle < 90) {
      panel.Centers = mirrored.Centers = {80, 80, 80, 80};
    }
    const Factors a = ComputeFactors(panel, {.Cells = kCoarse});
    const Factors b = ComputeFactors(mirrored, {.Cells = kCoarse});
    for (std::size_t c = 0; c < kCases; ++c) {
      EXPECT_NEAR(a.Pillars.at(c), b.Pillars.at(c), 1e-6) << angle;
      for (std::size_t side = 0; side < kSides; ++side) {
        EXPECT_NEAR(a.BarrierFactor.at(c).at(side), b.BarrierFactor.at(c).at(1 - side), 1e-6) << angle;
        EXPECT_NEAR(a.RemnantFactor.at(c).at(side), b.RemnantFactor.at(c).at(1 - side), 1e-6) << angle;
      }
    }
  }
}

TEST(Factors, ThePanelInMetersHasTheSameFactors) {
  constexpr double kMeter = 1 / 3.280839895013123;
  const Panel panel = DeepPanel();
  Panel metric = panel;
  metric.Metric = true;
  for (double* length : {&metric.EntryHeight, &metric.DepthCover, &metric.EntryWidth, &metric.XcutSpacing,
                         &metric.ExtentActiveGob, &metric.BreadthAMZ}) {
    *length *= kMeter;
  }
  for (double& center : metric.Centers) {
    center *= kMeter;
  }
  for (Side& side : metric.Sides) {
    for (double* length : {&side.Extent, &side.Barrier, &side.SlabCut, &side.BleederWidth}) {
      *length *= kMeter;
    }
  }
  metric.CoalStrength /= 145.0377;
  metric.UnitWeight /= 6.3663022639200495;
  const Factors f = ComputeFactors(metric, {.Cells = kCoarse});
  ExpectNear(ComputeFactors(panel, {.Cells = kCoarse}), f, 1e-4);
  EXPECT_NEAR(f.PillarStrength[0], PillarShape(60, 70, 6) * 900 / 145.0377 * 1e6, 1);
}

TEST(Factors, FinerCellsAndWiderMarginsChangeNothingThatCounts) {
  const Panel panel = TestPanel(700, 70, 80, 5, kOneSideGob);
  const Factors byRule = ComputeFactors(panel);
  const Factors finer = ComputeFactors(panel, {.Cells = {.CellFactor = 0.5, .MostCells = 4e6}});
  EXPECT_NEAR(byRule.Pillars[0], finer.Pillars[0], 5e-4 * finer.Pillars[0]);
  EXPECT_NEAR(byRule.Pillars[1], finer.Pillars[1], 5e-4 * finer.Pillars[1]);
  ExpectNear(byRule, finer, 1e-3);
  ExpectNear(byRule, ComputeFactors(panel, {.Cells = {.Margin = 12}}), 3e-4);
}

TEST(Factors, TheRunIsTheSameToTheLastBit) {
  const Factors a = ComputeFactors(DeepPanel(), {.Cells = kCoarse});
  const Factors b = ComputeFactors(DeepPanel(), {.Cells = kCoarse});
  const std::vector<double> va = Values(a);
  EXPECT_EQ(std::memcmp(va.data(), Values(b).data(), va.size() * sizeof(double)), 0);
}

TEST(Factors, NothingYieldsThatCanBearItsLoad) {
  Panel panel = TestPanel(600, 70, 80, 5, kTwoSideGobs);
  const std::vector<double> with = Values(ComputeFactors(panel, {.Cells = kCoarse}));
  const std::vector<double> without = Values(ComputeFactors(panel, {.Cells = kCoarse, .Yields = false}));
  EXPECT_EQ(std::memcmp(with.data(), without.data(), with.size() * sizeof(double)), 0);
}

TEST(Factors, AnOverloadedBarrierSendsItsLoadBack) {
  Panel panel = TestPanel(1000, 60, 80, 6, kOneSideGob);
  double before = 0;
  for (const double width : {10.0, 20.0, 40.0, 60.0}) {
    panel.Sides[0].Barrier = width;
    const Factors f = ComputeFactors(panel, {.Cells = kCoarse});
    EXPECT_GE(f.Pillars[1], before) << width;
    before = f.Pillars[1];
    if (f.BarrierFactor[1][0] < 1) {
      EXPECT_LT(f.Runs[1].Kept.Barrier[0], 1) << width;
      EXPECT_GT(f.Runs[1].Solutions, 1) << width;
      EXPECT_LT(f.Pillars[1], ComputeFactors(panel, {.Cells = kCoarse, .Yields = false}).Pillars[1]) << width;
    }
  }
  panel.Sides[0].Barrier = 5.9;  // narrower than high: it bears a load but counts for nothing
  const Factors narrow = ComputeFactors(panel, {.Cells = kCoarse});
  EXPECT_EQ(narrow.Barrier[0].Strength, 0);
  EXPECT_EQ(narrow.BarrierFactor[0][0], 0);
  EXPECT_GT(narrow.Barrier[0].Load[0], 0);
}

TEST(Factors, WhatDoesNotSettleIsAFailureAndNoFactor) {
  const auto codeOf = [](const FactorRule& rule) -> int {
    Panel panel = TestPanel(1000, 60, 80, 6, kOneSideGob);
    panel.Sides[0].Barrier = 20;
    try {
      ComputeFactors(panel, rule);
    } catch (const Failure& failure) {
      return failure.Code;
    }
    return KORVASTROND_DONE;
  };
  EXPECT_EQ(codeOf({.Cells = kCoarse}), KORVASTROND_DONE);
  EXPECT_EQ(codeOf({.Cells = kCoarse, .Solution = {.MostIterations = 2}}), KORVASTROND_NO_CONVERGENCE);
  EXPECT_EQ(codeOf({.Cells = kCoarse, .MostYieldSteps = 2}), KORVASTROND_NO_YIELD_BALANCE);
}

TEST(Factors, TheDirectionsOfTheEngineersExperience) {
  const Panel panel = TestPanel(700, 70, 80, 5, kOneSideGob);
  const Factors base = ComputeFactors(panel, {.Cells = kCoarse});
  const auto retreat = [](Panel p) { return ComputeFactors(p, {.Cells = kCoarse}).Pillars[1]; };
  EXPECT_LT(base.Pillars[1], base.Pillars[0]);
  Panel changed = panel;
  changed.DepthCover = 900;
  EXPECT_LT(retreat(changed), base.Pillars[1]);
  changed = panel;
  changed.LoadCondition = kTwoSideGobs;
  changed.Sides[1] = changed.Sides[0];
  EXPECT_LT(retreat(changed), base.Pillars[1]);
  changed = panel;
  changed.Sides[0].SlabCut = 60;
  EXPECT_LT(retreat(changed), base.Pillars[1]);
  changed = panel;
  changed.RowA = true;
  EXPECT_GT(retreat(changed), base.Pillars[1]);
  changed = panel;
  changed.EntryHeight = 8;
  EXPECT_LT(retreat(changed), base.Pillars[1]);
}

TEST(Factors, RowsThatStayLeaveTheSumAtAnActiveGobAlone) {
  Panel panel = TestPanel(500, 60, 80, 7, kActiveGob);
  panel.Centers[0] = 100;  // a strong row at the edge
  const double with = ComputeFactors(panel, {.Cells = kCoarse}).Pillars[0];
  panel.RowA = true;
  const double without = ComputeFactors(panel, {.Cells = kCoarse}).Pillars[0];
  EXPECT_LT(without, 0.9 * with);
  panel.Entries = 2;
  panel.RowB = true;
  EXPECT_EQ(ComputeFactors(panel, {.Cells = kCoarse}).Pillars[0], 0) << "no row is left";
}

TEST(Factors, AbsentPillarsBearNothing) {
  Panel panel = TestPanel(300, 60, 60, 4, kActiveGob);
  panel.Centers[1] = 20;  // as wide as the entries
  const Factors f = ComputeFactors(panel, {.Cells = kCoarse});
  EXPECT_EQ(f.PillarStrength[1], 0);
  EXPECT_GT(f.PillarStrength[0], 0);
  EXPECT_GT(f.Pillars[1], 0);
  panel.XcutSpacing = 20;
  const Factors none = ComputeFactors(panel, {.Cells = kCoarse});
  EXPECT_EQ(none.Pillars[0], 0);
  EXPECT_EQ(none.Pillars[1], 0);
}

}  // namespace
}  // namespace korva::laminated
