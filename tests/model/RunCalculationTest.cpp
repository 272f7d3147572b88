#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::AtCondition;
using test::DevelopmentPanel;
using test::SetRows;
using test::TwoSideGobs;

Calculation RunOf(const Project& p, std::int16_t units = kEnglish) {
  Prepared prepared = PrepareCalculation(p, units);
  EXPECT_EQ(prepared.Refusal, std::nullopt);
  RunCalculation(prepared.Run);
  return prepared.Run;
}

Results ResultsOf(const Project& p, std::int16_t units = kEnglish) {
  return RunOf(p, units).Out;
}

void ExpectValue(double actual, double expected, const char* name) {
  EXPECT_NEAR(actual, expected, 1e-12 * std::abs(expected)) << name;
}
#define EXPECT_VALUE(actual, expected) ExpectValue(actual, expected, #actual)

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
// extent are both 93 ft) and whose gob angle has the tangent 1, so that the critical half width is 100 ft as
// well.
Project ShapePanel(int rows, double extent) {
  Project p = AtCondition(TwoSideGobs(), 2);
  p.DepthCover = 100;
  p.BreadthAMZ = 93;
  p.UnitWeight = 1;
  p.AbutmentAngleActiveGob = 45;
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
  EXPECT_EQ(r.AMZArea, 18000);
  EXPECT_VALUE(r.PillarLength, 60);
  EXPECT_VALUE(r.PillarStrength[1], 3.44 * 129600);
  EXPECT_VALUE(r.PillarCapacity[3], 445824.0 * 2400);
  EXPECT_EQ(r.PillarCapacity[4], 0);
  EXPECT_VALUE(r.AMZCapacity, 4012416000);
  EXPECT_VALUE(r.ExtractionAMZ, 0.5);
  EXPECT_EQ(r.Fpa, 0.78F);
  EXPECT_VALUE(r.DevLoad, 1166400000);
  EXPECT_VALUE(r.SFKorva[kDevelopment], 4.410256572023658);
  EXPECT_VALUE(r.SFKorva[kRetreat], 4.410256572023658);
  EXPECT_EQ(r.TribStress, 129600);  // 162 x 400 over the half that is left
  EXPECT_EQ(r.AbutLoad[2], 0);      // steps that this condition does not take
  EXPECT_EQ(r.BarTotalLoad[kRetreat][3], 0);
}

