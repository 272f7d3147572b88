#include <gtest/gtest.h>
#include <minizip/unzip.h>

#include <fstream>
#include <pugixml.hpp>

#include "graphs/Chart.h"
#include "graphs/ChartPicture.h"
#include "graphs/GraphTitles.h"
#include "graphs/GraphWorkbook.h"
#include "graphs/SweepNotes.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

SweepData Line(int curves) {
  SweepData data;
  data.GraphIndex = kDepthGraph;
  data.CurveCount = curves;
  data.PointCount = 3;
  data.PointCapacity = 4;
  data.LaminatedCount = curves > 2 ? 3 : 0;
  data.GraphData[0] = {100, 150, 200, 0};
  for (int curve = 1; curve <= curves; ++curve) {
    data.GraphData[curve] = {3, 2.25F, 0.1F, 0};
  }
  return data;
}

GraphSettings Titles() {
  GraphSettings settings;
  PrepareTitles(settings, kDepthGraph, kEnglish);
  return settings;
}

TEST(GraphTitles, AreMadeForTheirUnitSystem) {
  GraphSettings settings;
  PrepareTitles(settings, kXcutAngleGraph, kMetric);
  EXPECT_EQ(settings.XAxisTitle[kXcutAngleGraph], "Crosscut Angle (deg)");
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Depth of Cover (m)");
  EXPECT_EQ(settings.YAxisTitle[1], "Barrier Stability Factor");
  settings.XAxisTitle[kDepthGraph] = "Cover";
  settings.GraphTitle = "Mine";
  settings.SymbolSize = 9;
  PrepareTitles(settings, kDepthGraph, kMetric);
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Cover");
  PrepareTitles(settings, kDepthGraph, kEnglish);
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Depth of Cover (ft)");
  EXPECT_EQ(settings.GraphTitle, "Korva Panel Review - Strondel");
  EXPECT_EQ(settings.SymbolSize, 5);
  settings.XAxisTitle[kDepthGraph] = "Depth of Cover";  // as a settings file without titles reads
  settings.GridStyle = 3;
  PrepareTitles(settings, kDepthGraph, kEnglish);
  EXPECT_EQ(settings.GridStyle, 3);
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Depth of Cover (ft)");
}

TEST(GraphTitles, OneCurveAloneWithoutAnActiveGob) {
  Project panel = test::TwoSideGobs();
  EXPECT_EQ(DisplayCurves(panel, Line(4)), 4);
  panel.ExtentActiveGob = 0;
  EXPECT_EQ(DisplayCurves(panel, Line(4)), 1);
  EXPECT_EQ(DisplayCurves(test::DevelopmentPanel(), Line(2)), 1);
}

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

