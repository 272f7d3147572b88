#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <string>
#include <thread>
#include <tuple>
#include <type_traits>
#include <vector>

#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::AtCondition;
using test::DevelopmentPanel;
using test::SetRows;
using test::TwoSideGobs;

Calculation RunOf(const Project& p, UnitSystem units = kEnglish) {
  Prepared prepared = PrepareCalculation(p, units);
  EXPECT_EQ(prepared.Refusal, std::nullopt);
  RunCalculation(prepared.Run);
  return prepared.Run;
}

Results ResultsOf(const Project& p, UnitSystem units = kEnglish) {
  return RunOf(p, units).Out;
}

#define EXPECT_VALUE(actual, expected) EXPECT_NEAR(actual, expected, std::abs(1e-12 * (expected)))

template <class T>
void AppendBits(std::vector<std::uint64_t>& bits, const T& value) {
  if constexpr (std::is_arithmetic_v<T>) {
    bits.push_back(std::bit_cast<std::uint64_t>(static_cast<double>(value)));
  } else {
    for (const auto& element : value) {
      AppendBits(bits, element);
    }
  }
}

std::vector<std::uint64_t> BitsOf(const Results& results) {
  std::vector<std::uint64_t> bits;
  VisitResults(results, [&bits](const char*, const auto& value) { AppendBits(bits, value); });
  return bits;
}

// A panel whose depth is 100 ft, whose front abutment falls on the AMZ as a whole (AMZ breadth and abutment
// extent are both 93 ft); the critical half width is the tangent of the gob angle times 100 ft.
Project ShapePanel(int rows, double extent, double tangent = 1) {
  Project p = AtCondition(TwoSideGobs(), 2);
  p.DepthCover = 100;
  p.BreadthAMZ = 93;
  p.UnitWeight = 1;
  p.AbutmentAngleActiveGob = std::atan(tangent) / kRadiansPerDegree;
  p.SlabcutFirstGob = 0;
  SetRows(p, rows, 60);
  p.ExtentActiveGob = extent;
  return p;
}

// Panel width 3 x 60 = 180, AMZ area 100 x 180. Pillars 40 x 60 at height 6: (0.64 + 0.54 40/6 - 0.18 40^2/(6
// x 60)) = 3.44 times 129600 psf; three rows of 2400 ft2 and 100/80 pillars each carry 4012416000 lb. The
// arch factor is 1 - 0.28 ln(400/180) = 0.7764, 0.78 in 32 bits; the load 162 x 400 x 18000 lb times that.
TEST(RunCalculation, DevelopmentByHand) {
  const Results r = ResultsOf(DevelopmentPanel());
  EXPECT_VALUE(r.PillarStrength[1], 3.44 * 129600);
  EXPECT_VALUE(r.AMZCapacity, 4012416000);
  EXPECT_EQ(r.Fpa, 0.78F);
  EXPECT_VALUE(r.SFKorva[kDevelopment], 4.410256572023658);
  EXPECT_EQ(r.TribStress, 129600);  // 162 x 400 over the half that is left
}

