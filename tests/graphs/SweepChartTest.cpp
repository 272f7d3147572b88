#include <fmt/format.h>
#include <gtest/gtest.h>
#include <minizip/unzip.h>
#include <sys/resource.h>

#include <csignal>
#include <pugixml.hpp>

#include "charts/LayOutChart.h"
#include "graphs/GraphTitles.h"
#include "graphs/GraphWorkbook.h"
#include "graphs/SweepChart.h"
#include "graphs/SweepNotes.h"
#include "pictures/PaintPicture.h"
#include "support/ExpectError.h"
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

TEST(GraphTitles, GraphsOfABarrierNeedItAndItsGob) {
  Project panel = test::TwoSideGobs();
  EXPECT_TRUE(HasBarrierOf(kFirstBarrierGraph, panel) && HasBarrierOf(kSecondBarrierGraph, panel));
  panel.LoadingCondition = PanelLoading::kWithFirstSideGob;
  EXPECT_TRUE(HasBarrierOf(kBarrierDepthGraph, panel) && !HasBarrierOf(kSecondBarrierGraph, panel));
  panel.BarrierFirstGob = 0;
  EXPECT_TRUE(HasBarrierOf(kDepthGraph, panel) && !HasBarrierOf(kBarrierDepthGraph, panel));
}

GraphSettings Titles() {
  GraphSettings settings;
  PrepareTitles(settings, kDepthGraph, kEnglish);
  return settings;
}