// D = 9.3 sqrt(900) = 279, RFront = 1 - (129/279)^3. Panel width 300: Fpa = 1 - 0.28 ln 3 = 0.69 in 32 bits.
// The critical half is 900 tan 21 = 345.48, so gobs 2 and 3 (E/2 = 500) are supercritical, gob 4 (250) is
// not. In retreat the front is 320 wide with the slab: narrower than the gob, a = 160. Remnants are 40 and 25
// wide and 160 long.
TEST(RunCalculation, TwoSideGobsByHand) {
  const Results r = ResultsOf(TwoSideGobs());
  EXPECT_EQ(r.Fpa, 0.69F);
  EXPECT_VALUE(r.AbutExtent, 279);
  EXPECT_VALUE(r.RFront, 0.9011545868314691);
  EXPECT_VALUE(r.CritHalf, 345.4776315318738);
  EXPECT_VALUE(r.AbutLoad[2], 25185319.3386736);    // 900^2 tan 21 162/2
  EXPECT_VALUE(r.AbutLoad[4], 23261736.609987613);  // (900 x 250 - 500^2/(8 tan 21)) 162
  EXPECT_VALUE(r.RemnantLength, 160);
  EXPECT_VALUE(r.AMZLoad[kRetreat][2], 2837786544.903555);
  EXPECT_VALUE(r.SlabLoad[kRetreat][3], 6506032.06308807);
  EXPECT_VALUE(r.LFBAR[kRetreat][3], 1418893272.4517775);  // half of the front load: a narrow panel
  EXPECT_VALUE(r.RSide[3], 0.5796352909264217);            // 1 - ((279 - 70)/279)^3
  EXPECT_VALUE(r.AMZLoad[kRetreat][3], 1588052915.5090036);
  EXPECT_VALUE(r.RemnantLoad[kRetreat][3], 6381664366.639553);
  EXPECT_VALUE(r.RemnantSF[3], 0.5510828207112191);
  EXPECT_VALUE(r.RemnantSF[4], 0.26173716917174017);
  EXPECT_VALUE(r.LTRANSREM[kRetreat][3], 902096175.2105349);
  EXPECT_VALUE(r.BarFrontLoad[kRetreat][3], 1005925348.7182137);
  EXPECT_VALUE(r.BarFrontLoad[kRetreat][4], 659025839.9900867);
  EXPECT_VALUE(r.BarTribLoad[kRetreat][4], 765450000);  // (10 + 25) x 162 x 900 x 150
  EXPECT_VALUE(r.BarArchLoad[kRetreat][3], 2228758149.724313);
  EXPECT_VALUE(r.BarTotalLoad[kRetreat][3], 6961834515.797651);
  EXPECT_VALUE(r.BarrierSF[kDevelopment][3], 1.3470737200544034);
  EXPECT_VALUE(r.BarrierSF[kRetreat][3], 1.0119539589764028);
  EXPECT_VALUE(r.BarrierSF[kRetreat][4], 0.27405398081681814);
  EXPECT_VALUE(r.LTRANSBAR[kDevelopment][3], 565673759.0923283);
  EXPECT_VALUE(r.LTRANSBAR[kRetreat][4], 3700572866.887906);  // side and arch load as a whole
  EXPECT_VALUE(r.AMZTotalLoad[kRetreat][2], 6485162693.575);
  EXPECT_VALUE(r.AMZTotalLoad[kRetreat][3], 10359798522.529585);
  EXPECT_VALUE(r.AMZTotalLoad[kRetreat][4], 16483036015.818844);
  EXPECT_VALUE(r.SFKorva[kDevelopment], 0.9379418280024647);
  EXPECT_VALUE(r.SFKorva[kRetreat], 0.608567498752849);
  EXPECT_VALUE(r.SideStressFirst[1], 465727.6020449317);
  EXPECT_VALUE(r.SideStressSecond[3], 184706.2071800653);
  EXPECT_VALUE(r.BarTotalStress[3],
               (1530900000 + 1005925348.7182137 + 2189744985.292036) / 9000);  // no arch load
}

// Crosscuts at 30 degrees, s = 0.5: pillars are (120 - 20/s) s = 40 long against a width of 60, so the length
// is the least dimension and the skewed side (80 - 20)/s = 120 the greatest.
TEST(RunCalculation, AngledCrosscuts) {
  Project p = DevelopmentPanel();
  p.XcutAngle = 30;
  p.XcutSpacing = 120;
  SetRows(p, 3, 80);
  const Results r = ResultsOf(p);
  EXPECT_VALUE(r.PillarMinDim[1], 40);
  EXPECT_VALUE(r.PillarMaxDim[1], 120);
  EXPECT_VALUE(r.PillarArea[1], 4800);
  EXPECT_VALUE(r.PillarStrength[1], (0.64 + 3.6 - 0.4) * 129600);
  SetRows(p, 3, 50);  // width 30 below length 40, which skewed is 80
  const Results narrow = ResultsOf(p);
  EXPECT_VALUE(narrow.PillarMinDim[1], 30);
  EXPECT_VALUE(narrow.PillarMaxDim[1], 80);
}