// D = 9.3 sqrt(900) = 279, RFront = 1 - (129/279)^3. Panel width 300: Fpa = 1 - 0.28 ln 3 = 0.69 in 32 bits.
// The critical half is 900 tan 21 = 345.48, so gobs 2 and 3 (E/2 = 500) are supercritical, gob 4 (250) is
// not. In retreat the front is 320 wide with the slab: narrower than the gob, a = 160. Remnants are 40 and 25
// wide and 160 long.
TEST(RunCalculation, TwoSideGobsByHand) {
  const Results r = ResultsOf(TwoSideGobs());
  EXPECT_VALUE(r.AbutLoad[4], 23261736.609987613);  // (900 x 250 - 500^2/(8 tan 21)) 162
  EXPECT_VALUE(r.RemnantSF[3], 0.5510828207112191);
  EXPECT_VALUE(r.BarrierSF[kDevelopment][3], 1.3470737200544034);
  EXPECT_VALUE(r.BarrierSF[kRetreat][4], 0.27405398081681814);
  EXPECT_VALUE(r.LTRANSBAR[kRetreat][4], 3700572866.887906);  // side and arch load as a whole
  EXPECT_VALUE(r.SFKorva[kDevelopment], 0.9379418280024647);
  EXPECT_VALUE(r.SFKorva[kRetreat], 0.608567498752849);
  EXPECT_VALUE(r.SideStressFirst[1], 465727.6020449317);
  EXPECT_VALUE(r.SideStressSecond[3], 184706.2071800653);
  EXPECT_VALUE(r.BarTribStress[3], 1530900000.0 / 9000);
  EXPECT_VALUE(r.BarFrontStress[3], 1005925348.7182137 / 9000);
  EXPECT_VALUE(r.BarSideStress[3], 2189744985.292036 / 9000);
  EXPECT_VALUE(r.BarTotalStress[3],
               (1530900000 + 1005925348.7182137 + 2189744985.292036) / 9000);  // no arch load
}

// Crosscuts at 30 degrees, s = 0.5: pillars are (120 - 20/s) s = 40 long against a width of 60, so the length
// is the least dimension and the skewed side (80 - 20)/s = 120 the greatest.
TEST(RunCalculation, AngledCrosscuts) {
  Project p = DevelopmentPanel();
  p.XcutAngle = 30;
  p.XcutSpacing = 120;
  p.XcutCenters[1] = 80;
  p.XcutCenters[2] = 50;  // width 30 below length 40, which skewed is 80
  const Results r = ResultsOf(p);
  EXPECT_VALUE(r.PillarMaxDim[1], 120);
  EXPECT_VALUE(r.PillarStrength[1], (0.64 + 3.6 - 0.4) * 129600);
  EXPECT_VALUE(r.PillarMaxDim[2], 80);
}

TEST(RunCalculation, FrontAbutmentShapes) {
  const double twiceCritHalf = 2 * ResultsOf(ShapePanel(5, 400)).CritHalf;
  for (const auto& [rows, extent, tangent, front, backToBarrier, remnantLength] :
       std::vector<std::tuple<int, double, double, double, double, double>>{
           // A: W 60 < E 120, a = 30: 2 (30 x 70 x 15 + 30 x 30 x 10), half of it for each barrier.
           {1, 120, 1, 81000, 40500, 30},
           // B: W 300, E 120, e = 60, m = 180: 2 (60 x 40 x 30 + 60 x 60 x 20) + 180 x 40 x 60 + 180 x 60 x
           // 30. For the barriers half of what is left of the gob's load, (300 (100 x 60 - 120^2/8) - B)/2.
           {5, 120, 1, 1044000, 108000, 60},
           // B with d = 50: W 300, e = 40, hS = 20, m = 220.
           {5, 80, 0.5, 2 * (16000 + 128000.0 / 3) + 176000 + 352000, 112000.0 / 3, 40},
           // B at W = E = 120, where A would give the same front but mark the panel as narrow.
           {2, 120, 1, 288000, 108000, 60},
           // C: W 300, E 400, d = 100: 2 100^3/3 + (300 - 200) x 100 x 50; the gob carries 100^2/2.
           {5, 400, 1, 2e6 / 3 + 500000, (1000000 - 2e6 / 3) / 2, 100},
           {5, twiceCritHalf, 1, 2e6 / 3 + 500000, (1000000 - 2e6 / 3) / 2, 100},  // the limit: still C
           // W/2 below it and W below E: A again, however wide the gob.
           {2, 400, 1, 2 * (60 * 40 * 30 + 60 * 60 * 20), 144000, 60},
       }) {
    const Results r = ResultsOf(ShapePanel(rows, extent, tangent));
    EXPECT_VALUE(r.AMZLoad[kRetreat][2], front);
    EXPECT_VALUE(r.LFBAR[kRetreat][3], backToBarrier);
    EXPECT_VALUE(r.RemnantLength, remnantLength);
  }
}