TEST(Chart, TakesWhatIsFilledInTheFormatOfTheSettings) {
  GraphSettings settings = Titles();
  settings.GridStyle = 2;
  settings.GraphStyle = 2;
  const Chart chart = ChartOf(Line(4), 2, settings, true);
  ASSERT_EQ(chart.Curves.size(), 2U);
  EXPECT_EQ(chart.Curves[1].Label, "Retreat (KORVA)");
  EXPECT_EQ(chart.Curves[1].Colour, 0xCD5C5CU);
  EXPECT_EQ(chart.Curves[0].Y, (std::vector<double>{3, 2.25, static_cast<double>(0.1F)}));
  EXPECT_FALSE(chart.HorizontalGrid);
  EXPECT_TRUE(chart.VerticalGrid);
  EXPECT_FALSE(chart.Lines);
  EXPECT_TRUE(chart.Symbols);
  EXPECT_EQ(chart.Reference, 1.5);
  SweepData barriers = Line(2);
  barriers.GraphIndex = kFirstBarrierGraph;
  EXPECT_EQ(ChartOf(barriers, 2, settings, true).Reference, 2);
  EXPECT_FALSE(ChartOf(barriers, 2, settings, false).Reference);
  // The curve falls from the top left to the bottom right.
  EXPECT_EQ(FreeCorner(chart, {0.3, 0.2, 0.01, 0.01}), ChartCorner::kTopRight);
  EXPECT_FALSE(FreeCorner(chart, {0.9, 0.9, 0.01, 0.01}));
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

// The first and the last point without length, a laminated model that came to the second point.
SweepData Doubtful() {
  SweepData data = Line(4);
  data.LaminatedCount = 2;
  const FormNotice noLength = {"pillars without length", "the pillars have no length"};
  data.Notices = {{noLength, {"arch factor below 0.28", "the arch factor of 0.2"}}, {}, {noLength}};
  data.Partial = "2 of 3 points of the laminated model; cancelled";
  return data;
}

TEST(Chart, TellsWhatIsToBeKnownOfItsPoints) {
  const Chart chart = ChartOf(Doubtful(), 4, Titles(), true);
  EXPECT_EQ(chart.Curves[1].X.size(), 3U);
  EXPECT_EQ(chart.Curves[2].X.size(), 2U) << "no point that was not computed";
  EXPECT_EQ(chart.PointNotices,
            (std::vector<std::string>{"the pillars have no length; the arch factor of 0.2", "",
                                      "the pillars have no length"}));
  ASSERT_EQ(chart.Bands.size(), 2U);
  EXPECT_EQ(chart.Bands[0].From, chart.XScale.Low);
  EXPECT_EQ(chart.Bands[0].To, 125);
  EXPECT_EQ(chart.Bands[1].From, 175);
  EXPECT_TRUE(IsHollow(chart, 2) && !IsHollow(chart, 1));
  EXPECT_EQ(chart.Notes,
            (std::vector<std::string>{"Hollow, shaded: pillars without length (100.00, 200.00)",
                                      "Hollow, shaded: arch factor below 0.28 (100.00)",
                                      "Partial: 2 of 3 points of the laminated model; cancelled"}));
  const std::string drawn = ChartPicture(chart, PictureKind::kSvg);
  const std::string shade = "91.764706%,89.019608%,83.529412%";
  EXPECT_NE(drawn.find(shade), std::string::npos);
  const Chart plain = ChartOf(Line(4), 4, Titles(), true);
  EXPECT_TRUE(plain.Bands.empty() && plain.Notes.empty() && plain.PointNotices.empty());
  EXPECT_EQ(ChartPicture(plain, PictureKind::kSvg).find(shade), std::string::npos);
}

TEST(Chart, ACurveWithoutABarrierIsNotDrawnAtZero) {
  SweepData data = Line(4);
  data.GraphIndex = kBarrierDepthGraph;
  data.GraphData[3] = data.GraphData[4] = {0, 0, 0, 0};
  EXPECT_EQ(CurvesWithoutFactor(data), (std::vector<int>{3, 4}));
  GraphSettings settings;
  PrepareTitles(settings, kBarrierDepthGraph, kEnglish);
  const Chart chart = ChartOf(data, 4, settings, false);
  EXPECT_EQ(chart.Curves[2].Y, std::vector<double>(3, kChartHole));
  EXPECT_EQ(chart.Notes,
            std::vector<std::string>{
                "No second barrier, so no factor: Development (KORVA-STROND), Retreat (KORVA-STROND)"});
  EXPECT_LT(chart.YScale.High, 10);
  EXPECT_TRUE(FreeCorner(chart, {0.3, 0.2, 0.01, 0.01}));
  const std::string drawn = ChartPicture(chart, PictureKind::kSvg);
  EXPECT_EQ(drawn.find("e+"), std::string::npos) << "nothing far away";
  data.GraphIndex = kDepthGraph;
  EXPECT_TRUE(CurvesWithoutFactor(data).empty()) << "the zone always has a factor";
}

TEST(Chart, NotesAreBrokenIntoLines) {
  const auto size = [](const std::string& text) { return static_cast<double>(text.size()); };
  EXPECT_EQ(NoteLines({"one two three", "four"}, 8, size),
            (std::vector<std::string>{"one two", "three", "four"}));
  EXPECT_EQ(NoteLines({"a /long/path"}, 5, size), (std::vector<std::string>{"a", "/long", "/path"}));
  EXPECT_EQ(NoteLines({"\xC3\xA4\xC3\xA4"}, 1, size), (std::vector<std::string>{"\xC3\xA4", "\xC3\xA4"}))
      << "characters stay whole";
}

TEST(ChartPicture, IsAFileOfTheKindAskedFor) {
  const Chart chart = ChartOf(Line(4), 4, Titles(), true);
  EXPECT_EQ(PictureKindOf("a.b.PDF"), PictureKind::kPdf);
  EXPECT_FALSE(PictureKindOf("graph"));
  EXPECT_EQ(ChartPicture(chart, PictureKind::kPdf).find("%PDF"), 0U);
  EXPECT_EQ(ChartPicture(chart, PictureKind::kPng).find("\x89PNG"), 0U);
  const std::string drawn = ChartPicture(chart, PictureKind::kSvg);
  pugi::xml_document svg;
  EXPECT_TRUE(svg.load_string(drawn.c_str()));
  for (const char* colour : {"0%,0%,100%", "80.392157%,36.078431%,36.078431%", "0%,39.215686%,0%"}) {
    EXPECT_NE(drawn.find(colour), std::string::npos) << "a curve is missing: " << colour;
  }
  const std::string dashes = "stroke-dasharray";
  EXPECT_NE(drawn.find(dashes), std::string::npos) << "the reference line";
  const Chart plain = ChartOf(Line(1), 1, Titles(), false);
  EXPECT_EQ(ChartPicture(plain, PictureKind::kSvg).find(dashes), std::string::npos);
  EXPECT_FALSE(ChartPicture(Chart{}, PictureKind::kSvg).empty()) << "nothing to show is no error";
}

std::string Entry(const std::string& workbook, const char* name) {
  const TempFolder folder;
  unzFile zip = unzOpen64(folder.Put("book.xlsx", workbook).c_str());
  std::string bytes(1 << 20, '\0');
  EXPECT_EQ(unzLocateFile(zip, name, 1), UNZ_OK);
  unzOpenCurrentFile(zip);
  bytes.resize(static_cast<std::size_t>(
      std::max(0, unzReadCurrentFile(zip, bytes.data(), static_cast<unsigned>(bytes.size())))));
  unzCloseCurrentFile(zip);
  unzClose(zip);
  return bytes;
}

TEST(GraphWorkbook, HasAPairOfColumnsForEveryCurveAndAChart) {
  const std::string workbook = GraphWorkbook(ChartOf(Line(2), 2, Titles(), false));
  pugi::xml_document sheet;
  ASSERT_TRUE(sheet.load_string(Entry(workbook, "xl/worksheets/sheet1.xml").c_str()));
  std::string cells;
  for (const pugi::xml_node row : sheet.child("worksheet").child("sheetData").children("row")) {
    for (const pugi::xml_node cell : row.children("c")) {
      cells += std::string(cell.attribute("r").value()) + "=" + cell.child_value("v") + " ";
    }
  }
  EXPECT_EQ(cells,
            "A1=0 B1=1 C1=0 D1=2 A2=100 B2=3 C2=100 D2=3 A3=150 B3=2.25 C3=150 D3=2.25 A4=200 "
            "B4=0.1000000014901161 C4=200 D4=0.1000000014901161 ");
  const std::string strings = Entry(workbook, "xl/sharedStrings.xml");
  EXPECT_LT(strings.find("X-coord"), strings.find("Development (KORVA)"));
  EXPECT_NE(Entry(workbook, "xl/charts/chart1.xml").find("Graph!$C$2:$C$4"), std::string::npos);
  const std::string marked = GraphWorkbook(ChartOf(Doubtful(), 4, Titles(), false));
  ASSERT_TRUE(sheet.load_string(Entry(marked, "xl/worksheets/sheet1.xml").c_str()));
  EXPECT_TRUE(sheet.select_node("//c[@r='I4']") && !sheet.select_node("//c[@r='I3']")) << "notices";
  EXPECT_TRUE(sheet.select_node("//c[@r='J4']")) << "remarks";
  EXPECT_FALSE(sheet.select_node("//c[@r='F4']")) << "a point that was not computed";
  EXPECT_NE(Entry(marked, "xl/sharedStrings.xml").find("the pillars have no length; the arch"),
            std::string::npos);
  EXPECT_NE(Entry(marked, "xl/charts/chart1.xml").find("<c:dPt>"), std::string::npos) << "hollow symbols";
  SweepData none = Line(2);
  none.PointCount = 0;
  EXPECT_FALSE(GraphWorkbook(ChartOf(none, 2, Titles(), false)).empty());
}

}  // namespace
}  // namespace korva
