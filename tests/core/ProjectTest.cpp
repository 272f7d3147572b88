#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "core/NumberText.h"
#include "core/Project.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

constexpr double Project::*kLengths[] = {
    &Project::EntryHeight,     &Project::DepthCover,       &Project::EntryWidth,
    &Project::XcutSpacing,     &Project::BreadthAMZ,       &Project::ExtentActiveGob,
    &Project::ExtentFirstGob,  &Project::BarrierFirstGob,  &Project::SlabcutFirstGob,
    &Project::ExtentSecondGob, &Project::BarrierSecondGob, &Project::SlabcutSecondGob,
};

TEST(EmptyProject, HasTheFactoryValuesOfItsUnitSystem) {
  const Project english = EmptyProject(kEnglish);
  EXPECT_EQ(english.CoalStrength, 900);
  EXPECT_EQ(english.UnitWeight, 162);
  const Project metric = EmptyProject(kMetric);
  EXPECT_EQ(metric.CoalStrength, 6.205283178097832);
  EXPECT_EQ(metric.UnitWeight, 25.446482633742956);
  for (const Project& p : {english, metric}) {
    for (const auto field : kLengths) {
      EXPECT_EQ(p.*field, 0);
    }
    EXPECT_EQ(p.XcutAngle, 90);
    EXPECT_EQ(p.NumberEntries, 2);
    for (int i = 1; i <= 9; ++i) {
      EXPECT_EQ(p.XcutCenters[i], 0);
    }
    EXPECT_EQ(p.LoadingCondition, 0);
    EXPECT_EQ(p.AMZAuto, 1);
    EXPECT_EQ(p.ArchAuto, 1);
    EXPECT_EQ(p.ArchFactor, 1);
    EXPECT_EQ(p.CalcMode, 0);
    EXPECT_EQ(p.AbutmentAngleActiveGob, 21);
    EXPECT_EQ(p.AbutmentAngleFirstGob, 21);
    EXPECT_EQ(p.AbutmentAngleSecondGob, 21);
    EXPECT_EQ(p.RowA + p.RowB + p.RowC + p.RowD, 0);
    EXPECT_EQ(p.WidthRowC + p.WidthRowD, 0);
  }
}

TEST(ConvertProjectUnits, RoundsEachDirection) {
  StoredProject project;
  project.ProjectInput.DepthCover = 100;
  project.ProjectInput.EntryWidth = 10;
  project.ProjectInput.BarrierFirstGob = 31.25;  // 9.525 m, just above the tie
  project.ProjectInput.WidthRowC = 10;
  ConvertProjectUnits(project, kMetric);
  EXPECT_EQ(project.ProjectUnits, kMetric);
  EXPECT_EQ(project.ProjectInput.DepthCover, 30.48);
  EXPECT_EQ(project.ProjectInput.EntryWidth, 3.05);
  EXPECT_EQ(project.ProjectInput.BarrierFirstGob, 9.53);
  EXPECT_EQ(project.ProjectInput.WidthRowC, 3.05F);
  EXPECT_EQ(project.ProjectInput.CoalStrength, 6.21);  // 6.2053
  EXPECT_EQ(project.ProjectInput.UnitWeight, 25.446);  // 25.44648, three decimals in metric units
  ConvertProjectUnits(project, kEnglish);
  EXPECT_EQ(project.ProjectUnits, kEnglish);
  EXPECT_EQ(project.ProjectInput.EntryWidth, 10.01);  // 10.00656
  EXPECT_EQ(project.ProjectInput.WidthRowC, 10.01F);
  EXPECT_EQ(project.ProjectInput.CoalStrength, 900.68);  // 900.68412
  EXPECT_EQ(project.ProjectInput.UnitWeight, 162);       // 161.99693
}

TEST(ConvertProjectUnits, LeavesAnglesFactorsFlagsAndUnusedCenters) {
  StoredProject project;
  Project& p = project.ProjectInput;
  p.NumberEntries = 3;
  for (int i = 1; i <= 9; ++i) {
    p.XcutCenters[i] = 100;
  }
  p.XcutAngle = 61.23;
  p.AbutmentAngleActiveGob = 21.5;
  p.AbutmentAngleFirstGob = 22.5;
  p.AbutmentAngleSecondGob = 23.5;
  p.ArchFactor = 0.85F;
  p.LoadingCondition = 3;
  p.LoadingConditionAux = 7;
  p.RowC = 1;
  Project expected = p;
  expected.XcutCenters[1] = expected.XcutCenters[2] = 30.48;
  expected.CoalStrength = 6.21;
  expected.UnitWeight = 25.446;
  ConvertProjectUnits(project, kMetric);
  EXPECT_EQ(p, expected);

  p.NumberEntries = 1;  // no center is in use
  ConvertProjectUnits(project, kEnglish);
  EXPECT_EQ(p.XcutCenters[1], 30.48);
}

