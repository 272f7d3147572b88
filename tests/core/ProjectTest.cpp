#include <gtest/gtest.h>

#include "core/Project.h"

namespace korva {
namespace {

TEST(EmptyProject, DiffersInStrengthAndWeightByUnitSystem) {
  EXPECT_EQ(EmptyProject(kEnglish), Project());
  Project metric;
  metric.CoalStrength = 6.205283178097832;
  metric.UnitWeight = 25.446482633742956;
  EXPECT_EQ(EmptyProject(kMetric), metric);
}

TEST(ConvertedFileName, HasThePrefixInPlaceOfTheFolder) {
  EXPECT_EQ(ConvertedFileName("C:\\Mines\\panel.kvl", kMetric), "Metric_panel.kvl");
  EXPECT_EQ(ConvertedFileName("Metric_panel.kvl", kEnglish), "English_Metric_panel.kvl");
}

}  // namespace
}  // namespace korva
