#include <gtest/gtest.h>

#include "input/FormComputations.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::DevelopmentPanel;

TEST(CalcAMZ, WholeNumberTiesToEvenOrNoRoot) {
  EXPECT_EQ(Calc_AMZ(0.09, kEnglish), 2);   // 1.5
  EXPECT_EQ(Calc_AMZ(6.25, kEnglish), 12);  // 12.5
  EXPECT_EQ(Calc_AMZ(304.8, kMetric), 48);  // 158.11 ft
  ExpectError(ErrorNumber::kInvalidCall, [] { Calc_AMZ(-1, kEnglish); });
  ExpectError(ErrorNumber::kOverflow, [] { Calc_AMZ(1e300, kEnglish); });  // beyond 32 bits
  ExpectError(ErrorNumber::kOverflow, [] { Calc_AMZ(1e39, kMetric); });    // no single in feet
}

Project Fields(double depth, double center) {
  Project p = DevelopmentPanel();
  p.DepthCover = depth;
  test::SetRows(p, 1, center);
  return ShownInForm(p);
}

TEST(CalcArch, Limits) {
  EXPECT_EQ(Calc_Arch(Fields(180, 100), kEnglish), 0.84F);  // 180 - 80 is the width, not below it: 0.8354
  EXPECT_EQ(Calc_Arch(Fields(1000, 50), kEnglish), 0.28F);
  // Metric panels have 80 m where English ones have 80 ft, and 25 ft whatever the system.
  EXPECT_EQ(Calc_Arch(Fields(180, 99), kMetric), 0.83F);  // 1 - 0.28 ln(180/99) = 0.8326
}

TEST(CalcExtRatio, PercentOrEmptyWhileSomethingIsMissing) {
  EXPECT_EQ(Calc_Ext_Ratio(ShownInForm(DevelopmentPanel())), "50.0");  // 1 - 2400/(60 x 80)
  Project p = DevelopmentPanel();
  p.XcutAngle = 30;  // pillars of (80 - 40) 0.5 by 40/0.5 ft: 1600 of 4800
  EXPECT_EQ(Calc_Ext_Ratio(ShownInForm(p)), "66.7");
  for (double Project::*member : {&Project::XcutAngle, &Project::XcutSpacing, &Project::BreadthAMZ}) {
    p = DevelopmentPanel();
    p.*member = 0;
    EXPECT_EQ(Calc_Ext_Ratio(ShownInForm(p)), "");
  }
}

TEST(ShownInForm, TakesTheTextsOfTheForm) {
  Project p = DevelopmentPanel();
  p.DepthCover = 0.1 + 0.2;
  p.XcutCenters[2] = 0;
  p.XcutCenters[4] = 70;  // not in use
  const Project fields = ShownInForm(p);
  EXPECT_EQ(fields.DepthCover, 0.3);  // 15 digits
  EXPECT_EQ(fields.XcutCenters[2], 60);
  EXPECT_EQ(fields.XcutCenters[4], 70);
}

}  // namespace
}  // namespace korva
