#include <gtest/gtest.h>

#include <string>

#include "model/KORVAmodel.h"
#include "strond/KORVAStrond2D.h"
#include "support/Panels.h"

namespace korva {
namespace {

StrondResults Results() {
  StrondResults r;
  r.StrondSF[0] = 2.346;
  r.StrondSF[1] = 1.5;
  for (int side = 0; side < 2; ++side) {
    for (int c = 0; c < 2; ++c) {
      r.StrondBarrierSF[c][side] = 4.25F - static_cast<float>(c) + static_cast<float>(side);
      r.StrondRemnantSF[c][side] = 3.25F - static_cast<float>(c) + static_cast<float>(side);
    }
    r.StrondBarrierData[side] = {};
    r.StrondBarrierData[side][0] = 9000.4F;
    r.StrondBarrierData[side][1] = 12000;
    r.StrondBarrierData[side][2] = 4'000'000;
    r.StrondBarrierData[side][3] = 5'000'000;
  }
  for (int pillar = 0; pillar < kStrondPillars; ++pillar) {
    r.StrondPillarStrength[pillar] = 3000.125F + static_cast<float>(pillar);
  }
  r.StrondRemnantData = r.StrondBarrierData;
  return r;
}

Project Panel(int condition) {
  Project p = test::TwoSideGobs();
  p.LoadingCondition = PanelLoading{condition};
  return p;
}

TEST(StrondReport, WithTwoSideGobs) {
  const StrondPages pages = StrondReport(Results(), Panel(3), kEnglish);
  EXPECT_EQ(pages.Page[1],
            "[KORVA-STROND STABILITY FACTORS]\r\n\r\n"
            "Development (KORVA)..........................  2.35\r\n"
            "*Development loading includes two side gobs.\r\n"
            "Retreat (KORVA)..............................  1.50\r\n"
            "*Retreat loading includes two side gobs.\r\n"
            "\r\n[KORVA-STROND BARRIER PILLAR STABILITY FACTORS]\r\n\r\n"
            "[Development]\r\n"
            "FIRST SIDE GOB BARRIER.......................  4.25\r\n"
            "SECOND SIDE GOB BARRIER......................  5.25\r\n"
            "[Retreat]\r\n"
            "FIRST SIDE GOB BARRIER.......................  3.25\r\n"
            "SECOND SIDE GOB BARRIER......................  4.25\r\n"
            "\r\n[KORVA-STROND REMNANT PILLAR STABILITY FACTORS]\r\n\r\n"
            "[Development]\r\n"
            "FIRST SIDE GOB REMNANT.......................  3.25\r\n"
            "SECOND SIDE GOB REMNANT......................  4.25\r\n"
            "[Retreat]\r\n"
            "FIRST SIDE GOB REMNANT.......................  2.25\r\n"
            "SECOND SIDE GOB REMNANT......................  3.25\r\n"
            "\r\n");
  // Both rows stand in one line.
  EXPECT_EQ(pages.Page[3],
            "[BARRIER PILLAR PARAMETERS]\r\n\r\n"
            "BARRIER               AREA      STRENGTH          LOAD          LOAD\r\n"
            "PILLAR                                     DEVELOPMENT       RETREAT\r\n"
            "                (ft)x (ft)         (psi)        (tons)        (tons)\r\n"
            "First Side           12000          9000          2000          2500"
            "Second Side          12000          9000          2000          2500\r\n\r\n");
  EXPECT_EQ(pages.Page[4].substr(0, 71),
            "[REMNANT PILLAR PARAMETERS]\r\n\r\nREMNANT               AREA      STRENGTH");
}

TEST(StrondReport, ShowsTheCasesAndSidesThatThereAre) {
  const std::string tables =
      "PILLAR                                     DEVELOPMENT       RETREAT\r\n"
      "                  (m)x (m)          (Pa)          (kN)          (kN)\r\n\r\n\r\n";
  StrondPages pages = StrondReport(Results(), Panel(0), kMetric);
  EXPECT_EQ(
      pages.Page[1],
      "[KORVA-STROND STABILITY FACTORS]\r\n\r\nDevelopment (KORVA)..........................  2.35\r\n\r\n");
  EXPECT_TRUE(pages.Page[3].ends_with(tables)) << pages.Page[3];
  EXPECT_TRUE(pages.Page[4].ends_with(tables)) << pages.Page[4];
  EXPECT_NE(pages.Page[2].find("(Pa)"), std::string::npos);

  Project noRetreat = Panel(1);
  noRetreat.ExtentActiveGob = 0;
  EXPECT_EQ(StrondReport(Results(), noRetreat, kEnglish).Page[1].find("Retreat"), std::string::npos);
  EXPECT_NE(StrondReport(Results(), Panel(1), kEnglish).Page[1].find("Retreat"), std::string::npos);
  for (const auto oneSide : {2, 4}) {
    const std::string page = StrondReport(Results(), Panel(oneSide), kMetric).Page[1];
    EXPECT_NE(page.find("one side gob."), std::string::npos);
    EXPECT_EQ(page.find("SECOND"), std::string::npos);
  }
  pages = StrondReport(Results(), Panel(2), kMetric);
  EXPECT_NE(pages.Page[3].find("          4000          5000\r\n\r\n"), std::string::npos) << "loads by 1000";
}

// Its pages are those of the golden comparisons, with two decimals.
TEST(StrondCompareReport, FollowsTheRounding) {
  Calculation traditional;
  traditional.Out.SFKorva[kDevelopment] = 2.009;
  traditional.Out.SFKorva[kRetreat] = 1.239;
  const std::string page =
      StrondCompareReport(Results(), Panel(2), kEnglish, traditional, FactorRounding::kTruncated).Page[1];
  EXPECT_NE(page.find("  2.35            2.00\r\n"), std::string::npos) << page;
  EXPECT_NE(page.find("  1.50            1.23\r\n"), std::string::npos) << page;
}

}  // namespace
}  // namespace korva