TEST(RunCalculation, FrontAbutmentShapes) {
  const auto front = [](int rows, double extent) { return ResultsOf(ShapePanel(rows, extent)); };
  // A: W 60 < E 120, a = 30: 2 (30 x 70 x 15 + 30 x 30 x 10).
  const Results a = front(1, 120);
  EXPECT_VALUE(a.AMZLoad[kRetreat][2], 81000);
  EXPECT_VALUE(a.LFBAR[kRetreat][3], 40500);
  EXPECT_VALUE(a.RemnantLength, 30);
  // B: W 300, E 120, e = 60, m = 180: 2 (60 x 40 x 30 + 60 x 60 x 20) + 180 x 40 x 60 + 180 x 60 x 30.
  // LFBAR from the gob's load 100 x 60 - 120^2/8 = 4200: (300 x 4200 - 1044000)/2.
  const Results b = front(5, 120);
  EXPECT_VALUE(b.AMZLoad[kRetreat][2], 1044000);
  EXPECT_VALUE(b.LFBAR[kRetreat][3], 108000);
  EXPECT_VALUE(b.RemnantLength, 60);
  // B at W = E = 120, where A would give the same front but mark the panel as narrow: (120 x 4200 -
  // 288000)/2.
  const Results same = front(2, 120);
  EXPECT_VALUE(same.AMZLoad[kRetreat][2], 288000);
  EXPECT_VALUE(same.LFBAR[kRetreat][3], 108000);
  // C: W 300, E 400, d = 100: 2 100^3/3 + (300 - 200) x 100 x 50; the gob carries 100^2/2.
  const Results c = front(5, 400);
  EXPECT_VALUE(c.AMZLoad[kRetreat][2], 3500000.0 / 3);
  EXPECT_VALUE(c.LFBAR[kRetreat][3], (1500000 - 3500000.0 / 3) / 2);
  EXPECT_VALUE(c.RemnantLength, 100);
  // E/2 exactly the critical half: still C, and the gob's load the same by either line.
  const Results atLimit = front(5, 2 * c.CritHalf);
  EXPECT_EQ(atLimit.CritHalf, c.CritHalf);
  EXPECT_VALUE(atLimit.AbutLoad[2], 5000);
  EXPECT_EQ(atLimit.AMZLoad[kRetreat][2], c.AMZLoad[kRetreat][2]);
  // W/2 below it and W below E: A again, however wide the gob.
  EXPECT_VALUE(front(2, 400).RemnantLength, 60);
}

// A slab of 20: c = 10, (10 x 90 x 5 + 10 x 10 x 10/3) comes off the front, which is 20 wider.
TEST(RunCalculation, SlabCutWidensTheFront) {
  Project p = ShapePanel(1, 120);
  p.SlabcutFirstGob = 20;
  const Results r = ResultsOf(p);
  EXPECT_VALUE(r.FrontWidth, 80);
  EXPECT_VALUE(r.SlabLoad[kRetreat][3], 4500 + 1000.0 / 3);
  EXPECT_VALUE(r.AMZLoad[kRetreat][2], 2 * (40 * 60 * 20 + 40 * 40 * 40 / 3.0) - 4500 - 1000.0 / 3);
  EXPECT_EQ(r.SlabLoad[kDevelopment][3], 0);
}

TEST(RunCalculation, SlabEqualToTheBarrierSendsTheWholeFrontBack) {
  Project p = TwoSideGobs();
  p.SlabcutFirstGob = p.BarrierFirstGob;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.RemnantWidth[3], 0);
  EXPECT_EQ(r.RemnantSF[3], 0);
  EXPECT_EQ(r.RemnantLoad[kRetreat][3], 0);
  EXPECT_GT(r.LTRANSREM[kRetreat][3], 0);
  EXPECT_EQ(r.LTRANSREM[kRetreat][3], r.LFBAR[kRetreat][3]);
}

TEST(RunCalculation, MissingBarrierCarriesNothing) {
  Project p = TwoSideGobs();
  p.BarrierFirstGob = p.SlabcutFirstGob = 0;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.RSide[3], 0);
  EXPECT_VALUE(r.AMZLoad[kRetreat][3], 150 * 25185319.3386736);
  EXPECT_EQ(r.BarTotalLoad[kRetreat][3], 0);
  EXPECT_EQ(r.BarFrontLoad[kRetreat][3], 0);
  EXPECT_EQ(r.BarrierSF[kRetreat][3], 0);
  EXPECT_GT(r.BarArchLoad[kRetreat][3], 0);
  EXPECT_EQ(r.LTRANSBAR[kRetreat][3], r.BarArchLoad[kRetreat][3]);
  EXPECT_GT(r.BarrierSF[kRetreat][4], 0);
}

