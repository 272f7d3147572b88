#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::TwoSideGobs;

TEST(PrepareCalculation, ScalesStrengthByUnitSystem) {
  Project p = TwoSideGobs();
  EXPECT_EQ(PrepareCalculation(p, kEnglish).Run.Work.CoalStress, 129600);  // 900 psi in psf
  p.CoalStrength = 6.25;
  EXPECT_EQ(PrepareCalculation(p, kMetric).Run.Work.CoalStress, 6250);  // MPa in kPa
}

TEST(PrepareCalculation, DerivesThePanel) {
  Project p = TwoSideGobs();
  p.XcutCenters[5] = 90.5;
  const WorkValues w = PrepareCalculation(p, kEnglish).Run.Work;
  EXPECT_EQ(w.NumRows, 5);
  EXPECT_EQ(w.PanelWidth, 330.5);
  EXPECT_EQ(w.PillarWidth[5], 70.5);
  EXPECT_EQ(w.EntryCenters[6], 0);
  EXPECT_EQ(w.XcutClear, 60);
  EXPECT_NEAR(w.XcutAngleRadians, 1.570796326794895, 1e-14);  // 90 times the table's 0.017453292519943278
}

TEST(PrepareCalculation, CapsSteepGobAngles) {
  Project p = TwoSideGobs();
  p.AbutmentAngleActiveGob = 90;
  p.AbutmentAngleFirstGob = 89.95;
  p.AbutmentAngleSecondGob = 120;  // refused, but prepared all the same
  const Prepared prepared = PrepareCalculation(p, kEnglish);
  EXPECT_EQ(prepared.Run.Work.GobAngle[2], 1.5690509975429008);
  EXPECT_NEAR(prepared.Run.Work.GobAngle[3], 1.5699236621688978,
              1e-13);  // 89.95 degrees, steeper than the cap
  EXPECT_EQ(prepared.Run.Work.GobAngle[4], 1.5690509975429008);
  EXPECT_EQ(prepared.Refusal, "Invalid abutment angle of second gob");
}

TEST(PrepareCalculation, MapsTheLoadingCondition) {
  const auto loadCond = [](std::int16_t condition) {
    Project p = TwoSideGobs();
    p.LoadingCondition = condition;
    return PrepareCalculation(p, kEnglish).Run.Work.LoadCond;
  };
  EXPECT_EQ(loadCond(0), 1);
  EXPECT_EQ(loadCond(1), 2);
  EXPECT_EQ(loadCond(2), 3);
  EXPECT_EQ(loadCond(3), 4);
  EXPECT_EQ(loadCond(4), 3);
}

TEST(PrepareCalculation, OverflowNamesTheQuantity) {
  Project p = TwoSideGobs();
  p.CoalStrength = 1e308;
  try {
    PrepareCalculation(p, kEnglish);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
    EXPECT_NE(error.Detail().find("CoalStress"), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace korva