TEST(GraphTitles, AreMadeForTheirUnitSystem) {
  GraphSettings settings;
  PrepareTitles(settings, kXcutAngleGraph, kMetric);
  EXPECT_EQ(settings.XAxisTitle[kEntryHeightGraph], "Entry Height (m)");
  EXPECT_EQ(settings.XAxisTitle[kXcutAngleGraph], "Crosscut Angle (deg)");
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Depth of Cover (m)");
  EXPECT_EQ(settings.YAxisTitle[1], "Barrier Stability Factor");
  settings.XAxisTitle[kDepthGraph] = "Cover";
  settings.GraphTitle = "Mine";
  settings.SymbolSize = 1;
  settings.GridStyle = GridLines::kHorizontal;
  settings.GraphStyle = CurveStyle::kLines;
  settings.CurveLegend = false;
  PrepareTitles(settings, kDepthGraph, kMetric);
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Cover");
  PrepareTitles(settings, kDepthGraph, kEnglish);
  EXPECT_EQ(settings.XAxisTitle[kDepthGraph], "Depth of Cover (ft)");
  EXPECT_EQ(settings.GraphTitle, "Korva Panel Review - Strondel");
  EXPECT_EQ(settings.SymbolSize, 5);
  EXPECT_TRUE(settings.GridStyle == GridLines::kNone && settings.GraphStyle == CurveStyle::kLinesAndSymbols &&
              settings.CurveLegend);
  settings.XAxisTitle[kDepthGraph] = "Depth of Cover";  // as a settings file without titles reads
  settings.GridStyle = GridLines::kBoth;
  PrepareTitles(settings, kDepthGraph, kEnglish);
  EXPECT_EQ(settings.GridStyle, GridLines::kBoth);
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
  settings.GridStyle = GridLines::kVertical;
  settings.GraphStyle = CurveStyle::kSymbols;
  settings.SymbolSize = 9;
  const Chart chart = ChartOf(Line(4), 2, settings, true);
  EXPECT_EQ(chart.SymbolSize, 9);
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
  EXPECT_EQ(chart.Bands[1].To, chart.XAxis.Scale.High);
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

TEST(DisplayCurves, IsOneWithoutAnActiveGob) {
  using enum PanelLoading;
  Project panel = test::TwoSideGobs();
  EXPECT_EQ(DisplayCurves(panel, Line(4)), 4);
  panel.LoadingCondition = kActiveSection;
  EXPECT_EQ(DisplayCurves(panel, Line(2)), 2);
  panel.LoadingCondition = kDevelopmentLoad;
  EXPECT_EQ(DisplayCurves(panel, Line(4)), 1);
  panel.LoadingCondition = kActiveSection;
  panel.ExtentActiveGob = 0;
  EXPECT_EQ(DisplayCurves(panel, Line(2)), 1);
}

TEST(SweepNotes, PointsSideBySideAreARange) {
  SweepData data = Line(2);
  const FormNotice flat = {"flat", "flat at this angle"};
  data.Notices = {{flat}, {flat}, {flat}};
  EXPECT_EQ(SweepNotes(data, 2), std::vector<std::string>{"Hollow, shaded: flat (100.00 to 200.00)"});
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
  EXPECT_EQ(ChartOf(data, 3, settings, false).Curves[2].Y, std::vector<double>(3, kChartHole));
  const std::string drawn = Drawn(chart, PictureKind::kSvg);
  EXPECT_EQ(drawn.find("e+"), std::string::npos) << "nothing far away";
  data.GraphData[2] = data.GraphData[3];
  EXPECT_EQ(SweepNotes(data, 4),
            (std::vector<std::string>{
                "No first barrier, so no factor: Retreat (KORVA)",
                "No second barrier, so no factor: Development (KORVA-STROND), Retreat (KORVA-STROND)"}));
  data.LaminatedCount = 0;
  EXPECT_EQ(CurvesWithoutFactor(data), std::vector<int>{2}) << "no point tells nothing";
  data.GraphIndex = kDepthGraph;
  EXPECT_TRUE(CurvesWithoutFactor(data).empty()) << "the zone always has a factor";
  data = Line(2);
  data.PointCount = 1;
  for (const auto& [graph, barrier] :
       {std::pair(kFirstBarrierGraph, "first"), {kSecondBarrierGraph, "second"}}) {
    data.GraphIndex = graph;
    data.GraphData[0] = data.GraphData[1] = {0};  // no barrier is where its sweep begins
    EXPECT_EQ(SweepNotes(data, 2),
              std::vector{fmt::format("No {} barrier, so no factor: Development (KORVA)", barrier)});
  }
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

// What an XPath expression gives for the part of a workbook.
void ExpectPart(const std::string& workbook, const char* name,
                const std::vector<std::pair<const char*, const char*>>& values) {
  pugi::xml_document part;
  ASSERT_TRUE(part.load_string(Entry(workbook, name).c_str()));
  for (const auto& [path, value] : values) {
    EXPECT_EQ(pugi::xpath_query(path).evaluate_string(part), std::string(value)) << path;
  }
}

constexpr const char* kSheetPart = "xl/worksheets/sheet1.xml";
constexpr const char* kChartPart = "xl/charts/chart1.xml";
constexpr const char* kPlacePart = "xl/drawings/drawing1.xml";

TEST(GraphWorkbook, HasAPairOfColumnsForEveryCurve) {
  const std::string workbook = GraphWorkbook(ChartOf(Line(2), 2, Titles(), false));
  pugi::xml_document sheet;
  ASSERT_TRUE(sheet.load_string(Entry(workbook, kSheetPart).c_str()));
  std::string cells;
  for (const pugi::xpath_node& cell : sheet.select_nodes("//c")) {
    cells += std::string(cell.node().attribute("r").value()) + "=" + cell.node().child_value("v") + " ";
  }
  EXPECT_EQ(cells,
            "A1=0 B1=1 C1=0 D1=2 A2=100 B2=3 C2=100 D2=3 A3=150 B3=2.25 C3=150 D3=2.25 A4=200 "
            "B4=0.1000000014901161 C4=200 D4=0.1000000014901161 ");
  ExpectPart(workbook, "xl/sharedStrings.xml", {{"//si[1]", "X-coord"}, {"//si[2]", "Development (KORVA)"}});
  ExpectPart(GraphWorkbook(ChartOf(Doubtful(), 4, Titles(), false)), kSheetPart,
             {{"concat(count(//c[@r='I4']), count(//c[@r='I3']))", "10"},  // notices
              {"count(//c[@r='J4'])", "1"},                                // remarks
              {"count(//c[@r='F4'])", "0"}});                              // a point that was not computed
}

TEST(GraphWorkbook, HasTheChartAsItIsShown) {
  GraphSettings settings = Titles();
  std::string workbook = GraphWorkbook(ChartOf(Line(2), 2, settings, false));
  ExpectPart(workbook, kChartPart,
             {{"//c:chart/c:title//a:t", "Korva Panel Review - Strondel"},
              {"//c:valAx[1]/c:title//a:t", "Depth of Cover (ft)"},
              {"//c:valAx[2]/c:title//a:t", "Stability Factor"},
              {"concat(//c:valAx[1]//c:min/@val, ' ', //c:valAx[1]//c:max/@val)", "100 200"},
              {"count(//c:majorGridlines)", "0"},
              {"count(//c:legend)", "1"},
              {"//c:ser[2]//c:xVal//c:f", "Graph!$C$2:$C$4"},
              {"//c:ser[2]//c:yVal//c:f", "Graph!$D$2:$D$4"},
              {"//c:ser[2]/c:tx//c:f", "Graph!$D$1"},
              {"//c:ser[2]/c:spPr/a:ln[@w='25400']//a:srgbClr/@val", "CD5C5C"},
              {"//c:ser[2]/c:marker[c:size/@val='5'][c:symbol/@val='square']//a:srgbClr/@val", "CD5C5C"},
              {"count(//c:dPt)", "0"}});
  ExpectPart(workbook, kPlacePart,
             {{"concat(//xdr:from/xdr:col, ' ', //xdr:from/xdr:row)", "5 1"},
              {"concat(//xdr:to/xdr:col, ' ', //xdr:to/xdr:row)", "16 24"}});
  ExpectPart(
      workbook, kSheetPart,
      {{"//pageSetup[@fitToHeight='0'][not(@fitToWidth)]/@orientation", "landscape"},
       {"//pageSetUpPr/@fitToPage", "1"},
       {"concat(count(//col), //col[1]/@min, //col[1]/@max, ' ', //col[1]/@width)", "222 28.7109375"}});
  settings.CurveLegend = false;
  settings.GridStyle = GridLines::kVertical;
  settings.GraphStyle = CurveStyle::kSymbols;
  workbook = GraphWorkbook(ChartOf(Doubtful(), 4, settings, false));
  ExpectPart(workbook, kChartPart,
             {{"count(//c:legend)", "0"},
              {"concat(count(//c:valAx[1]/c:majorGridlines), count(//c:majorGridlines))", "11"},
              {"count(//c:ser/c:spPr/a:ln/a:noFill)", "4"},
              {"count(//c:dPt)", "6"},  // hollow symbols
              {"//c:ser[2]/c:dPt[2]/c:idx/@val", "2"},
              {"//c:ser[2]/c:dPt[2]//a:ln//a:srgbClr/@val", "CD5C5C"},
              {"//c:ser[2]/c:dPt[2]//c:spPr/a:solidFill/a:srgbClr/@val", "FFFFFF"},
              {"//c:ser[3]/c:marker//a:srgbClr/@val", "000000"}});
  ExpectPart(workbook, kPlacePart, {{"//xdr:from/xdr:col", "11"}});
  settings.GridStyle = GridLines::kHorizontal;
  settings.GraphStyle = CurveStyle::kLines;
  Chart half = ChartOf(Line(2), 2, settings, false);
  half.Curves[1].X.clear();
  half.Curves[1].Y.clear();
  half.Curves[0].Y[1] = kChartHole;
  workbook = GraphWorkbook(half);
  ExpectPart(workbook, kSheetPart, {{"count(//c)", "9"}, {"count(//c[@r='B3'])", "0"}});
  ExpectPart(workbook, kChartPart,
             {{"count(//c:ser)", "1"},
              {"concat(count(//c:valAx[2]/c:majorGridlines), count(//c:majorGridlines))", "11"},
              {"//c:symbol/@val", "none"}});
  SweepData none = Line(2);
  none.PointCount = 0;
  EXPECT_FALSE(GraphWorkbook(ChartOf(none, 2, Titles(), false)).empty());
}

// Its parts are larger than the workbook, whose writer does not notice that they do not fit.
TEST(GraphWorkbook, IsWholeOrAnError) {
  Chart chart = ChartOf(Line(2), 2, Titles(), false);
  chart.Curves[0].X.resize(2000, 150);
  chart.Curves[0].Y.resize(2000, 3);
  const std::size_t size = GraphWorkbook(chart).size();
  rlimit free{};
  ::getrlimit(RLIMIT_FSIZE, &free);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full = {size + 4096, free.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &full);
  const std::string lost = ExpectError(ErrorNumber::kDeviceIo, [&] { GraphWorkbook(chart); });
  ::setrlimit(RLIMIT_FSIZE, &free);
  EXPECT_EQ(lost, "the workbook: a part was cut off");
  chart.Notes = {std::string(40000, 'x')};
  EXPECT_NE(ExpectError(ErrorNumber::kDeviceIo, [&] { GraphWorkbook(chart); }).find("32,767"),
            std::string::npos);
}

}  // namespace
}  // namespace korva