TEST(RunCalculation, BarrierNarrowerThanTheEntryIsHighHasNoStrength) {
  Project p = TwoSideGobs();
  p.SlabcutFirstGob = 0;
  p.BarrierFirstGob = 6;
  EXPECT_VALUE(ResultsOf(p).BarrierStrength[3], 1.18 * 129600);
  p.BarrierFirstGob = 5.99;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.BarrierStrength[3], 0);
  EXPECT_EQ(r.RemnantStrength[3], 0);
  EXPECT_EQ(r.LTRANSBAR[kRetreat][3], r.BarSideLoad[kRetreat][3] + r.BarArchLoad[kRetreat][3]);
  EXPECT_EQ(r.LTRANSREM[kRetreat][3], r.LFBAR[kRetreat][3]);  // 1.5 x 0.67 = 1.005 of it, capped
}

// Row C is 6 ft by 60 ft: (0.64 + 0.54 - 0.18 6/60) 129600 psf on 360 ft2 against (20 + 6) 80 ft2 of load,
// 80/80 pillars in the AMZ. The depth at which both are equal is moved by what the excess is to be, in lb.
TEST(RunCalculation, RowCExcessBelowTheLeastCountsAsNone) {
  const auto leftOver = [](double excess) {
    Project p = AtCondition(TwoSideGobs(), 2);
    p.BreadthAMZ = 80;
    p.UnitWeight = 1;
    p.DepthCover = (1.162 * 129600 * 360 - excess) / 2080;
    const double without = ResultsOf(p).BarrierCapacity[3];
    p.RowC = 1;
    p.WidthRowC = 6;
    const Results r = ResultsOf(p);
    EXPECT_VALUE(r.RowStrength[3], 1.162 * 129600);
    EXPECT_EQ(r.RowExcess[4], 0);
    EXPECT_EQ(r.BarrierCapacity[3], without + r.RowExcess[3]);
    return r.RowExcess[3];
  };
  EXPECT_EQ(leftOver(0.008), 0);
  EXPECT_NEAR(leftOver(0.012), 0.012, 1e-6);
  EXPECT_EQ(leftOver(-1000), 0);
  EXPECT_NEAR(leftOver(1048576), 1048576, 1e-6);
}

// Barrier and entry half reach just to the end of the abutment, 93 ft at a depth of 100: the barrier takes
// all of the side load, and rows behind it nothing more; the share is shown as 0.999.
TEST(RunCalculation, FullSideShareIsShownAsAlmostOne) {
  Project p = ShapePanel(3, 120);
  p.BarrierFirstGob = 83;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.RSide[3], 0.999);
  EXPECT_EQ(r.AMZLoad[kRetreat][3], 0);
  EXPECT_VALUE(r.BarSideLoad[kRetreat][3], 93 * r.AbutLoad[3]);
  EXPECT_VALUE(r.SideStressFirst[1], r.LTRANSBAR[kRetreat][3] / 93 * 80 / 2400);
  EXPECT_EQ(r.SideStressFirst[2], 0);
}

