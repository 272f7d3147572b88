#include <gtest/gtest.h>
#include <minizip/unzip.h>

#include <fstream>
#include <pugixml.hpp>

#include "charts/LayOutChart.h"
#include "graphs/GraphTitles.h"
#include "graphs/GraphWorkbook.h"
#include "graphs/SweepChart.h"
#include "graphs/SweepNotes.h"
#include "pictures/PaintPicture.h"
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

std::string Drawn(const Chart& chart, PictureKind kind) {
  return PictureBytes(kind, LayOutChart(chart, kChartSheet, TextWidth).Drawn);
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

TEST(SweepChart, TakesWhatIsFilledInTheFormatOfTheSettings) {
  GraphSettings settings = Titles();
  settings.GridStyle = 2;
  settings.GraphStyle = 2;
  const Chart chart = ChartOf(Line(4), 2, settings, true);
  ASSERT_EQ(chart.Curves.size(), 2U);
  EXPECT_EQ(chart.Curves[1].Label, "Retreat (KORVA)");
  EXPECT_EQ(chart.Curves[1].Colour, 0xCD5C5CU);
  EXPECT_EQ(chart.Curves[0].Y, (std::vector<double>{3, 2.25, static_cast<double>(0.1F)}));
  EXPECT_FALSE(chart.YAxis.Grid);
  EXPECT_TRUE(chart.XAxis.Grid);
  EXPECT_FALSE(chart.Curves[0].Line);
  EXPECT_EQ(chart.Curves[1].Symbol, SymbolShape::kSquare);
  ASSERT_EQ(chart.References.size(), 1U);
  EXPECT_EQ(chart.References[0].Text, "1.5");
  SweepData barriers = Line(2);
  barriers.GraphIndex = kFirstBarrierGraph;
  EXPECT_EQ(ChartOf(barriers, 2, settings, true).References[0].At, 2);
  EXPECT_TRUE(ChartOf(barriers, 2, settings, false).References.empty());
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

TEST(SweepChart, TellsWhatIsToBeKnownOfItsPoints) {
  const Chart chart = ChartOf(Doubtful(), 4, Titles(), true);
  EXPECT_EQ(chart.Curves[1].X.size(), 3U);
  EXPECT_EQ(chart.Curves[2].X.size(), 2U) << "no point that was not computed";
  EXPECT_EQ(chart.PointNotices,
            (std::vector<std::string>{"the pillars have no length; the arch factor of 0.2", "",
                                      "the pillars have no length"}));
  ASSERT_EQ(chart.Bands.size(), 2U);
  EXPECT_EQ(chart.Bands[0].From, chart.XAxis.Scale.Low);
  EXPECT_EQ(chart.Bands[0].To, 125);
  EXPECT_EQ(chart.Bands[1].From, 175);
  EXPECT_TRUE(IsHollow(chart.Curves[1], 2) && !IsHollow(chart.Curves[1], 1));
  EXPECT_EQ(chart.Notes,
            (std::vector<std::string>{"Hollow, shaded: pillars without length (100.00, 200.00)",
                                      "Hollow, shaded: arch factor below 0.28 (100.00)",
                                      "Partial: 2 of 3 points of the laminated model; cancelled"}));
  const std::string drawn = Drawn(chart, PictureKind::kSvg);
  const std::string shade = "91.764706%,89.019608%,83.529412%";
  EXPECT_NE(drawn.find(shade), std::string::npos);
  const Chart plain = ChartOf(Line(4), 4, Titles(), true);
  EXPECT_TRUE(plain.Bands.empty() && plain.Notes.empty() && plain.PointNotices.empty());
  EXPECT_EQ(Drawn(plain, PictureKind::kSvg).find(shade), std::string::npos);
}

TEST(SweepChart, ACurveWithoutABarrierIsNotDrawnAtZero) {
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
  EXPECT_LT(chart.YAxis.Scale.High, 10);
  const std::string drawn = Drawn(chart, PictureKind::kSvg);
  EXPECT_EQ(drawn.find("e+"), std::string::npos) << "nothing far away";
  data.GraphIndex = kDepthGraph;
  EXPECT_TRUE(CurvesWithoutFactor(data).empty()) << "the zone always has a factor";
}

TEST(SweepChart, IsAFileOfTheKindAskedFor) {
  const Chart chart = ChartOf(Line(4), 4, Titles(), true);
  EXPECT_EQ(PictureKindOf("a.b.PDF"), PictureKind::kPdf);
  EXPECT_FALSE(PictureKindOf("graph"));
  EXPECT_EQ(Drawn(chart, PictureKind::kPdf).find("%PDF"), 0U);
  EXPECT_EQ(Drawn(chart, PictureKind::kPng).find("\x89PNG"), 0U);
  const std::string drawn = Drawn(chart, PictureKind::kSvg);
  pugi::xml_document svg;
  EXPECT_TRUE(svg.load_string(drawn.c_str()));
  for (const char* colour : {"0%,0%,100%", "80.392157%,36.078431%,36.078431%", "0%,39.215686%,0%"}) {
    EXPECT_NE(drawn.find(colour), std::string::npos) << "a curve is missing: " << colour;
  }
  const std::string dashes = "stroke-dasharray";
  EXPECT_NE(drawn.find(dashes), std::string::npos) << "the reference line";
  const Chart plain = ChartOf(Line(1), 1, Titles(), false);
  EXPECT_EQ(Drawn(plain, PictureKind::kSvg).find(dashes), std::string::npos);
  EXPECT_FALSE(Drawn(Chart{}, PictureKind::kSvg).empty()) << "nothing to show is no error";
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
