#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "charts/AxisScale.h"

namespace korva {
namespace {

TEST(AxisScale, HasRoundNumbersAndAtMostEightLabels) {
  for (const auto& [low, high] : {std::pair{0.1, 3.0},
                                  {39.99, 90.0},
                                  {550.0, 1650.0},
                                  {-3.0, 12.0},
                                  {1e-4, 2e-4},
                                  {1.0, 1e6},
                                  {5.0, 5.0},
                                  {0.0, 0.0}}) {
    const AxisScale scale = ScaleFor(low, high);
    EXPECT_LE(scale.Low, low);
    EXPECT_GE(scale.High, high);
    EXPECT_LE(scale.Labels(), 8) << low << " " << high;
    EXPECT_GE(scale.Labels(), 3) << low << " " << high;
    for (int label = 0; label < scale.Labels(); ++label) {
      EXPECT_NEAR(std::stod(scale.Text(label)), scale.Value(label), 1e-9 * (1 + std::abs(high)));
    }
  }
  EXPECT_EQ(ScaleFor(0.1, 3).Text(1), "0.5");
  EXPECT_EQ(ScaleFor(0, 1.5).Text(1), "0.25");
}

TEST(AxisScale, LeavesRoomBetweenItsLabels) {
  const auto width = [](const std::string& label) { return 7.0 * static_cast<double>(label.size()); };
  EXPECT_EQ(ScaleThatFits(550, 1650, 1000, 6, width).Step, ScaleFor(550, 1650).Step);
  for (const double length : {400.0, 200.0, 130.0}) {
    const AxisScale scale = ScaleThatFits(550, 1650, length, 6, width);
    for (int label = 0; label < scale.Labels(); ++label) {
      EXPECT_LE(width(scale.Text(label)) + 6, length * scale.Step / (scale.High - scale.Low));
    }
  }
  EXPECT_EQ(ScaleThatFits(-3, 12, 0, 6, width).Labels(), 3) << "never fewer";
}

}  // namespace
}  // namespace korva