TEST(RunCalculation, FrontShareIsAtMostOne) {
  Project p = ShapePanel(3, 120);
  p.BreadthAMZ = 200;
  EXPECT_EQ(ResultsOf(p).RFront, 1);
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
  for (const auto& [factor, share] :
       {std::pair{0.4, 1.0}, {0.499, 1.0}, {0.501, 0.999}, {1.0, 0.5}, {1.499, 0.001}, {1.501, 0.0}}) {
    const Results scaled = at(900 * factor / r.BarrierSF[kDevelopment][3]);
    EXPECT_NEAR(scaled.BarrierSF[kDevelopment][3], factor, 1e-12);
    const double load = scaled.BarSideLoad[kDevelopment][3] + scaled.BarArchLoad[kDevelopment][3];
    EXPECT_NEAR(scaled.LTRANSBAR[kDevelopment][3], share * load, 1e-11 * load) << factor;
  }
  for (const auto& [factor, share] :
       {std::pair{0.001, 1.0}, {0.5, 0.67}, {1.0, 0.335}, {1.499, 0.00067}, {1.501, 0.0}}) {
    const Results scaled = at(900 * factor / r.RemnantSF[3]);
    EXPECT_NEAR(scaled.RemnantSF[3], factor, 1e-12);
    const double load = scaled.LFBAR[kRetreat][3];
    EXPECT_NEAR(scaled.LTRANSREM[kRetreat][3], share * load, 1e-11 * load) << factor;
    // What falls on the side of the barrier has the same rate and no cap.
    const double front = 70 * scaled.AbutLoad[2] * scaled.RFront - scaled.SlabLoad[kRetreat][3];
    const double rate = factor > 1.5 ? 0 : (1.5 - factor) * 0.67;
    EXPECT_NEAR(scaled.BarFrontLoad[kRetreat][3], rate * front, 1e-11 * front) << factor;
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
  p.RowA = 0;
  EXPECT_EQ(ResultsOf(p).NetPanelWidth, 110);

  // Beside a side gob they narrow the front alone.
  p = AtCondition(TwoSideGobs(), 2);
  p.RowB = 1;
  const Results sides = ResultsOf(p);
  EXPECT_EQ(sides.FrontWidth, 240 + 20);
  EXPECT_VALUE(sides.DevLoad, 162.0 * 900 * 150 * 300);
  EXPECT_VALUE(sides.SFKorva[kRetreat], 10031040000 / sides.AMZTotalLoad[kRetreat][3]);
}

TEST(RunCalculation, WithoutActiveGobBothCasesAreEqual) {
  Project p = TwoSideGobs();
  p.ExtentActiveGob = p.SlabcutFirstGob = 0;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.SFKorva[kRetreat], r.SFKorva[kDevelopment]);
  EXPECT_EQ(r.LTRANSBAR[kRetreat], r.LTRANSBAR[kDevelopment]);
}

TEST(RunCalculation, OneSideGobLeavesTheOtherSideAlone) {
  const Results r = ResultsOf(AtCondition(TwoSideGobs(), 2));
  EXPECT_EQ(r.BarrierSF[kRetreat][4], 0);
  EXPECT_EQ(r.LTRANSBAR[kRetreat][4], 0);
  EXPECT_EQ(r.AMZTotalLoad[kRetreat][4], 0);
  EXPECT_GT(r.BarrierCapacity[4], 0);  // computed at any condition
  EXPECT_EQ(BitsOf(r), BitsOf(ResultsOf(AtCondition(TwoSideGobs(), 4))));
}

TEST(RunCalculation, RepeatsBitByBit) {
  Calculation run = RunOf(TwoSideGobs());
  const auto first = BitsOf(run.Out);
  RunCalculation(run);
  EXPECT_EQ(BitsOf(run.Out), first);

  std::vector<std::vector<std::uint64_t>> bits(2);
  {
    std::vector<std::jthread> threads;
    for (auto& own : bits) {
      threads.emplace_back([&own] {
        for (int i = 0; i < 200; ++i) {
          ResultsOf(DevelopmentPanel());
          own = BitsOf(ResultsOf(TwoSideGobs()));
        }
      });
    }
  }
  EXPECT_EQ(bits[0], first);
  EXPECT_EQ(bits[1], first);
}

void ExpectFault(const Project& p, ErrorNumber number, const std::string& quantity) {
  try {
    RunOf(p);
    ADD_FAILURE() << quantity << ": no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), number) << error.what();
    EXPECT_NE(error.Detail().find(quantity), std::string::npos) << error.what();
  }
}

