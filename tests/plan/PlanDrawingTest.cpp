#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

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
PlanRequest AfterRun(const Project& project, PillarPlot plotType, const OutputUnits& units = {}) {
  PlanRequest request = RequestOf(project);
  Calculation run = PrepareCalculation(project, kEnglish).Run;
  RunCalculation(run);
  request.Values = PlanValuesOf(&run, nullptr, kEnglish, units);
  request.PlotType = plotType;
  return request;
}

int CountOf(const Plan& plan, const std::string& text) {
  const Drawing picture = PictureOf(plan);
  return static_cast<int>(std::count_if(picture.Texts.begin(), picture.Texts.end(),
                                        [&text](const DrawText& t) { return t.Text == text; }));
}

bool Says(const Plan& plan, const std::string& words) {
  const Drawing picture = PictureOf(plan);
  return std::any_of(picture.Texts.begin(), picture.Texts.end(),
                     [&words](const DrawText& t) { return t.Text.find(words) != std::string::npos; });
}

// Upright texts inside a pillar of that row of the first line.
std::vector<std::string> ValuesIn(const Plan& plan, int row) {
  std::vector<std::string> values;
  for (const PlanPillar& pillar : plan.Pillars) {
    for (const DrawText& text : plan.Panel.Texts) {
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
      Drawing drawing = PictureOf(plan);
      EXPECT_EQ(drawing.Lines.size(), plan.Frame.Lines.size() + plan.Panel.Lines.size());
      std::erase_if(drawing.Texts, [](const DrawText& text) { return text.Room > 0; });
      const DrawBox box = BoxOf(drawing, side * share);
      const double margin = project.EntryWidth * 0.99;
      EXPECT_GE(box.Low.X, margin);
      EXPECT_GE(box.Low.Y, margin);
      EXPECT_LE(box.High.X, side - margin);
      EXPECT_LE(box.High.Y, side - margin);
      EXPECT_NEAR(drawing.High.X, side, 1e-3);
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
  request.Options.PlotSingleXcutDims = false;
  Plan plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "60"), 4 + 1) << "four entries and the first barrier";
  EXPECT_EQ(CountOf(plan, "62"), 1) << "rounded half away from zero";
  EXPECT_EQ(CountOf(plan, "83"), 5) << "a strip for each line";
  EXPECT_EQ(CountOf(plan, "20"), 1) << "the slab cut";
  EXPECT_EQ(CountOf(plan, "1000"), 1) << "the active gob";
  EXPECT_TRUE(Says(plan, "First side gob, 1000 ft, not to scale"));
  request.Options.PlotSingleXcutDims = true;
  EXPECT_EQ(CountOf(DrawPlan(request).value(), "83"), 1);
  request.Geometry.SchematicGobs = false;
  plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "1000"), 2);
  EXPECT_EQ(CountOf(plan, "500"), 1);
  EXPECT_FALSE(Says(plan, "First side gob, ")) << "to scale now";
  EXPECT_TRUE(Says(plan, "First side gob"));
  request.Options.PlotEntryDims = request.Options.PlotXcutDims = request.Options.PlotGobDims = false;
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
      for (const DrawLine& line : plan.Panel.Lines) {
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
  plan = DrawPlan(AfterRun(p, kPlotCapacity, {StressUnit::kPsf, LoadUnit::kPounds})).value();
  EXPECT_EQ(ValuesIn(plan, 4), Texts{std::to_string(std::lround(strength * 144 * 2400))});
  EXPECT_TRUE(Says(plan, "(lbs)"));
}

TEST(PlanDrawing, StressesCountTheSecondSideFromItsOwnEnd) {
  Calculation run = PrepareCalculation(test::TwoSideGobs(), kEnglish).Run;
  for (int i = 1; i <= 3; ++i) {
    run.Out.SideStressFirst[i] = i;
    run.Out.SideStressSecond[i] = 10 * i;
  }
  PlanRequest request = AfterRun(test::TwoSideGobs(), kPlotSideStress);
  PlanValues& values = *request.Values;
  values = PlanValuesOf(&run, nullptr, kEnglish, {StressUnit::kPsf, LoadUnit::kTons});
  EXPECT_EQ(std::vector<double>(values.SideStress.begin(), values.SideStress.begin() + 5),
            (std::vector<double>{1, 2, 33, 20, 10}));
  PlanRequest oneSide = AfterRun(test::AtCondition(test::TwoSideGobs(), 2), kPlotTotalStress);
  EXPECT_FALSE(oneSide.Values->HasSideStress[4]) << "the model says nothing about it";
  PlanRequest noSide = AfterRun(test::DevelopmentPanel(), kPlotSideStress);
  EXPECT_EQ(ValuesIn(DrawPlan(noSide).value(), 2), Texts{"0"});
  values.SideStress[1] = 70;
  values.TribStress = 1000;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 1), Texts{"70"}) << "in every row";
  EXPECT_TRUE(Says(DrawPlan(request).value(), "Individual Pillar Stresses - Abutment (psf)."));
  request.PlotType = kPlotTotalStress;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 1), Texts{"1070"});
}

