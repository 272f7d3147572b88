#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "graphs/Sweep.h"
#include "model/KORVAmodel.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

SweepData Traditional(GraphKind graph, Project project, SweepRange range = {50, 150}) {
  const Prepared prepared = PrepareCalculation(project, kEnglish);
  EXPECT_FALSE(prepared.Refusal);
  return RunSweep(graph, range, prepared.Run, project, nullptr).Data;
}

// A solver whose factors tell the panel that it was given.
StrondResults Echo(const Project& project) {
  StrondResults results;
  results.StrondSF[0] = project.DepthCover;
  results.StrondSF[1] = project.XcutAngle;
  results.StrondBarrierSF[0][0] = static_cast<float>(project.BarrierFirstGob);
  results.StrondBarrierSF[1][0] = 7;
  results.StrondBarrierSF[0][1] = static_cast<float>(project.DepthCover);
  results.StrondBarrierSF[1][1] = 9;
  return results;
}

LaminatedSweep EchoSweep() {
  return {Echo, [](int, int) { return true; }};
}

TEST(SweepStepsFor, AreWorkedByHand) {
  // (1.5 + 1 - 0.5) / 50 of 100.
  const SweepSteps fine = SweepStepsFor(kDepthGraph, 100, {50, 150}, false);
  EXPECT_EQ(fine.Low, 50);
  EXPECT_EQ(fine.High, 150);
  EXPECT_EQ(fine.Step, static_cast<float>(100 * static_cast<double>(0.04F)));
  EXPECT_EQ(fine.PointCapacity, 27);
  // (1.5 + 1 - 1) / 10 = 0.15; 0.5 / 0.15 + 2 = 5.33.
  EXPECT_EQ(SweepStepsFor(kDepthGraph, 100, {100, 150}, true).PointCapacity, 5);
  EXPECT_EQ(SweepStepsFor(kFirstBarrierGraph, 0, {50, 150}, false).Step, 1);
  EXPECT_EQ(SweepStepsFor(kDepthGraph, 100, {150, 50}, false).Step, 100) << "no range, no step";
  EXPECT_EQ(SweepStepsFor(kDepthGraph, 10, {50, 50}, false).PointCapacity, 2);
  ExpectError(ErrorNumber::kOverflow, [] { SweepStepsFor(kDepthGraph, 1e39, {50, 150}, false); });
}

TEST(RunSweep, CountsItsStepsByTheRange) {
  const Project panel = test::TwoSideGobs();
  EXPECT_EQ(Traditional(kDepthGraph, panel).PointCount, 26);
  EXPECT_EQ(Traditional(kDepthGraph, panel).CurveCount, 2);
  EXPECT_EQ(Traditional(kDepthGraph, panel).Partial, "");
  EXPECT_EQ(Traditional(kFirstBarrierGraph, panel).PointCount, 25) << "60 ft: widths are narrowed each time";
  EXPECT_EQ(Traditional(kDepthGraph, panel, {70, 70}).PointCount, 1);
  EXPECT_EQ(Traditional(kBarrierDepthGraph, panel).PointCount, 6) << "coarse in any model";
  Project copy = panel;
  const LaminatedSweep laminated = EchoSweep();
  const auto both =
      RunSweep(kDepthGraph, {100, 150}, PrepareCalculation(panel, kEnglish).Run, copy, &laminated);
  EXPECT_EQ(both.Data.PointCount, 4);
  EXPECT_EQ(both.Data.PointCapacity, 5);
  EXPECT_EQ(both.Data.CurveCount, 4);
}

