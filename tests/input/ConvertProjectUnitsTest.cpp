#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

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
  set(p, 12'345, 90'000, 16'200);  // large, so that the factors' last digits tell
  p.BarrierFirstGob = 31.25;
  ConvertProjectUnits(project, kMetric);
  EXPECT_EQ(project.ProjectUnits, kMetric);
  set(expected, 3762.76, 620.53, 2544.648);  // from 3762.756, 620.5283 and 2544.64826, to three decimals
  expected.BarrierFirstGob = 9.53;           // from 9.525, just above the tie
  expected.XcutCenters[1] = expected.XcutCenters[2] = 30.48;
  EXPECT_EQ(p, expected);

  expected.NumberEntries = p.NumberEntries = 1;  // no center is in use
  ConvertProjectUnits(project, kEnglish);
  set(expected, 12345.01, 90000.24, 16200);  // from 12345.0131, 90000.24398 and 16199.99832
  expected.BarrierFirstGob = 31.27;
  EXPECT_EQ(p, expected);
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