TEST(PlanDrawing, ShowsNoNumberThatNoRunComputed) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  request.ProjectCalc.RowC = 1;
  request.ProjectCalc.WidthRowC = 40;
  for (const PillarPlot type : {kPlotStrength, kPlotCapacity, kPlotSideStress, kPlotTotalStress}) {
    request.PlotType = type;
    EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{}) << type;
  }
  StrondResults laminated;
  laminated.StrondPillarStrength[0] = 1234;
  request.ProjectCalc.CalcMode = kLaminatedModel;
  request.Values = PlanValuesOf(nullptr, &laminated, kEnglish, {StressUnit::kPsf, LoadUnit::kTons});
  request.PlotType = kPlotStrength;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{std::to_string(1234 * 144)}) << "psf";
  EXPECT_TRUE(Says(DrawPlan(request).value(), "KORVA-STROND: Unit Pillar Strength (psf)."));
  request.PlotType = kPlotCapacity;
  EXPECT_EQ(ValuesIn(DrawPlan(request).value(), 4), Texts{});
  laminated.StrondPillarStrength[0] = 26353680.0F;
  EXPECT_DOUBLE_EQ(PlanValuesOf(nullptr, &laminated, kMetric, {}).Strength[1], 26353.68);
}

// Its words are those of the golden lists.
TEST(PlanDrawing, TheLineOfTheActiveGobIsBroken) {
  const auto slanted = [](const Project& project) {
    const Plan plan = DrawPlan(RequestOf(project)).value();
    return std::count_if(plan.Panel.Lines.begin(), plan.Panel.Lines.end(), [](const DrawLine& line) {
      return line.From.X != line.To.X && line.From.Y != line.To.Y;
    });
  };
  EXPECT_EQ(slanted(test::TwoSideGobs()), 2);
  EXPECT_EQ(slanted(test::DevelopmentPanel()), 0);
}

// 75 by 80 ft less 20: 55 across and 56.91 along, of which 49.28 are square to the crosscuts at 60 degrees.
TEST(PlanDrawing, TellsWhichPillarSizeTheStrengthIsOf) {
  Project p = test::DevelopmentPanel();
  p.XcutAngle = 60;
  test::SetRows(p, 3, 75);
  const PlanRequest request = AfterRun(p, kPlotDimensions);
  Plan plan = DrawPlan(request).value();
  EXPECT_EQ(ValuesIn(plan, 4), Texts{"55x57"});
  EXPECT_TRUE(Says(plan, "Pillar sizes: across and along the entries. Those of the strength: page 3."));
  const PlanCorners& corners = plan.Pillars.front().Corners;
  const std::string hint = PlanHintAt(
      request, plan, {static_cast<double>(corners[0].X) + 5, static_cast<double>(corners[0].Y) + 5});
  EXPECT_NE(hint.find("\n55 x 56.91 ft, across and along the entries\nStrength "), std::string::npos) << hint;
  EXPECT_NE(hint.find(" psi, of 49.28 x 63.51 ft (page 3)\nLoad bearing capacity "), std::string::npos)
      << hint;
  EXPECT_EQ(hint.find('('), hint.find("(page")) << "one form of unit";
  EXPECT_EQ(PlanHintAt(request, plan, {0, 0}), "");
  p.XcutSpacing = 120;
  EXPECT_FALSE(Says(DrawPlan(AfterRun(p, kPlotDimensions)).value(), "page 3")) << "they are the same";
}

template <class Points>
DrawPoint MiddleOf(const Points& points) {
  DrawPoint middle;
  for (const PlanPoint& point : points) {
    middle.X += static_cast<double>(point.X) / static_cast<double>(points.size());
    middle.Y += static_cast<double>(point.Y) / static_cast<double>(points.size());
  }
  return middle;
}

