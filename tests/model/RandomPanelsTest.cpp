// Properties that hold for any panel, tried on random ones.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "model/KORVAmodel.h"
#include "support/Panels.h"

namespace korva {
namespace {

Results ResultsOf(const Project& p, UnitSystem units = kEnglish) {
  Prepared prepared = PrepareCalculation(p, units);
  EXPECT_EQ(prepared.Refusal.value_or(""), "");
  RunCalculation(prepared.Run);
  return prepared.Run.Out;
}

// Random panels within what a person would enter, at any condition, with entered breadth and arch factor.
class PanelSource {
 public:
  Project Next() {
    Project p;
    p.EntryHeight = Between(3, 14);
    p.DepthCover = Between(100, 2500);
    p.EntryWidth = Between(14, 24);
    p.XcutSpacing = Between(60, 140);
    p.XcutAngle = Between(50, 90);
    test::SetRows(p, static_cast<int>(Between(1, 9.99)), 0);
    for (int i = 1; i < p.NumberEntries; ++i) {
      p.XcutCenters[i] = Between(40, 120);
    }
    p.CoalStrength = Between(500, 1500);
    p.UnitWeight = Between(140, 180);
    p.BreadthAMZ = Between(50, 400);
    p.LoadingCondition = static_cast<PanelLoading>(Between(0, 3.99));
    p.ArchAuto = 0;
    p.ArchFactor = static_cast<float>(Between(0.28, 1));
    for (double Project::*extent :
         {&Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::ExtentSecondGob}) {
      p.*extent = Between(0, 2000);
    }
    p.BarrierFirstGob = Between(0, 200);
    p.SlabcutFirstGob = Between(0, p.BarrierFirstGob);
    p.BarrierSecondGob = Between(0, 200);
    p.RowC = Between(0, 1) < 0.3 ? 1 : 0;
    p.WidthRowC = static_cast<float>(Between(5, 60));
    return p;
  }

 private:
  double Between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
  std::mt19937 random_{20240229};
};

// The same panel in meters. kN/m3 have the program's factor; strength has the one that goes with it, so that
// strengths and loads keep their ratio: the program's own psi to MPa factor is off by 7E-05.
Project Metric(Project p) {
  for (double Project::*length :
       {&Project::EntryHeight, &Project::DepthCover, &Project::EntryWidth, &Project::XcutSpacing,
        &Project::BreadthAMZ, &Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::BarrierFirstGob,
        &Project::SlabcutFirstGob, &Project::ExtentSecondGob, &Project::BarrierSecondGob}) {
    p.*length /= kFeetPerMeter;
  }
  for (double& center : p.XcutCenters) {
    center /= kFeetPerMeter;
  }
  p.CoalStrength *= 144 / kPcfPerKNm3 / kFeetPerMeter / 1000;
  p.UnitWeight /= kPcfPerKNm3;
  return p;
}

TEST(RandomPanels, UnitSystemsAgree) {
  PanelSource panels;
  for (int n = 0; n < 500; ++n) {
    Project p = panels.Next();
    p.RowC = 0;  // its width has 32 bits only
    const Results english = ResultsOf(p, kEnglish);
    const Results metric = ResultsOf(Metric(p), kMetric);
    for (int c = kDevelopment; c <= kRetreat; ++c) {
      EXPECT_NEAR(metric.SFKorva[c], english.SFKorva[c], 1e-9 * english.SFKorva[c]) << n;
      for (int k = 3; k <= 4; ++k) {
        EXPECT_NEAR(metric.BarrierSF[c][k], english.BarrierSF[c][k], 1e-9 * english.BarrierSF[c][k]) << n;
      }
    }
    for (int k = 3; k <= 4; ++k) {
      EXPECT_NEAR(metric.RemnantSF[k], english.RemnantSF[k], 1e-9 * std::abs(english.RemnantSF[k])) << n;
    }
  }
}

TEST(RandomPanels, SidesAreAlike) {
  PanelSource panels;
  for (int n = 0; n < 200; ++n) {
    Project p = test::AtCondition(panels.Next(), 3);
    p.SlabcutSecondGob = p.BarrierSecondGob / 3;
    p.AbutmentAngleSecondGob = 30;
    p.RowD = 1;
    p.WidthRowD = 30;
    const Results here = ResultsOf(p);
    std::swap(p.ExtentFirstGob, p.ExtentSecondGob);
    std::swap(p.AbutmentAngleFirstGob, p.AbutmentAngleSecondGob);
    std::swap(p.BarrierFirstGob, p.BarrierSecondGob);
    std::swap(p.SlabcutFirstGob, p.SlabcutSecondGob);
    std::swap(p.RowC, p.RowD);
    std::swap(p.WidthRowC, p.WidthRowD);
    const Results there = ResultsOf(p);
    for (int c = kDevelopment; c <= kRetreat; ++c) {
      EXPECT_NEAR(there.SFKorva[c], here.SFKorva[c], 1e-9 * here.SFKorva[c]) << n;
      EXPECT_NEAR(there.BarrierSF[c][3], here.BarrierSF[c][4], 1e-9 * here.BarrierSF[c][4]) << n;
      EXPECT_NEAR(there.BarrierSF[c][4], here.BarrierSF[c][3], 1e-9 * here.BarrierSF[c][3]) << n;
    }
    EXPECT_NEAR(there.RemnantSF[4], here.RemnantSF[3], 1e-9 * std::abs(here.RemnantSF[3])) << n;
    EXPECT_NEAR(there.SideStressFirst[1], here.SideStressSecond[1], 1e-9 * here.SideStressSecond[1]) << n;
  }
}

// Without a gob near, and with breadth and arch factor entered, capacity does not know the depth and the load
// is proportional to it. (An automatic arch factor takes off more the deeper the panel lies, in steps of
// 0.01.)
TEST(RandomPanels, DepthNeverRaisesTheDevelopmentFactor) {
  PanelSource panels;
  for (int n = 0; n < 200; ++n) {
    Project p = test::AtCondition(panels.Next(), 0);
    double before = ResultsOf(p).SFKorva[kRetreat];
    for (int step = 0; step < 5; ++step) {
      p.DepthCover *= 1.01;
      const double factor = ResultsOf(p).SFKorva[kRetreat];
      EXPECT_LT(factor, before) << n;
      before = factor;
    }
  }
}

}  // namespace
}  // namespace korva