TEST(RunCalculation, BarriersCutAwayMissingOrThin) {
  Project p = TwoSideGobs();
  p.SlabcutFirstGob = p.BarrierFirstGob;  // sends the whole front back
  Results r = ResultsOf(p);
  EXPECT_TRUE(r.RemnantLoad[kRetreat][3] == 0 && r.RemnantSF[3] == 0);
  EXPECT_GT(r.LTRANSREM[kRetreat][3], 0);
  EXPECT_EQ(r.LTRANSREM[kRetreat][3], r.LFBAR[kRetreat][3]);

  p.BarrierFirstGob = p.SlabcutFirstGob = 0;  // carries nothing
  r = ResultsOf(p);
  EXPECT_VALUE(r.AMZLoad[kRetreat][3], 150 * 25185319.3386736);
  EXPECT_EQ(r.BarTotalLoad[kRetreat][3], 0);
  EXPECT_EQ(r.BarFrontLoad[kRetreat][3], 0);
  EXPECT_EQ(r.LTRANSBAR[kRetreat][3], r.BarArchLoad[kRetreat][3]);

  p.BarrierFirstGob = 6;
  EXPECT_VALUE(ResultsOf(p).BarrierStrength[3], 1.18 * 129600);
  p.BarrierFirstGob = 5.99;  // narrower than the entry is high
  r = ResultsOf(p);
  EXPECT_EQ(r.LTRANSBAR[kRetreat][3], r.BarSideLoad[kRetreat][3] + r.BarArchLoad[kRetreat][3]);
  EXPECT_EQ(r.LTRANSREM[kRetreat][3], r.LFBAR[kRetreat][3]);  // 1.5 x 0.67 = 1.005 of it, capped
}

// Row C is 6 ft by 60 ft: (0.64 + 0.54 - 0.18 6/60) 129600 psf on 360 ft2 against (20 + 6) 80 ft2 of load,
// 80/80 pillars in the AMZ. An excess below 0.01 lb counts as none.
TEST(RunCalculation, RowCExcess) {
  for (const double excess : {0.008, 0.012}) {
    Project p = AtCondition(TwoSideGobs(), 2);
    p.BreadthAMZ = 80;
    p.UnitWeight = p.RowC = 1;
    p.DepthCover = (1.162 * 129600 * 360 - excess) / 2080;
    p.WidthRowC = 6;
    EXPECT_NEAR(ResultsOf(p).RowExcess[3], excess < 0.01 ? 0 : excess, 1e-6);
  }
}

// Barrier and entry half reach just to the end of the abutment, 93 ft at a depth of 100: the barrier takes
// all of the side load, and rows behind it nothing more; the share is shown as 0.999.
TEST(RunCalculation, FullSideShareIsShownAsAlmostOne) {
  Project p = ShapePanel(3, 120);
  p.BarrierFirstGob = 83;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.RSide[3], 0.999);
  EXPECT_VALUE(r.BarSideLoad[kRetreat][3], 93 * r.AbutLoad[3]);
  EXPECT_VALUE(r.SideStressFirst[1], r.LTRANSBAR[kRetreat][3] / 93 * 80 / 2400);
  p.BreadthAMZ = 200;
  EXPECT_EQ(ResultsOf(p).RFront, 1);

  p = ShapePanel(3, 120);
  p.BarrierFirstGob = 0.5;  // thin, and yet one: the share behind it counts from its end
  const Results thin = ResultsOf(p);
  EXPECT_VALUE(thin.SideStressFirst[1], (thin.LTRANSBAR[kRetreat][3] + thin.AMZLoad[kRetreat][3]) / 93 *
                                            (1 - std::pow(32.5 / 82.5, 3)) * 80 / 2400);
}

