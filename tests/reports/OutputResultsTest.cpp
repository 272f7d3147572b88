#include <gtest/gtest.h>

#include "reports/OutputResults.h"

namespace korva {
namespace {

// Ones in each kind of result, behind their conversion.
TEST(ConvertResultUnits, LoadsAndStressesHaveTheirOwnOption) {
  for (const UnitSystem units : {kEnglish, kMetric}) {
    for (const bool tons : {false, true}) {
      Calculation run;
      run.Work.Units = units;
      Results& r = run.Out;
      r.DevLoad = r.RowExcess[4] = r.LTRANSREM[kRetreat][3] = r.PillarCapacity[9] = 1;
      r.PillarStrength[9] = r.SideStressSecond[3] = r.BarTotalStress[4] = r.RowStrength[3] = r.AMZArea = 1;
      r.TribStress = 1;
      const OutputResults output =
          ConvertResultUnits(run, tons ? OutputUnits{StressUnit::kPsf, LoadUnit::kTons}
                                       : OutputUnits{StressUnit::kPsi, LoadUnit::kPounds});
      const Results& o = output.Out;
      for (const double load : {o.DevLoad, o.RowExcess[4], o.LTRANSREM[kRetreat][3], o.PillarCapacity[9]}) {
        EXPECT_EQ(load, units == kEnglish && tons ? 1 / 2000.0 : 1);
      }
      for (const double stress :
           {o.PillarStrength[9], o.SideStressSecond[3], o.BarTotalStress[4], o.RowStrength[3]}) {
        EXPECT_EQ(stress, units == kEnglish && !tons ? 1 / 144.0 : 1);
      }
      EXPECT_EQ(o.TribStress, static_cast<float>(o.RowStrength[3]));
      EXPECT_EQ(o.AMZArea, 1);
      EXPECT_EQ(output.LoadLabel, units == kMetric ? " (kN)" : tons ? " (tons)" : " (lbs)");
      EXPECT_EQ(output.StressLabel, units == kMetric ? " (kPa)" : tons ? " (psf)" : " (psi)");
    }
  }
}

}  // namespace
}  // namespace korva