TEST(RunCalculation, FaultsNameTheQuantity) {
  const auto varied = [](int condition, const std::function<void(Project&)>& put) {
    Project p = AtCondition(TwoSideGobs(), condition);
    p.SlabcutFirstGob = 0;
    put(p);
    return p;
  };
  const auto zero = ErrorNumber::kDivisionByZero;
  ExpectFault(varied(0, [](Project& p) { p.XcutAngle = 0; }), zero, "PillarLength");
  ExpectFault(varied(0, [](Project& p) { p.NumberEntries = 1; }), zero, "ExtractionAMZ");
  ExpectFault(varied(1, [](Project& p) { p.AbutmentAngleActiveGob = 0; }), zero, "AbutLoad[2]");
  ExpectFault(varied(3, [](Project& p) { p.AbutmentAngleSecondGob = p.ExtentSecondGob = 0; }), zero,
              "AbutLoad[4]");
  ExpectFault(varied(2, [](Project& p) { p.XcutCenters[1] = 20; }), zero, "side stress on row[1]");
  ExpectFault(varied(1, [](Project& p) { SetRows(p, 1, 60), p.RowA = 1; }), zero, "SFKorva[1]");
  ExpectFault(varied(1, [](Project& p) { SetRows(p, 2, 60), p.RowA = p.RowB = 1; }), zero, "SFKorva[1]");
  ExpectFault(varied(0, [](Project& p) { p.UnitWeight = 1e308; }), ErrorNumber::kOverflow, "DevLoad");
  // A share that is capped at 1 all the same.
  ExpectFault(varied(1, [](Project& p) { p.BreadthAMZ = 1e110; }), ErrorNumber::kOverflow, "RFront");
}

TEST(RunCalculation, RefusesAnUnknownCondition) {
  for (const int condition : {-1, 5, 32767}) {
    ExpectFault(AtCondition(DevelopmentPanel(), condition), ErrorNumber::kSubscript, "condition");
  }
}

TEST(RunCalculation, CenterAsWideAsTheEntryIsNoFaultWithoutSideGob) {
  Project p = DevelopmentPanel();
  p.XcutCenters[2] = 20;
  const Results r = ResultsOf(p);
  EXPECT_EQ(r.PillarStrength[2], 0);
  EXPECT_EQ(r.PillarCapacity[2], 0);
}

TEST(RunCalculation, EarlierFaultsOfAThreadLeaveNoTrace) {
  const auto clean = BitsOf(ResultsOf(TwoSideGobs()));
  Project faulty = TwoSideGobs();
  faulty.XcutAngle = 0;
  ExpectFault(faulty, ErrorNumber::kDivisionByZero, "PillarLength");
  EXPECT_EQ(BitsOf(ResultsOf(TwoSideGobs())), clean);
  std::feraiseexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID);
  EXPECT_EQ(BitsOf(ResultsOf(TwoSideGobs())), clean);
}

// Random panels within what a person would enter, at any condition, with entered breadth and arch factor.
class RandomPanels {
 public:
  Project Next() {
    Project p;
    p.EntryHeight = Between(3, 14);
    p.DepthCover = Between(100, 2500);
    p.EntryWidth = Between(14, 24);
    p.XcutSpacing = Between(60, 140);
    p.XcutAngle = Between(50, 90);
    SetRows(p, static_cast<int>(Between(1, 9.99)), 0);
    for (int i = 1; i < p.NumberEntries; ++i) {
      p.XcutCenters[i] = Between(40, 120);
    }
    p.CoalStrength = Between(500, 1500);
    p.UnitWeight = Between(140, 180);
    p.BreadthAMZ = Between(50, 400);
    p.LoadingCondition = static_cast<std::int16_t>(Between(0, 3.99));
    p.ArchAuto = 0;
    p.ArchFactor = static_cast<float>(Between(0.28, 1));
    for (double Project::*extent :
         {&Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::ExtentSecondGob}) {
      p.*extent = Between(0, 2000);
    }
    p.BarrierFirstGob = Between(0, 200);
    p.SlabcutFirstGob = Between(0, p.BarrierFirstGob);
    p.BarrierSecondGob = Between(0, 200);
    p.RowC = Between(0, 1) < 0.3 ? 1 : 0;
    p.WidthRowC = static_cast<float>(Between(5, 60));
    return p;
  }

 private:
  double Between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
  std::mt19937 random_{20240229};
};