// The factor of a remnant is proportional to the coal's strength, and so is that of a barrier in development,
// where no load depends on strength; each is brought to a value at which the transfer is known.
TEST(RunCalculation, TransfersByFactor) {
  const auto at = [](double strength) {
    Project p = AtCondition(TwoSideGobs(), 2);
    p.CoalStrength = strength;
    return ResultsOf(p);
  };
  const Results r = at(900);
  for (const auto& [factor, barrierShare, remnantShare] : std::vector<std::array<double, 3>>{
           {0.001, 1, 1}, {0.501, 0.999, 0.66933}, {1, 0.5, 0.335}, {1.499, 0.001, 0.00067}, {1.501, 0, 0}}) {
    const Results b = at(900 * factor / r.BarrierSF[kDevelopment][3]);
    const double load = b.BarSideLoad[kDevelopment][3] + b.BarArchLoad[kDevelopment][3];
    EXPECT_NEAR(b.LTRANSBAR[kDevelopment][3], barrierShare * load, 1e-11 * load) << factor;
    const Results m = at(900 * factor / r.RemnantSF[3]);
    EXPECT_NEAR(m.LTRANSREM[kRetreat][3], remnantShare * m.LFBAR[kRetreat][3], 1e-3) << factor;
    // What falls on the side of the barrier has the same rate and no cap.
    const double front = 70 * m.AbutLoad[2] * m.RFront - m.SlabLoad[kRetreat][3];
    const double rate = factor > 1.5 ? 0 : (1.5 - factor) * 0.67;
    EXPECT_NEAR(m.BarFrontLoad[kRetreat][3], rate * front, 1e-11 * front) << factor;
  }
}

// Rows A and B leave one row of three: 445824 x 2400/80 lb for each ft of breadth over 162 x 400 x 60.
TEST(RunCalculation, RowsAAndBNarrowThePanel) {
  Project p = AtCondition(DevelopmentPanel(), 1);
  p.XcutCenters[1] = 50;
  p.XcutCenters[3] = 70;
  p.ArchAuto = 0;
  p.RowA = p.RowB = 1;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.NetPanelWidth, 60);
  EXPECT_VALUE(r.SFKorva[kDevelopment], 3.44);
}

TEST(RunCalculation, CasesAndSidesThatPlayNoPart) {
  Project p = TwoSideGobs();
  p.ExtentActiveGob = p.SlabcutFirstGob = 0;
  Results r = ResultsOf(p);
  EXPECT_EQ(r.SFKorva[kRetreat], r.SFKorva[kDevelopment]);
  r = ResultsOf(AtCondition(TwoSideGobs(), 2));
  EXPECT_EQ(r.BarrierSF[kRetreat][4], 0);
  EXPECT_GT(r.BarrierCapacity[4], 0);  // computed at any condition
  EXPECT_EQ(BitsOf(r), BitsOf(ResultsOf(AtCondition(TwoSideGobs(), 4))));
  p = TwoSideGobs();
  p.SlabcutSecondGob = 5;
  EXPECT_EQ(BitsOf(r), BitsOf(ResultsOf(AtCondition(p, 2))));
  p.SlabcutFirstGob = 0;
  EXPECT_EQ(BitsOf(ResultsOf(AtCondition(p, 1))), BitsOf(ResultsOf(AtCondition(TwoSideGobs(), 1))));
}

TEST(RunCalculation, RepeatsBitByBit) {
  Calculation run = RunOf(TwoSideGobs());
  const auto first = BitsOf(run.Out);
  RunCalculation(run);
  EXPECT_EQ(BitsOf(run.Out), first);
  const auto repeat = [&first] {
    for (int i = 0; i < 200; ++i) {
      ResultsOf(DevelopmentPanel());
      EXPECT_EQ(BitsOf(ResultsOf(TwoSideGobs())), first);
    }
  };
  const std::jthread one(repeat);
  const std::jthread two(repeat);
}