TEST(RunSweep, APointIsARunAtItsValue) {
  Project panel = test::TwoSideGobs();
  panel.BarrierSecondGob = 33.3;
  const SweepData depths = Traditional(kDepthGraph, panel);
  Calculation run = PrepareCalculation(panel, kEnglish).Run;
  double x = static_cast<double>(static_cast<float>(0.5 * panel.DepthCover));
  for (std::size_t i = 0; i < 26; ++i) {
    run.Work.DepthCover = x;  // breadth of the zone and clear spacing stay
    RunCalculation(run);
    EXPECT_EQ(depths.GraphData[0][i], static_cast<float>(x));
    EXPECT_EQ(depths.GraphData[1][i], static_cast<float>(run.Out.SFKorva[kDevelopment]));
    EXPECT_EQ(depths.GraphData[2][i], static_cast<float>(run.Out.SFKorva[kRetreat]));
    x += static_cast<double>(static_cast<float>(static_cast<double>(0.04F) * panel.DepthCover));
  }
  for (const auto& [graph, side] :
       {std::pair(kFirstBarrierGraph, kFirstSide), {kSecondBarrierGraph, kSecondSide}}) {
    const SweepData barriers = Traditional(graph, panel);
    run = PrepareCalculation(panel, kEnglish).Run;
    for (std::size_t i = 0; i < static_cast<std::size_t>(barriers.PointCount); ++i) {
      run.Work.BarrierWidth[side] = static_cast<double>(barriers.GraphData[0][i]);
      RunCalculation(run);
      EXPECT_EQ(barriers.GraphData[1][i], static_cast<float>(run.Out.BarrierSF[kDevelopment][side]));
      EXPECT_EQ(barriers.GraphData[2][i], static_cast<float>(run.Out.BarrierSF[kRetreat][side]));
    }
  }
}

TEST(RunSweep, ChangesItsParameterAlone) {
  const LaminatedSweep laminated = EchoSweep();
  for (const auto& [graph, member] :
       std::vector<std::pair<GraphKind, double Project::*>>{{kEntryHeightGraph, &Project::EntryHeight},
                                                            {kDepthGraph, &Project::DepthCover},
                                                            {kXcutAngleGraph, &Project::XcutAngle},
                                                            {kXcutSpacingGraph, &Project::XcutSpacing},
                                                            {kFirstBarrierGraph, &Project::BarrierFirstGob},
                                                            {kSecondBarrierGraph, &Project::BarrierSecondGob},
                                                            {kBarrierDepthGraph, &Project::DepthCover}}) {
    Project before = test::TwoSideGobs();
    before.XcutAngle = 60;
    Project panel = before;
    const auto data =
        RunSweep(graph, {80, 90}, PrepareCalculation(before, kEnglish).Run, panel, &laminated).Data;
    EXPECT_EQ(data.GraphIndex, graph);
    EXPECT_NEAR(panel.*member, 0.8 * before.*member, 1e-5 * before.*member) << "one step of a tenth and more";
    panel.*member = before.*member;
    EXPECT_EQ(panel, before) << graph;
  }
}

TEST(RunSweep, AnglesEndAtTheRightAngleInDegrees) {
  Project panel = test::TwoSideGobs();
  panel.XcutAngle = 80;
  const SweepData angles = Traditional(kXcutAngleGraph, panel);
  const auto last = static_cast<std::size_t>(angles.PointCount - 1);
  EXPECT_EQ(angles.GraphData[0][0], 40);
  EXPECT_LE(angles.GraphData[0][last], 90);
  EXPECT_GT(angles.GraphData[0][last], 86);
  const LaminatedSweep laminated = EchoSweep();
  panel.XcutAngle = 90;
  const Calculation prepared = PrepareCalculation(panel, kEnglish).Run;
  const auto both = RunSweep(kXcutAngleGraph, {100, 150}, prepared, panel, &laminated);
  EXPECT_EQ(both.Data.PointCount, 1);
  EXPECT_EQ(panel.XcutAngle, 90) << "never above";
  for (const SweepRange beyond : {SweepRange{150, 150}, {101, 101}, {101, 150}}) {
    ExpectError(ErrorNumber::kSubscript,
                [&] { RunSweep(kXcutAngleGraph, beyond, prepared, panel, nullptr); });
  }
}

TEST(RunSweep, WritesTheValueIntoTheWorkingCopyAndKeepsTheMixUpOfSides) {
  const LaminatedSweep laminated = EchoSweep();
  Project panel = test::TwoSideGobs();
  const double depth = panel.DepthCover;
  const Calculation prepared = PrepareCalculation(panel, kEnglish).Run;
  const SweepData depths = RunSweep(kBarrierDepthGraph, {50, 150}, prepared, panel, &laminated).Data;
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(depths.GraphData[3][i], depths.GraphData[0][i]) << "the second side's";
    EXPECT_EQ(depths.GraphData[4][i], 9);
  }
  EXPECT_EQ(static_cast<float>(panel.DepthCover), depths.GraphData[0][5]) << "it ends with the last value";
  EXPECT_NE(panel.DepthCover, depth);
  const SweepData widths = RunSweep(kFirstBarrierGraph, {50, 150}, prepared, panel, &laminated).Data;
  EXPECT_EQ(widths.GraphData[3], widths.GraphData[0]);
  EXPECT_EQ(widths.GraphData[4][0], 7);
}

