#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "plan/KORVAgraf.h"
#include "plan/PlanBox.h"
#include "support/Panels.h"

namespace korva {
namespace {

PlanRequest RequestOf(const Project& project) {
  PlanRequest request;
  request.ProjectCalc = project;
  for (float& spacing : request.Geometry.PlotXcutSpacing) {
    spacing = static_cast<float>(project.XcutSpacing);
  }
  return request;
}

// With the values of a traditional run in it.
PlanRequest AfterRun(const Project& project, std::int16_t plotType, const OutputUnits& units = {}) {
  PlanRequest request = RequestOf(project);
  Calculation run = PrepareCalculation(project, kEnglish).Run;
  RunCalculation(run);
  request.Values = PlanValuesOf(&run, nullptr, kEnglish, units);
  request.PlotType = plotType;
  return request;
}

int CountOf(const Plan& plan, const std::string& text) {
  return static_cast<int>(std::count_if(plan.Picture.Texts.begin(), plan.Picture.Texts.end(),
                                        [&text](const DrawText& t) { return t.Text == text; }));
}

bool Says(const Plan& plan, const std::string& words) {
  return std::any_of(plan.Picture.Texts.begin(), plan.Picture.Texts.end(),
                     [&words](const DrawText& t) { return t.Text.find(words) != std::string::npos; });
}

// Upright texts inside a pillar of that row of the first line.
std::vector<std::string> ValuesIn(const Plan& plan, int row) {
  std::vector<std::string> values;
  for (const PlanPillar& pillar : plan.Pillars) {
    for (const DrawText& text : plan.Picture.Texts) {
      const bool inside = text.At.X > static_cast<double>(pillar.Corners[0].X) &&
                          text.At.X < static_cast<double>(pillar.Corners[1].X) &&
                          text.At.Y > static_cast<double>(pillar.Corners[0].Y) &&
                          text.At.Y < static_cast<double>(pillar.Corners[3].Y);
      if (pillar.Line == 1 && pillar.Row == row && inside) {
        values.push_back(text.Text);
      }
    }
  }
  return values;
}

using Texts = std::vector<std::string>;

TEST(PlanDrawing, FillsTheLeastSquare) {
  const Project wide = test::TwoSideGobs();
  Project angled = test::DevelopmentPanel();
  angled.XcutAngle = 45;
  for (const Project& project : {test::DevelopmentPanel(), wide, angled}) {
    for (const double share : {1.0 / 120, kPlanTextShare, 1.0 / 25}) {
      PlanRequest request = RequestOf(project);
      request.TextShare = share;
      const Plan plan = DrawPlan(request).value();
      const auto side = static_cast<double>(plan.PlanWidth);
      EXPECT_EQ(plan.PlanWidth, plan.PlanHeight);
      Drawing drawing = plan.Picture;
      std::erase_if(drawing.Texts, [](const DrawText& text) { return text.Room > 0; });
      const DrawBox box = BoxOf(drawing, side * share);
      const double margin = project.EntryWidth * 0.99;
      EXPECT_GE(box.Low.X, margin);
      EXPECT_GE(box.Low.Y, margin);
      EXPECT_LE(box.High.X, side - margin);
      EXPECT_LE(box.High.Y, side - margin);
      EXPECT_NEAR(plan.Picture.High.X, side, 1e-3);
      if (project == wide) {
        EXPECT_NEAR(box.Width(), side - 2 * project.EntryWidth, side * 1e-3) << "no larger than needed";
      }
    }
  }
}

TEST(PlanDrawing, DimensionsFollowTheOptions) {
  Project p = test::TwoSideGobs();
  p.XcutSpacing = 83;
  p.XcutCenters[2] = 61.5;
  PlanRequest request = RequestOf(p);
  request.Options.PlotSingleXcutDims = 0;
  Plan plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "60"), 4 + 1) << "four entries and the first barrier";
  EXPECT_EQ(CountOf(plan, "62"), 1) << "rounded half away from zero";
  EXPECT_EQ(CountOf(plan, "83"), 5) << "a strip for each line";
  EXPECT_EQ(CountOf(plan, "20"), 1) << "the slab cut";
  EXPECT_EQ(CountOf(plan, "1000"), 1) << "the active gob";
  EXPECT_TRUE(Says(plan, "First side gob, 1000 ft, not to scale"));
  request.Options.PlotSingleXcutDims = 1;
  EXPECT_EQ(CountOf(DrawPlan(request).value(), "83"), 1);
  request.Geometry.SchematicGobs = false;
  plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "1000"), 2);
  EXPECT_EQ(CountOf(plan, "500"), 1);
  EXPECT_FALSE(Says(plan, "not to scale"));
  request.Options.PlotEntryDims = request.Options.PlotXcutDims = request.Options.PlotGobDims = 0;
  plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "60") + CountOf(plan, "83") + CountOf(plan, "20") + CountOf(plan, "500"), 0);
  EXPECT_EQ(CountOf(plan, "1000"), 1) << "the active gob has no option";
}

TEST(PlanDrawing, EntryDimensionsStandClearOfThePillars) {
  for (const double angle : {90.0, 60.0, 45.0}) {
    PlanRequest request = RequestOf(test::DevelopmentPanel());
    request.ProjectCalc.XcutAngle = angle;
    const Plan plan = DrawPlan(request).value();
    int found = 0;
    for (const PlanPillar& pillar : plan.Pillars) {
      const float lowest = std::min(pillar.Corners[0].Y, pillar.Corners[1].Y);
      for (const DrawLine& line : plan.Picture.Lines) {
        const bool beneath = line.From.Y == line.To.Y &&
                             line.From.X < static_cast<double>(pillar.Corners[0].X) &&
                             line.To.X > static_cast<double>(pillar.Corners[1].X);
        found += beneath && pillar.Row == 1 ? 1 : 0;
        EXPECT_TRUE(!beneath || line.From.Y < static_cast<double>(lowest)) << angle;
      }
    }
    EXPECT_EQ(found, 3) << "one for each line";
  }
}

