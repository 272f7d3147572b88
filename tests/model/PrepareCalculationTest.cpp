#include <gtest/gtest.h>

#include "model/KORVAmodel.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::TwoSideGobs;

TEST(PrepareCalculation, DerivesThePanel) {
  Project p = TwoSideGobs();
  p.XcutCenters[5] = 90.5;
  p.ArchFactor = 0.5F;
  const Calculation run = PrepareCalculation(p, kEnglish).Run;
  const WorkValues& w = run.Work;
  EXPECT_EQ(w.CoalStress, 129600);  // 900 psi in psf
  EXPECT_EQ(w.PanelWidth, 330.5);
  EXPECT_NEAR(w.XcutAngleRadians, 1.570796326794895, 1e-14);  // 90 times the table's 0.017453292519943278
  EXPECT_TRUE(w.GobExtent[2] == 1000 && w.SlabDepth[3] == 20 && run.Out.Fpa == 0.5F);
  p.CoalStrength = 6.25;
  EXPECT_EQ(PrepareCalculation(p, kMetric).Run.Work.CoalStress, 6250);  // MPa in kPa
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
  EXPECT_EQ(prepared.Refusal, "Invalid abutment angle of second gob");
}

TEST(PrepareCalculation, NamesWhatIsTooLarge) {
  Project p = TwoSideGobs();
  p.XcutCenters[1] = p.XcutCenters[2] = 1e308;
  ExpectError(ErrorNumber::kOverflow, [&] { PrepareCalculation(p, kEnglish); });
  p.XcutSpacing = 1e308;
  p.EntryWidth = -1e308;
  EXPECT_EQ(ExpectError(ErrorNumber::kOverflow, [&] { PrepareCalculation(p, kEnglish); }),
            "in the calculation of XcutClear");
}

}  // namespace
}  // namespace korva