TEST(RunCalculation, FaultsNameTheQuantity) {
  using enum ErrorNumber;
  const auto clean = BitsOf(ResultsOf(TwoSideGobs()));
  for (const auto& [condition, put, number, quantity] :
       std::vector<std::tuple<int, void (*)(Project&), ErrorNumber, std::string>>{
           {0, [](Project& p) { p.XcutAngle = 0; }, kDivisionByZero, "PillarLength"},
           {0, [](Project& p) { p.NumberEntries = 1; }, kDivisionByZero, "ExtractionAMZ"},
           {1, [](Project& p) { p.AbutmentAngleActiveGob = 0; }, kDivisionByZero, "AbutLoad[2]"},
           {3, [](Project& p) { p.AbutmentAngleSecondGob = p.ExtentSecondGob = 0; }, kDivisionByZero,
            "AbutLoad[4]"},
           {2, [](Project& p) { p.XcutCenters[1] = 20; }, kDivisionByZero, "SideStress[1]"},
           {1, [](Project& p) { SetRows(p, 1, 60), p.RowA = 1; }, kDivisionByZero, "SFKorva[1]"},
           {1, [](Project& p) { SetRows(p, 2, 60), p.RowA = p.RowB = 1; }, kDivisionByZero, "SFKorva[1]"},
           {0, [](Project& p) { p.UnitWeight = 1e308; }, kOverflow, "DevLoad"},
           {0, [](Project& p) { p.XcutCenters[1] = 1e39; }, kOverflow, "Fpa"},
           {0, [](Project& p) { SetRows(p, 1, 1e-30), p.DepthCover = 1e300; }, kOverflow, "Fpa"},
           {0,
            [](Project& p) { SetRows(p, 2, 24), p.XcutCenters[1] = 18, p.RowA = 1, p.CoalStrength = 4e301; },
            kOverflow, "NetAMZCapacity"},  // row A would take load off
           {1, [](Project& p) { p.XcutCenters[4] = 5e267, p.DepthCover = 1e36, p.ArchAuto = 0; }, kOverflow,
            "AMZLoad[2]"},
           {3, [](Project& p) { p.EntryHeight = 1e-284, p.BreadthAMZ = 1e-15, p.BarrierSecondGob = 1e9; },
            kOverflow, "RemnantCapacity[4]"},
           {2, [](Project& p) { p.UnitWeight = 1e-300, p.BreadthAMZ = 1e20, p.RowC = 1, p.WidthRowC = 40; },
            kOverflow, "RemnantSF[3]"},
           {2,
            [](Project& p) {
              p.XcutCenters[4] = 1e277, p.UnitWeight = 1e26, p.ArchAuto = 0, p.ArchFactor = 0.5F;
            },
            kOverflow, "BarArchLoad[3]"},
           {2, [](Project& p) { p.DepthCover = 1e298, p.EntryWidth = 1e8; }, kOverflow, "BarTotalLoad[3]"},
           {2, [](Project& p) { p.UnitWeight = 1e-320; }, kOverflow, "BarrierSF[3]"},
           // A share that is capped at 1 all the same.
           {1, [](Project& p) { p.BreadthAMZ = 1e110; }, kOverflow, "RFront"},
           {-1, [](Project&) {}, kSubscript, "condition"},
           {5, [](Project&) {}, kSubscript, "condition"},
       }) {
    Project p = AtCondition(TwoSideGobs(), condition);
    p.SlabcutFirstGob = 0;
    put(p);
    const std::string detail = ExpectError(number, [&p = p] { RunOf(p); });
    EXPECT_NE(detail.find(quantity), std::string::npos) << detail;
    EXPECT_EQ(BitsOf(ResultsOf(TwoSideGobs())), clean);  // earlier faults of a thread leave no trace
  }
  std::feraiseexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID);
  EXPECT_EQ(BitsOf(ResultsOf(TwoSideGobs())), clean);

  Project p = DevelopmentPanel();
  p.XcutCenters[2] = 20;  // a center as wide as the entry is no fault without side gob
  EXPECT_EQ(ResultsOf(p).PillarStrength[2], 0);
}