TEST(PlanDrawing, SizesOfPillarsSwapWhereTheyAreLongerAcross) {
  PlanRequest request = RequestOf(test::DevelopmentPanel());
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{"40x60"});
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 3), Texts{});
  request.ProjectCalc.XcutAngle = 60;  // 40 across, 80 - 23.09 along
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{"40x57"});
  request.ProjectCalc.XcutCenters[1] = 100;  // 80 across: sin 60 * 80 - 20 by 80 / sin 60
  EXPECT_NEAR(PillarSizeOf(request, 1).Width, 49.282, 1e-3);
  EXPECT_NEAR(PillarSizeOf(request, 1).Length, 92.376, 1e-3);
}

// Strength of a pillar 40 by 60 ft, 6 ft high, at 900 psi: 2.52 * 900 psi; capacity on 2400 square feet.
TEST(PlanDrawing, ValuesStandInOutputUnitsWithTheirLabel) {
  const Project p = test::DevelopmentPanel();
  Plan plan = DrawPlan(AfterRun(p, kPlotStrength)).value();
  const double strength = (0.54 * 40 / 6 - 0.18 * 1600 / 360 + 0.64) * 900;
  EXPECT_EQ(ValuesIn(plan, 4), Texts{std::to_string(std::lround(strength))});
  EXPECT_TRUE(Says(plan, "KORVA: Unit Pillar Strength (psi).  Entries shown from left to right."));
  plan = DrawPlan(AfterRun(p, kPlotCapacity)).value();
  EXPECT_EQ(ValuesIn(plan, 4), Texts{std::to_string(std::lround(strength * 144 * 2400 / 2000))});
  EXPECT_TRUE(Says(plan, "KORVA: Pillar Load Bearing Capacity (tons)."));
  plan = DrawPlan(AfterRun(p, kPlotCapacity, {1, 0})).value();
  EXPECT_EQ(ValuesIn(plan, 4), Texts{std::to_string(std::lround(strength * 144 * 2400))});
  EXPECT_TRUE(Says(plan, "(lbs)"));
}

TEST(PlanDrawing, StressesCountTheSecondSideFromItsOwnEnd) {
  PlanRequest request = AfterRun(test::TwoSideGobs(), kPlotSideStress);
  PlanValues& values = *request.Values;
  EXPECT_GT(values.SideStress[1], values.SideStress[2]);
  EXPECT_GT(values.SideStress[5], values.SideStress[4]);
  EXPECT_TRUE(values.HasSideStress[3]);
  PlanRequest oneSide = AfterRun(test::AtCondition(test::TwoSideGobs(), 2), kPlotTotalStress);
  EXPECT_FALSE(oneSide.Values->HasSideStress[4]) << "the model says nothing about it";
  PlanRequest noSide = AfterRun(test::DevelopmentPanel(), kPlotSideStress);
  EXPECT_EQ(ValuesIn(DrawPlan(noSide).value(), 2), Texts{"0"});
  values.SideStress[1] = 70;
  values.TribStress = 1000;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 1), Texts{"70"}) << "in every row";
  EXPECT_TRUE(Says(DrawPlan(request).value(), "Individual Pillar Stresses - Abutment (psi)."));
  request.PlotType = kPlotTotalStress;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 1), Texts{"1070"});
}

TEST(PlanDrawing, ShowsNoNumberThatNoRunComputed) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  request.ProjectCalc.RowC = 1;
  request.ProjectCalc.WidthRowC = 40;
  for (const std::int16_t type : {kPlotStrength, kPlotCapacity, kPlotSideStress, kPlotTotalStress}) {
    request.PlotType = type;
    EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{}) << type;
  }
  StrondResults laminated;
  laminated.StrondPillarStrength[0] = 1234;
  request.ProjectCalc.CalcMode = kLaminatedModel;
  request.Values = PlanValuesOf(nullptr, &laminated, kEnglish, {1, 1});
  request.PlotType = kPlotStrength;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{std::to_string(1234 * 144)}) << "psf";
  EXPECT_TRUE(Says(DrawPlan(request).value(), "KORVA-STROND: Unit Pillar Strength (psf)."));
  request.PlotType = kPlotCapacity;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{});
  laminated.StrondPillarStrength[0] = 26353680.0F;
  EXPECT_DOUBLE_EQ(PlanValuesOf(nullptr, &laminated, kMetric, {}).Strength[1], 26353.68);
  request.PlotType = 6;
  EXPECT_THROW(DrawPlan(request), RuntimeError);
}

TEST(PlanDrawing, PreviewIsOutlinesAloneAndNothingHasNoPlan) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  request.Full = false;
  const Plan plan = DrawPlan(request).value();
  EXPECT_TRUE(plan.Picture.Texts.empty());
  EXPECT_TRUE(plan.Picture.Lines.empty());
  EXPECT_EQ(plan.Picture.Polygons.size(), 20U + 4 + 1);
  request.ProjectCalc.NumberEntries = 1;  // gobs around no pillar
  EXPECT_FALSE(DrawPlan(request));
  request.ProjectCalc = Project{};
  EXPECT_FALSE(DrawPlan(request)) << "pillars without size";
}

}  // namespace
}  // namespace korva
