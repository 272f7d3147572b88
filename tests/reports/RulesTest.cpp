#include <gtest/gtest.h>

#include <vector>

#include "reports/Rules.h"
#include "support/Panels.h"

namespace korva {
namespace {

using Flags = std::vector<int>;

// A run with just the values that the rules read: sound pillars in a narrow panel without active gob.
struct Judged {
  Project Record = test::DevelopmentPanel();
  Calculation Run;

  Judged(double depth, double width, int loadCond, double sf, double barrierSF = 10) {
    WorkValues& w = Run.Work;
    w.DepthCover = depth;
    w.PanelWidth = width;
    w.LoadCond = loadCond;
    w.NumRows = 1;
    w.EntryHeight = width / 10;  // a mean ratio of 10
    Run.Out.SFKorva[kDevelopment] = Run.Out.SFKorva[kRetreat] = sf;
    for (int c = kDevelopment; c <= kRetreat; ++c) {
      Run.Out.BarrierSF[c][3] = Run.Out.BarrierSF[c][4] = barrierSF;
    }
  }

  Flags Set(std::int16_t roundKORVASF = 0) const {
    const RuleOutcome outcome = EvaluateRules(Record, Run, roundKORVASF);
    Flags set;
    for (int flag = 0; flag <= 15; ++flag) {
      if (outcome.RuleFlags[flag]) {
        set.push_back(flag);
      }
    }
    EXPECT_EQ(outcome.AnyWarning, !set.empty());
    return set;
  }
};

TEST(Rules, LowFactorsByDepthAndWidth) {
  struct Case {
    double depth, width, sf;
    Flags set;
  };
  for (const auto& [depth, width, sf, set] : std::vector<Case>{
           {650, 400, 1.5, {}},
           {650, 400, 1.49, {0}},
           {650.1, 400, 1.49, {1}},  // the factor asked for there still rounds to 1.50
           {1000, 425, 1.3, {}},     // 1.5 - 350 x 0.2/350
           {1000, 425, 1.29, {1}},
           {1000, 425.1, 1.3, {1}},
           {825, 425, 1.4, {}},
           {825, 425, 1.39, {1}},
           {1000.1, 425, 1.3, {}},
           {1000.1, 425, 1.29, {2}},
           {1000.1, 425.1, 1.49, {2}},
           {1000.1, 425.1, 1.5, {}},
       }) {
    EXPECT_EQ(Judged(depth, width, 2, sf).Set(), set) << depth << " " << width << " " << sf;
    // Beside a side gob a narrow panel asks for a barrier factor of 2.0 as well.
    EXPECT_EQ(Judged(depth, width, 3, sf, 2.0).Set(), set) << depth << " " << width << " " << sf;
  }
  EXPECT_EQ(Judged(1000, 425, 3, 1.3, 1.999).Set(), Flags{1});
  EXPECT_EQ(Judged(1000.1, 425, 3, 1.3, 1.999).Set(), Flags{2});
}

TEST(Rules, BarrierFactors) {
  EXPECT_EQ(Judged(650, 400, 3, 3, 1.0).Set(), Flags{});
  EXPECT_EQ(Judged(650.1, 400, 3, 3, 1.5).Set(), Flags{});
  EXPECT_EQ(Judged(650.1, 400, 3, 3, 1.4999).Set(), (Flags{3, 8}));
  // In 32 bits this is 1.5: the rule of the smallest factor lets it pass, that of a printed one does not.
  EXPECT_EQ(Judged(650.1, 400, 3, 3, 1.4999999999).Set(), Flags{8});

  const Judged noSideGob(900, 400, 2, 3, 1.0);
  EXPECT_EQ(noSideGob.Set(), Flags{});
  EXPECT_EQ(EvaluateRules(noSideGob.Record, noSideGob.Run, 0).Facts.MinBarrierSF, 10000);
}

TEST(Rules, JudgeBothCasesButOnlyPrintedBarriers) {
  Judged run(700, 500, 3, 3, 3);
  run.Run.Out.SFKorva[kRetreat] = 1.0;  // not printed without active gob, but judged
  run.Run.Out.BarrierSF[kRetreat][3] = 1.0;
  run.Run.Out.BarrierSF[kDevelopment][4] = 1.0;  // no second barrier at this condition
  EXPECT_EQ(run.Set(), Flags{1});
  run.Record.ExtentActiveGob = 1;
  EXPECT_EQ(run.Set(), (Flags{1, 3, 8}));
}

TEST(Rules, SlenderPillars) {
  const auto set = [](double sf, double ratio) {
    Judged run(400, 300, 1, sf);
    run.Run.Work.EntryHeight = 300 / ratio;
    return run.Set();
  };
  EXPECT_EQ(set(1.99, 3.99), Flags{5});
  EXPECT_EQ(set(1.994, 3.99), Flags{5});
  EXPECT_EQ(set(1.996, 3.99), Flags{});  // shown as 2.00
  EXPECT_EQ(set(1.99, 4), Flags{});
}

TEST(Rules, DepthBeneathAnActiveGob) {
  const auto set = [](double depth, double extent) {
    Judged run(depth, 300, 2, 3);
    run.Record.ExtentActiveGob = extent;
    return run.Set();
  };
  EXPECT_EQ(set(1000, 500), Flags{});
  EXPECT_EQ(set(1000.1, 500), Flags{7});
  EXPECT_EQ(set(2000, 500), Flags{7});
  EXPECT_EQ(set(2000.1, 500), (Flags{6, 7}));
  EXPECT_EQ(set(2000.1, 0), Flags{});
}

TEST(Rules, FollowTheRoundingOption) {
  EXPECT_EQ(Judged(500, 300, 1, 1.4999).Set(0), Flags{});
  EXPECT_EQ(Judged(500, 300, 1, 1.4999).Set(1), Flags{0});
  EXPECT_EQ(Judged(500, 300, 1, 1.4999).Set(2), Flags{0});
  // At 700 ft 1.4714 is asked for: 1.47, as it stands, 1.47.
  EXPECT_EQ(Judged(700, 300, 1, 1.471).Set(0), Flags{});
  EXPECT_EQ(Judged(700, 300, 1, 1.471).Set(1), Flags{1});
  EXPECT_EQ(Judged(700, 300, 1, 1.471).Set(2), Flags{});
}

TEST(Rules, CompareMetricPanelsInFeet) {
  const auto set = [](double depth, double width, double sf, double extent = 0) {
    Judged run(depth, width, 2, sf);
    run.Run.Work.Units = kMetric;
    run.Record.UnitWeight = 25.45;
    run.Record.CoalStrength = 6.21;
    run.Record.ExtentActiveGob = extent;
    return run.Set();
  };
  EXPECT_EQ(set(198.12, 100, 1.49), Flags{0});  // 650 ft
  EXPECT_EQ(set(198.13, 100, 1.49), Flags{1});
  EXPECT_EQ(set(304.8, 129.54, 1.3), Flags{});  // 1000 ft and 425 ft
  EXPECT_EQ(set(304.8, 129.6, 1.3), Flags{1});
  EXPECT_EQ(set(304.81, 129.54, 1.29), Flags{2});
  EXPECT_EQ(set(609.6, 100, 3, 1), Flags{7});  // 2000 ft
  EXPECT_EQ(set(609.61, 100, 3, 1), (Flags{6, 7}));
}

TEST(Rules, SettingsThatDifferFromTheDataBase) {
  const auto set = [](int loadCond, const auto& put, std::int16_t units = kEnglish) {
    Judged run(400, 300, loadCond, 3);
    run.Run.Work.Units = units;
    put(run.Record);
    return run.Set();
  };
  EXPECT_EQ(set(1, [](Project& p) { p.AMZAuto = 2; }), Flags{9});
  EXPECT_EQ(set(1, [](Project& p) { p.UnitWeight = 162.0001; }), Flags{10});
  EXPECT_EQ(set(1, [](Project& p) { p.CoalStrength = 901; }), Flags{11});
  EXPECT_EQ(set(1, [](Project& p) { p.ArchAuto = 0; }), Flags{14});
  EXPECT_EQ(set(1, [](Project& p) { p.ArchFactor = 0.99F; }), Flags{15});  // whatever the run computes
  EXPECT_EQ(set(
                1, [](Project& p) { p = EmptyProject(kMetric); }, kMetric),
            (Flags{10, 11}));

  // Angles count where their gob does; two side gobs are a warning of their own.
  const auto active = [](Project& p) { p.AbutmentAngleActiveGob = 20; };
  const auto first = [](Project& p) { p.AbutmentAngleFirstGob = 20; };
  const auto second = [](Project& p) { p.AbutmentAngleSecondGob = 20; };
  EXPECT_EQ(set(1, active), Flags{});
  EXPECT_EQ(set(2, active), Flags{12});
  EXPECT_EQ(set(2, first), Flags{});
  EXPECT_EQ(set(3, first), Flags{12});
  EXPECT_EQ(set(3, second), Flags{});
  EXPECT_EQ(set(4, second), (Flags{12, 13}));
}

}  // namespace
}  // namespace korva