TEST(PlanDrawing, EachHintIsOfItsOwnSide) {
  Project p = test::TwoSideGobs();
  p.SlabcutFirstGob = 0;
  p.RowA = p.RowB = p.RowC = p.RowD = 1;
  p.WidthRowC = 40;
  p.WidthRowD = 50;
  p.XcutCenters[1] = 70;
  PlanRequest request = AfterRun(p, kPlotDimensions);
  PlanValues& values = request.Values.value();
  values.HasRowStrength = true;
  values.RowStrength[0] = 111;
  values.RowStrength[1] = 222;
  values.RowCapacity[0] = 333;
  values.RowCapacity[1] = 444;
  const Plan plan = DrawPlan(request).value();
  const auto hint = [&](const auto& outline) { return PlanHintAt(request, plan, MiddleOf(outline)); };
  std::set<std::string> gobs;
  for (const PlanGob& gob : plan.Gobs) {
    gobs.insert(hint(gob.Outline));
  }
  EXPECT_EQ(gobs, (std::set<std::string>{"First side gob\n1000 ft", "First side barrier\n60 ft",
                                         "Second side barrier\n25 ft", "Second side gob\n500 ft"}));
  std::set<std::string> bleeders;
  for (const PlanBleeder& bleeder : plan.Bleeders) {
    bleeders.insert(hint(bleeder.Corners));
  }
  EXPECT_EQ(bleeders,
            (std::set<std::string>{
                "Bleeder pillar, row C\n40 x 60 ft\nStrength 111.0 psi\nLoad bearing capacity 333 tons",
                "Bleeder pillar, row D\n50 x 60 ft\nStrength 222.0 psi\nLoad bearing capacity 444 tons"}));
  std::set<std::string> left;
  for (const PlanPillar& pillar : plan.Pillars) {
    const std::string text = hint(pillar.Corners);
    if (text.find("left as") != std::string::npos) {
      left.insert(text.substr(0, 8) +
                  text.substr(text.find(", left"), text.find(" ft") - text.find(", left")));
    }
  }
  EXPECT_EQ(left,
            (std::set<std::string>{"Pillar 1, left as row A\n50 x 60", "Pillar 5, left as row B\n40 x 60"}));
}

TEST(PlanDrawing, StrengthSizesAreThoseOfTheRun) {
  for (const double angle : {90.0, 75.0, 60.0, 45.0, 30.0}) {
    for (const double center : {40.0, 60.0, 75.0, 90.0, 120.0}) {
      Project p = test::DevelopmentPanel();
      p.XcutAngle = angle;
      p.XcutCenters[2] = center;
      Calculation run = PrepareCalculation(p, kEnglish).Run;
      RunCalculation(run);
      EXPECT_NEAR(StrengthSizeOf(p, 2).Width, run.Out.PillarMinDim[2], 1e-9) << angle << " " << center;
      EXPECT_NEAR(StrengthSizeOf(p, 2).Length, run.Out.PillarMaxDim[2], 1e-9) << angle << " " << center;
    }
  }
}

// The pairs of texts that stand in each other's way.
std::vector<std::string> Overprints(const Plan& plan, double textHeight) {
  std::vector<std::string> found;
  const auto meet = [](const DrawBox& a, const DrawBox& b) {
    return a.Low.X < b.High.X && b.Low.X < a.High.X && a.Low.Y < b.High.Y && b.Low.Y < a.High.Y;
  };
  const std::vector<DrawText> texts = PictureOf(plan).Texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t k = i + 1; k < texts.size(); ++k) {
      if (texts[i].Room == 0 && texts[k].Room == 0 &&
          meet(BoxOf(texts[i], textHeight), BoxOf(texts[k], textHeight))) {
        found.push_back(texts[i].Text + " / " + texts[k].Text);
      }
    }
  }
  return found;
}

TEST(PlanDrawing, TextsDoNotOverprintInAnyPanel) {
  for (const double gob : {500.0, 5000.0}) {
    for (const double angle : {90.0, 60.0, 30.0}) {
      for (const int rows : {1, 5, 9}) {
        Project p = test::TwoSideGobs();
        p.ExtentFirstGob = p.ExtentSecondGob = gob;
        p.XcutAngle = angle;
        p.RowC = p.RowD = 1;
        p.WidthRowC = p.WidthRowD = 40;
        test::SetRows(p, rows, 60);
        for (const bool schematic : {true, false}) {
          PlanRequest request = RequestOf(p);
          request.Geometry.SchematicGobs = schematic;
          request.Title = {"panel.KVL", "A panel", "traditional", "2026-11-25"};
          const Plan plan = DrawPlan(request).value();
          const double height = static_cast<double>(plan.PlanHeight) * request.TextShare;
          EXPECT_EQ(Overprints(plan, height), Texts{})
              << gob << " " << angle << " " << rows << " " << schematic;
        }
      }
    }
  }
}

