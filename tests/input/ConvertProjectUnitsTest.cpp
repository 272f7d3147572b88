#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "input/ConvertProjectUnits.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

constexpr double Project::*kLengths[] = {
    &Project::EntryHeight,     &Project::DepthCover,       &Project::EntryWidth,
    &Project::XcutSpacing,     &Project::BreadthAMZ,       &Project::ExtentActiveGob,
    &Project::ExtentFirstGob,  &Project::BarrierFirstGob,  &Project::SlabcutFirstGob,
    &Project::ExtentSecondGob, &Project::BarrierSecondGob, &Project::SlabcutSecondGob,
};

TEST(ConvertProjectUnits, ConvertsLengthsStrengthAndWeightAndNothingElse) {
  StoredProject project;
  Project& p = project.ProjectInput;
  p.NumberEntries = 3;
  std::fill(p.XcutCenters.begin(), p.XcutCenters.end(), 100);
  p.XcutAngle = 61.23;
  p.AbutmentAngleFirstGob = 22.5;
  p.LoadingCondition = PanelLoading{3};
  p.RowC = 1;
  Project expected = p;
  const auto set = [](Project& record, double length, double strength, double weight) {
    for (const auto field : kLengths) {
      record.*field = length;
    }
    record.WidthRowC = record.WidthRowD = static_cast<float>(length);
    record.CoalStrength = strength;
    record.UnitWeight = weight;
  };
  set(p, 10, 900, 162);
  p.BarrierFirstGob = 31.25;
  ConvertProjectUnits(project, kMetric);
  EXPECT_EQ(project.ProjectUnits, kMetric);
  set(expected, 3.05, 6.21, 25.446);  // from 3.048, 6.2053 and 25.44648, this to three decimals
  expected.BarrierFirstGob = 9.53;    // from 9.525, just above the tie
  expected.XcutCenters[1] = expected.XcutCenters[2] = 30.48;
  EXPECT_EQ(p, expected);

  expected.NumberEntries = p.NumberEntries = 1;  // no center is in use
  ConvertProjectUnits(project, kEnglish);
  set(expected, 10.01, 900.68, 162);  // from 10.00656, 900.68412 and 161.99693
  expected.BarrierFirstGob = 31.27;
  EXPECT_EQ(p, expected);
}

TEST(ConvertProjectUnits, ThereAndBackStaysWithinTheRounding) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> value(0, 3000);
  for (int round = 0; round < 500; ++round) {
    StoredProject project;
    Project& p = project.ProjectInput;
    for (const auto field : kLengths) {
      p.*field = value(random);
    }
    p.CoalStrength = value(random);
    p.UnitWeight = value(random);
    const Project before = p;
    const bool english = round % 2 == 0;
    ConvertProjectUnits(project, english ? kMetric : kEnglish);
    ConvertProjectUnits(project, english ? kEnglish : kMetric);
    // Half a unit of the last decimal each way, the first one scaled on the way back.
    for (const auto field : kLengths) {
      EXPECT_NEAR(p.*field, before.*field, 0.00501 + 0.005 * (english ? 3.2809 : 0.3048));
    }
    EXPECT_NEAR(p.CoalStrength, before.CoalStrength, 0.00501 + 0.005 * (english ? 145.04 : 0.0069));
    EXPECT_NEAR(p.UnitWeight, before.UnitWeight,
                english ? 0.00501 + 0.0005 * 6.3664 : 0.000501 + 0.005 * 0.15708);
  }
}

TEST(ConvertProjectUnits, AValueBeyondItsRangeChangesNothing) {
  std::vector<Project> projects(4);
  projects[0].NumberEntries = std::numeric_limits<std::int16_t>::min();
  projects[1].SlabcutSecondGob = 1e308;
  projects[2].WidthRowD = 3e38F;
  projects[3].NumberEntries = 11;
  for (Project& p : projects) {
    p.DepthCover = 100;
    StoredProject project{
        .ProjectInput = p, .ProjectTitle = {}, .ProjectDescription = {}, .ProjectUnits = kMetric};
    ExpectError(p.NumberEntries == 11 ? ErrorNumber::kSubscript : ErrorNumber::kOverflow,
                [&] { ConvertProjectUnits(project, kEnglish); });
    EXPECT_EQ(project.ProjectInput, p);
    EXPECT_EQ(project.ProjectUnits, kMetric);
  }
}

}  // namespace
}  // namespace korva