// The same panel in meters. kN/m3 have the program's factor; strength has the one that goes with it, so that
// strengths and loads keep their ratio: the program's own psi to MPa factor is off by 7E-05.
Project Metric(Project p) {
  for (double Project::*length :
       {&Project::EntryHeight, &Project::DepthCover, &Project::EntryWidth, &Project::XcutSpacing,
        &Project::BreadthAMZ, &Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::BarrierFirstGob,
        &Project::SlabcutFirstGob, &Project::ExtentSecondGob, &Project::BarrierSecondGob}) {
    p.*length /= kFeetPerMeter;
  }
  for (double& center : p.XcutCenters) {
    center /= kFeetPerMeter;
  }
  p.CoalStrength *= 144 / kPcfPerKNm3 / kFeetPerMeter / 1000;
  p.UnitWeight /= kPcfPerKNm3;
  return p;
}

TEST(RunCalculation, UnitSystemsAgree) {
  RandomPanels panels;
  for (int n = 0; n < 500; ++n) {
    Project p = panels.Next();
    p.RowC = 0;  // its width has 32 bits only
    const Results english = ResultsOf(p, kEnglish);
    const Results metric = ResultsOf(Metric(p), kMetric);
    for (int c = kDevelopment; c <= kRetreat; ++c) {
      EXPECT_NEAR(metric.SFKorva[c], english.SFKorva[c], 1e-9 * english.SFKorva[c]) << n;
      for (int k = 3; k <= 4; ++k) {
        EXPECT_NEAR(metric.BarrierSF[c][k], english.BarrierSF[c][k], 1e-9 * english.BarrierSF[c][k]) << n;
      }
    }
    for (int k = 3; k <= 4; ++k) {
      EXPECT_NEAR(metric.RemnantSF[k], english.RemnantSF[k], 1e-9 * std::abs(english.RemnantSF[k])) << n;
    }
  }
}

// Without a gob near, and with breadth and arch factor entered, capacity does not know the depth and the load
// is proportional to it. (An automatic arch factor takes off more the deeper the panel lies, in steps of
// 0.01.)
TEST(RunCalculation, DepthNeverRaisesTheDevelopmentFactor) {
  RandomPanels panels;
  for (int n = 0; n < 200; ++n) {
    Project p = AtCondition(panels.Next(), 0);
    double before = ResultsOf(p).SFKorva[kRetreat];
    for (int step = 0; step < 5; ++step) {
      p.DepthCover *= 1.01;
      const double factor = ResultsOf(p).SFKorva[kRetreat];
      EXPECT_LT(factor, before) << n;
      before = factor;
    }
  }
}

TEST(CalcArchFactor, Limits) {
  const auto factor = [](double depth, double center, std::int16_t units = kEnglish) {
    Project p = DevelopmentPanel();
    p.DepthCover = depth;
    SetRows(p, 1, center);
    return CalcArchFactor(PrepareCalculation(p, units).Run.Work);
  };
  EXPECT_EQ(factor(180, 100), 0.84F);          // H - 80 is W, not below it: 1 - 0.28 ln 1.8 = 0.8354
  EXPECT_EQ(factor(180, 100.001), 1.0F);       // just wider
  EXPECT_EQ(factor(25, 1), 1.0F);              // shallow: H - 80 is below any width
  EXPECT_EQ(factor(1000, 50), 0.28F);          // 0.16, raised
  EXPECT_EQ(factor(100, 15, kMetric), 0.47F);  // 25 and 80 as they stand: 1 - 0.28 ln(100/15) = 0.4688
  EXPECT_EQ(factor(100, 21, kMetric), 1.0F);   // 100 - 80 is below 21 m
}

TEST(CalcArchFactor, EnteredFactorAndMissingWidth) {
  Project p = DevelopmentPanel();
  p.ArchFactor = 0.123F;
  p.ArchAuto = 0;
  EXPECT_EQ(CalcArchFactor(PrepareCalculation(p, kEnglish).Run.Work), 0.123F);
  p.ArchAuto = 2;  // only 0 means entered
  EXPECT_EQ(CalcArchFactor(PrepareCalculation(p, kEnglish).Run.Work), 0.78F);
  p.ArchAuto = 1;
  p.NumberEntries = 1;
  EXPECT_EQ(CalcArchFactor(PrepareCalculation(p, kEnglish).Run.Work), 1.0F);
}

}  // namespace
}  // namespace korva