// Every corner of the box of a value lies within the pillar.
TEST(PlanDrawing, ValuesStayWithinTheOutlinesOfTheirPillars) {
  for (const double angle : {90.0, 60.0, 45.0, 30.0}) {
    Project p = test::AtCondition(test::TwoSideGobs(), 1);
    p.XcutAngle = angle;
    p.XcutSpacing = 70;
    for (const PillarPlot plot : {kPlotDimensions, kPlotCapacity, kPlotTotalStress}) {
      PlanRequest request = AfterRun(p, plot);
      request.TextShare = 1.0 / 30;
      const Plan plan = DrawPlan(request).value();
      int found = 0;
      for (const PlanPillar& pillar : plan.Pillars) {
        const auto x = [&](std::size_t corner) { return static_cast<double>(pillar.Corners.at(corner).X); };
        const auto y = [&](std::size_t corner) { return static_cast<double>(pillar.Corners.at(corner).Y); };
        const double slope = (y(1) - y(0)) / (x(1) - x(0));
        for (const DrawText& text : plan.Panel.Texts) {
          const double rise = slope * (text.At.X - x(0));
          if (text.At.X < x(0) || text.At.X > x(1) || text.At.Y < y(0) + rise || text.At.Y > y(3) + rise) {
            continue;
          }
          ++found;
          const DrawBox box = BoxOf(text, static_cast<double>(plan.PlanHeight) * request.TextShare);
          EXPECT_TRUE(box.Low.X > x(0) && box.High.X < x(1)) << text.Text << " at " << angle;
          for (const double at : {box.Low.X, box.High.X}) {
            EXPECT_TRUE(box.Low.Y > y(0) + slope * (at - x(0)) && box.High.Y < y(3) + slope * (at - x(0)))
                << text.Text << " at " << angle;
          }
        }
      }
      EXPECT_GE(found, 5);
    }
  }
}

TEST(PlanDrawing, LegendNamesWhatIsSeen) {
  Project p = test::TwoSideGobs();
  EXPECT_EQ(CountOf(DrawPlan(RequestOf(p)).value(), "Barrier pillar"), 1);
  EXPECT_EQ(CountOf(DrawPlan(RequestOf(p)).value(), "Active mining zone, 150 ft"), 1);
  p.BarrierFirstGob = p.BarrierSecondGob = p.SlabcutFirstGob = 0;
  EXPECT_EQ(CountOf(DrawPlan(RequestOf(p)).value(), "Barrier pillar"), 0);
  p.BreadthAMZ = 2000;
  EXPECT_EQ(CountOf(DrawPlan(RequestOf(p)).value(), "Active mining zone, 2000 ft, not to scale"), 1);
  EXPECT_FALSE(Says(DrawPlan(RequestOf(test::DevelopmentPanel())).value(), "Active mining zone"));
}

TEST(PlanDrawing, MetersKeepADecimalOrAreSaidToBeRounded) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  const auto rounds = [&request] { return Says(DrawPlan(request).value(), "rounded"); };
  EXPECT_FALSE(rounds());
  request.ProjectCalc.WidthRowC = 40.5F;
  EXPECT_FALSE(rounds()) << "the row is not there";
  request.ProjectCalc.RowC = 1;
  EXPECT_TRUE(rounds());
  for (double Project::*length : {&Project::XcutSpacing, &Project::ExtentActiveGob, &Project::BarrierFirstGob,
                                  &Project::BarrierSecondGob, &Project::SlabcutSecondGob}) {
    request = RequestOf(test::TwoSideGobs());
    request.PlotType = kPlotStrength;  // no sizes in the pillars
    request.ProjectCalc.*length += 0.5;
    EXPECT_TRUE(rounds());
  }
  request = RequestOf(test::TwoSideGobs());
  request.PlotType = kPlotStrength;
  request.ProjectCalc.XcutCenters[2] += 0.5;
  EXPECT_TRUE(rounds());
  request = RequestOf(test::TwoSideGobs());
  request.Units = kMetric;
  request.ProjectCalc.XcutCenters[1] = 18.3;
  request.ProjectCalc.SlabcutFirstGob = 10.5;
  const Plan plan = DrawPlan(request).value();
  EXPECT_EQ(CountOf(plan, "10.5"), 1);
  EXPECT_EQ(CountOf(plan, "18"), 1);
  EXPECT_TRUE(Says(plan, "Dimensions without a decimal are rounded to whole m."));
}