// One value at a time beyond what a quantity can bear; what was computed before it is still a number.
TEST(RunCalculation, TheFirstQuantityThatFailsIsTheOneThatIsNamed) {
  for (const auto& [condition, member, value, quantity] :
       std::vector<std::tuple<int, double Project::*, double, std::string>>{
           {0, &Project::BreadthAMZ, 1e306, "AMZArea"},
           {0, &Project::EntryHeight, 1e-297, "AMZCapacity"},
           {2, &Project::BarrierFirstGob, 1e106, "AMZLoad[3]"},
           {3, &Project::BarrierSecondGob, 1e106, "AMZLoad[4]"},
           {0, &Project::XcutAngle, 1e-302, "AMZPillarArea"},
           {3, &Project::DepthCover, 1e301, "AMZTotalLoad[4]"},
           {2, &Project::BarrierFirstGob, 1e-309, "BarTotalStress[3]"},
           {0, &Project::BarrierFirstGob, 1e152, "BarrierCapacity[3]"},
           {0, &Project::BarrierSecondGob, 1e152, "BarrierCapacity[4]"},
           {0, &Project::CoalStrength, 1e307, "CoalStress"},
           {0, &Project::DepthCover, 1e302, "DevLoad"},
           {0, &Project::XcutAngle, 1e-304, "PillarArea[1]"},
           {0, &Project::EntryHeight, 1e-301, "PillarCapacity[1]"},
           {0, &Project::XcutAngle, 1e-305, "PillarSide[1]"},
           {0, &Project::CoalStrength, 1e302, "PillarStrength[3]"},
           {2, &Project::DepthCover, 1e303, "RowExcess[3]"},
           {2, &Project::DepthCover, 1e-203, "SideStress[2]"},
           {2, &Project::AbutmentAngleActiveGob, 1e-309, "SlabLoad[3]"},
           {0, &Project::DepthCover, 1e37, "TribStress"},
       }) {
    Project p = AtCondition(TwoSideGobs(), condition);
    p.RowC = p.RowD = condition >= 2 ? 1 : 0;
    p.WidthRowC = p.WidthRowD = 40;
    p.SlabcutFirstGob = member == &Project::BarrierFirstGob ? 0 : p.SlabcutFirstGob;
    p.*member = value;
    EXPECT_EQ(ExpectError(ErrorNumber::kOverflow, [&p = p] { RunOf(p); }),
              "in the calculation of " + quantity);
  }
}

TEST(CalcArchFactor, LimitsAndEnteredFactor) {
  const auto factor = [](double depth, double center, UnitSystem units, int automatic) {
    Project p = DevelopmentPanel();
    p.DepthCover = depth;
    SetRows(p, 1, center);
    p.ArchFactor = 0.123F;
    p.ArchAuto = automatic;
    return CalcArchFactor(PrepareCalculation(p, units).Run.Work);
  };
  EXPECT_EQ(factor(180, 100, kEnglish, 1), 0.84F);  // H - 80 is W, not below it: 1 - 0.28 ln 1.8 = 0.8354
  EXPECT_EQ(factor(180, 100.001, kEnglish, 1), 1.0F);
  EXPECT_EQ(factor(180, 0, kEnglish, 1), 1.0F);     // no row at all
  EXPECT_EQ(factor(25, 1, kEnglish, 1), 1.0F);      // shallow: H - 80 is below any width
  EXPECT_EQ(factor(1000, 50, kEnglish, 1), 0.28F);  // 0.16, raised
  EXPECT_EQ(factor(100, 21, kMetric, 1), 1.0F);     // 25 and 80 as they stand: 100 - 80 is below 21 m
  EXPECT_EQ(factor(180, 100, kEnglish, 0), 0.123F);
  EXPECT_EQ(factor(180, 100, kEnglish, 2), 0.84F);  // only 0 means entered
}

}  // namespace
}  // namespace korva