TEST(RunSweep, EndsBetweenStepsWhenToldTo) {
  std::string told;
  int solved = 0;
  const LaminatedSweep laminated = {[&](const Project& project) {
                                      ++solved;
                                      return Echo(project);
                                    },
                                    [&](int step, int capacity) {
                                      told += std::to_string(step) + "/" + std::to_string(capacity) + " ";
                                      return step < 3;
                                    }};
  Project panel = test::TwoSideGobs();
  const Calculation prepared = PrepareCalculation(panel, kEnglish).Run;
  const SweepOutcome outcome = RunSweep(kDepthGraph, {50, 150}, prepared, panel, &laminated);
  EXPECT_TRUE(outcome.Cancelled);
  EXPECT_EQ(told, "1/7 2/7 3/7 ");
  EXPECT_EQ(solved, 2);
  EXPECT_EQ(outcome.Data.PointsOf(2), 6) << "the traditional points are all there";
  EXPECT_EQ(outcome.Data.PointsOf(3), 2);
  EXPECT_EQ(outcome.Data.Partial, "2 of 6 points of the laminated model; cancelled");
}

TEST(RunSweep, AnErrorNamesTheValueOfTheParameter) {
  Project panel = test::TwoSideGobs();
  panel.DepthCover = 400;
  const Calculation prepared = PrepareCalculation(panel, kEnglish).Run;
  const LaminatedSweep failing = {[](const Project& project) -> StrondResults {
                                    if (project.DepthCover > 250) {
                                      throw RuntimeError(ErrorNumber::kFileNotFound, "no result");
                                    }
                                    return {};
                                  },
                                  [](int, int) { return true; }};
  const SweepOutcome laminated = RunSweep(kDepthGraph, {50, 150}, prepared, panel, &failing);
  ASSERT_TRUE(laminated.Failure);
  EXPECT_EQ(laminated.Failure->Number(), ErrorNumber::kFileNotFound);
  EXPECT_EQ(laminated.Failure->Detail(), "Depth of Cover = 280: no result");
  EXPECT_EQ(laminated.Data.PointsOf(1), 6);
  EXPECT_EQ(laminated.Data.PointsOf(4), 1);

  panel.XcutSpacing = 50;  // at 20 ft nothing is left beside the entry
  const SweepOutcome divided =
      RunSweep(kXcutSpacingGraph, {20, 120}, PrepareCalculation(panel, kEnglish).Run, panel, nullptr);
  ASSERT_TRUE(divided.Failure);
  EXPECT_EQ(divided.Data.Partial, "5 of 26 points; " + std::string(divided.Failure->what()));
}

TEST(RunSweep, AsksAboutThePanelOfEachPoint) {
  Project panel = test::TwoSideGobs();
  panel.XcutAngle = 60;
  const Calculation prepared = PrepareCalculation(panel, kEnglish).Run;
  std::vector<double> angles;
  const auto data = RunSweep(kXcutAngleGraph, {50, 150}, prepared, panel, nullptr, [&](const Project& at) {
                      angles.push_back(at.XcutAngle);
                      return at.XcutAngle < 40 ? std::vector<FormNotice>{{"flat", "flat at this angle"}}
                                               : std::vector<FormNotice>();
                    }).Data;
  ASSERT_EQ(angles.size(), static_cast<std::size_t>(data.PointCount));
  EXPECT_EQ(angles[0], 30) << "as it is printed, not a bit below";
  EXPECT_EQ(angles[1], 32.4);
  EXPECT_EQ(data.Notices[4].front().Text, "flat at this angle");
  EXPECT_TRUE(data.Notices[5].empty());
  EXPECT_EQ(panel.XcutAngle, 60);
}

}  // namespace
}  // namespace korva