TEST(PlanDrawing, ALongTitleIsCutInItsMiddle) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  EXPECT_FALSE(Says(DrawPlan(request).value(), "Project: "));
  request.Title = {"panel.KVL", std::string(300, 'x') + "\xff\n", "laminated", "2026-11-25"};
  request.ProjectCalc.XcutCenters[1] = 21;
  const Plan plan = DrawPlan(request).value();
  EXPECT_TRUE(Says(plan, "Title: xxx"));
  EXPECT_TRUE(Says(plan, "xxx\u2026xxx")) << "to what has room";
  std::set<double> heights;
  for (const DrawText& text : plan.Panel.Texts) {
    if (text.Text.starts_with('E') || text.Text.starts_with('P')) {
      heights.insert(text.Scale);
    }
  }
  EXPECT_EQ(heights.size(), 1U) << "entries and pillars alike";
}

TEST(PlanDrawing, LargeLettersLeaveThePanelItsRoom) {
  Project p = test::TwoSideGobs();
  p.XcutAngle = 60;
  p.RowC = 1;
  p.WidthRowC = 40;
  p.XcutSpacing = 70.5;
  PlanRequest request = RequestOf(p);
  request.Title = {"panel.KVL", "A panel", "traditional", "2026-11-25"};
  for (const double share : {1.0 / 200, kPlanTextShare, 1.0 / 20}) {
    request.TextShare = share;
    const Plan plan = DrawPlan(request).value();
    const auto side = static_cast<double>(plan.PlanHeight);
    EXPECT_GT(plan.PanelHigh - plan.PanelLow, 0.54 * side) << share;
    EXPECT_EQ(plan.Frame.Texts.back().Scale < 1, share == 1.0 / 20) << share;
    EXPECT_EQ(Overprints(plan, side * share), Texts{});
    const DrawBox box = BoxOf(plan.Panel, side * share);
    EXPECT_GE(box.Low.Y, plan.PanelLow);
    EXPECT_LE(box.High.Y, plan.PanelHigh);
  }
}

TEST(PlanDrawing, AnEnlargedPanelKeepsTheFrame) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  request.TextShare = 1.0 / 25;
  const Plan whole = DrawPlan(request).value();
  request.Zoom = 8;
  const Plan enlarged = DrawPlan(request).value();
  EXPECT_EQ(enlarged.PlanWidth, whole.PlanWidth);
  EXPECT_EQ(enlarged.Pillars.front().Corners[0].X, whole.Pillars.front().Corners[0].X);
  EXPECT_EQ(CountOf(whole, "200 ft"), 1);
  EXPECT_EQ(CountOf(enlarged, "20 ft"), 1) << "a scale of its own";
  const auto scale = [](const Plan& plan, const char* text) {
    const auto found = std::find_if(plan.Panel.Texts.begin(), plan.Panel.Texts.end(),
                                    [&](const DrawText& t) { return t.Text == text; });
    return found->Scale;
  };
  EXPECT_LT(scale(whole, "40x60"), 1);
  EXPECT_EQ(scale(enlarged, "40x60"), 1) << "there is room now";
}

// As it is while the first number is typed in.
TEST(PlanDrawing, APanelWithoutLengthHasAPlan) {
  Project project = EmptyProject(kEnglish);
  project.XcutCenters[1] = 20;
  PlanRequest request = RequestOf(project);
  for (const bool full : {true, false}) {
    request.Full = full;
    const auto plan = DrawPlan(request);
    ASSERT_TRUE(plan);
    EXPECT_GE(plan->PlanWidth, 20);
    EXPECT_LT(plan->PlanWidth, 100);
  }
}

TEST(PlanDrawing, PreviewIsOutlinesAloneAndNothingHasNoPlan) {
  PlanRequest request = RequestOf(test::TwoSideGobs());
  request.Full = false;
  const Plan plan = DrawPlan(request).value();
  EXPECT_TRUE(PictureOf(plan).Texts.empty());
  EXPECT_TRUE(plan.Panel.Lines.empty());
  EXPECT_EQ(plan.Panel.Polygons.size(), 20U + 4 + 1);
  request.ProjectCalc.NumberEntries = 1;  // gobs around no pillar
  EXPECT_FALSE(DrawPlan(request));
  request.ProjectCalc = Project{};
  EXPECT_FALSE(DrawPlan(request)) << "pillars without size";
}

}  // namespace
}  // namespace korva