TEST(ConvertProjectUnits, ThereAndBackStaysWithinTheRounding) {
  std::mt19937_64 random(2);
  const auto value = [&random](double top) { return std::uniform_real_distribution<double>(0, top)(random); };
  for (int round = 0; round < 500; ++round) {
    for (const std::int16_t units : {kEnglish, kMetric}) {
      StoredProject project;
      project.ProjectUnits = units;
      Project& p = project.ProjectInput;
      p.NumberEntries = static_cast<std::int16_t>(1 + round % 10);
      for (const auto field : kLengths) {
        p.*field = value(3000);
      }
      for (double& center : p.XcutCenters) {
        center = value(200);
      }
      p.WidthRowC = static_cast<float>(value(100));
      p.CoalStrength = value(2000);
      p.UnitWeight = value(200);
      const Project before = p;
      ConvertProjectUnits(project, units == kEnglish ? kMetric : kEnglish);
      for (const auto field : kLengths) {
        const std::string text = GeneralText(p.*field);
        EXPECT_LE(text.size() - std::min(text.find('.'), text.size()), 3U) << text;
      }
      ConvertProjectUnits(project, units);

      // Half a unit of the last decimal each way, the first one scaled on the way back.
      const bool english = units == kEnglish;
      const double length = 0.005 + 0.005 * (english ? 3.2809 : 1 / 3.2808) + 1e-9;
      for (const auto field : kLengths) {
        EXPECT_NEAR(p.*field, before.*field, length);
      }
      for (int i = 1; i <= 9; ++i) {
        EXPECT_NEAR(p.XcutCenters[i], before.XcutCenters[i], i < p.NumberEntries ? length : 0) << i;
      }
      EXPECT_NEAR(p.WidthRowC, before.WidthRowC, length + 1e-5);
      EXPECT_NEAR(p.CoalStrength, before.CoalStrength,
                  0.005 + 0.005 * (english ? 145.04 : 1 / 145.03) + 1e-9);
      EXPECT_NEAR(p.UnitWeight, before.UnitWeight,
                  (english ? 0.005 + 0.0005 * 6.3664 : 0.0005 + 0.005 / 6.3663) + 1e-9);
    }
  }
}

TEST(ConvertProjectUnits, AValueBeyondItsRangeChangesNothing) {
  StoredProject project;
  project.ProjectUnits = kMetric;
  project.ProjectInput.DepthCover = 100;
  const auto refused = [&project](ErrorNumber number) {
    const Project before = project.ProjectInput;
    ExpectError(number, [&] { ConvertProjectUnits(project, kEnglish); });
    EXPECT_EQ(project.ProjectInput, before);
    EXPECT_EQ(project.ProjectUnits, kMetric);
    project.ProjectInput = EmptyProject(kMetric);
  };
  project.ProjectInput.SlabcutSecondGob = 1e308;
  refused(ErrorNumber::kOverflow);
  project.ProjectInput.WidthRowD = 3e38F;
  refused(ErrorNumber::kOverflow);
  project.ProjectInput.NumberEntries = 11;
  refused(ErrorNumber::kSubscript);
  project.ProjectInput.NumberEntries = std::numeric_limits<std::int16_t>::min();
  refused(ErrorNumber::kOverflow);
}

TEST(ConvertedFileName, HasThePrefixInPlaceOfTheFolder) {
  EXPECT_EQ(ConvertedFileName("C:\\Mines\\panel.kvl", kMetric), "Metric_panel.kvl");
  EXPECT_EQ(ConvertedFileName("/mines/panel.kvl", kEnglish), "English_panel.kvl");
  EXPECT_EQ(ConvertedFileName("Metric_panel.kvl", kMetric), "Metric_Metric_panel.kvl");
  EXPECT_EQ(ConvertedFileName("Untitled", kMetric), "Metric_Untitled");
}

}  // namespace
}  // namespace korva
