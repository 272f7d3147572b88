#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

#include "charts/FitText.h"
#include "charts/LayOutChart.h"
#include "pictures/PaintPicture.h"

namespace korva {
namespace {

// A chart of all kinds of parts, by chance.
class ChartMaker {
 public:
  explicit ChartMaker(unsigned seed) : random_(seed) {}

  Chart Make() {
    chart_ = {};
    low_ = std::pow(10, Real(-2, 4)) * Real(-1, 1);
    span_ = std::pow(10, Real(-2, 4));
    chart_.Title = Words(12);
    chart_.XAxis.Title = Words(6);
    chart_.YAxis.Title = Words(6);
    chart_.XAxis.Grid = Coin();
    chart_.YAxis.Grid = Coin();
    chart_.SymbolSize = Real(3, 20);
    chart_.Legend = Count(4) > 0;
    for (int i = Count(5); i > 0; --i) {
      AddCurve();
    }
    AddBoxes();
    for (int i = Count(3); i > 0; --i) {
      chart_.References.push_back({Y(), Words(5), Coin()});
    }
    for (int i = Count(6); i > 0; --i) {
      chart_.Labels.push_back({X(), Y(), Words(2)});
    }
    for (int i = Count(3); i > 0; --i) {
      chart_.Notes.push_back(Words(25));
    }
    FitScales(chart_);
    return chart_;
  }

  PictureSize Size() { return {std::round(Real(267, 1600)), std::round(Real(200, 1000))}; }
  std::optional<ChartWindow> Window(const Chart& chart) {
    if (Coin()) {
      return std::nullopt;
    }
    ChartWindow seen = WholeOf(chart);
    for (AxisRange* range : {&seen.X, &seen.Y}) {
      const double all = range->High - range->Low;
      range->Low += Real(-0.3, 0.8) * all;
      range->High = range->Low + Real(0.01, 1.5) * all;
    }
    return seen;
  }

 private:
  double Real(double from, double to) { return std::uniform_real_distribution(from, to)(random_); }
  int Count(int most) { return std::uniform_int_distribution(0, most)(random_); }
  bool Coin() { return Count(1) == 1; }
  double X() { return low_ + Real(0, span_); }
  double Y() { return span_ * Real(-1, 3); }
  std::string Words(int most) {
    static constexpr std::array kWords = {"pillar",         "of",           "depth (ft)",
                                          "St\xC3\xB6rung", "KORVA-STROND", "1.50"};
    std::string text;
    for (int i = Count(most); i > 0; --i) {
      text += (text.empty() ? "" : " ") + std::string(kWords.at(static_cast<std::size_t>(Count(5))));
    }
    return text;
  }

  void AddCurve() {
    ChartCurve curve = {.Label = Words(2), .Colour = 0x0000FF, .X = {}, .Y = {}, .Line = Coin()};
    curve.Dash = Count(5);
    if (!curve.Line || Coin()) {
      curve.Symbol = static_cast<SymbolShape>(Count(4));
    }
    const int points = Count(40);
    const bool interval = Coin();
    for (int i = 0; i < points; ++i) {
      curve.X.push_back(low_ + span_ * i / points);
      curve.Y.push_back(Count(9) == 0 ? kChartHole : Y());
      curve.Hollow.push_back(Coin());
      if (interval) {
        curve.Low.push_back(Count(9) == 0 ? kChartHole : Y() - span_);
        curve.High.push_back(Count(9) == 0 ? kChartHole : curve.Low.back() + Real(0, span_));
      }
    }
    chart_.Curves.push_back(curve);
  }

  void AddBoxes() {
    const int parts = Count(12);
    const int kind = Count(4);
    if (kind == 1) {
      AddCells(parts);
    }
    for (int i = 0; i < parts; ++i) {
      const double left = low_ + span_ * i / parts;
      const double right = low_ + span_ * (i + 1) / parts;
      if (kind == 0) {
        chart_.Bars.push_back({left, right, 0, std::abs(Y()), 0x2F6F9F, Words(1)});
      } else if (kind == 2 && Coin()) {
        chart_.Bands.push_back({left, right, 0xEAE3D5, Words(1)});
      } else if (kind == 3) {  // bars that lie, by name
        chart_.Curves.clear();
        chart_.Bars.push_back({0, Y(), i - 0.4, i + 0.4, 0x2F6F9F});
        chart_.YAxis.Names.push_back(Words(3));
      }
    }
  }

  void AddCells(int side) {
    ChartCells cells = {{}, {}, {}, Words(2)};
    for (int i = 0; i <= side; ++i) {
      cells.XEdges.push_back(low_ + span_ * i / 12);
      cells.YEdges.push_back(span_ * (i - 6) / 3);
    }
    for (int i = 0; i < side * side; ++i) {
      cells.Values.push_back(Count(9) == 0 ? kChartHole : Y());
    }
    chart_.Cells = cells;
  }

  std::mt19937 random_;
  Chart chart_;
  double low_ = 0;
  double span_ = 1;
};

// Neither texts nor the scale of colours nor the legend, in which each entry has its label.
void ExpectNoneOverAnother(const Chart& chart, const ChartLayout& layout) {
  const Picture& picture = layout.Drawn;
  const PictureBox sheet = {0, 0, picture.Size.Width, picture.Size.Height};
  const PictureBox legend = layout.Legend.value_or(PictureBox{});
  std::ptrdiff_t missing = 0;  // labels of the legend
  const auto count = [&](const auto& parts) {
    missing +=
        std::count_if(parts.begin(), parts.end(), [](const auto& part) { return !part.Label.empty(); });
  };
  count(chart.Curves);
  count(chart.Bars);
  count(chart.Bands);
  std::vector<std::pair<std::string, PictureBox>> texts;
  for (const auto& record : picture.Records) {
    if (const auto* text = std::get_if<PictureText>(&record)) {
      const PictureBox box = BoxOf(*text, TextWidth);
      EXPECT_TRUE(sheet.Contains(box)) << text->Text;
      for (const auto& [other, place] : texts) {
        EXPECT_FALSE(place.Meets(box)) << "\"" << text->Text << "\" over \"" << other << "\"";
      }
      if (legend.Contains(box)) {
        --missing;
      } else {
        EXPECT_FALSE(legend.Meets(box)) << text->Text;
      }
      texts.emplace_back(text->Text, box);
    } else if (const auto* path = std::get_if<PicturePath>(&record)) {
      for (const DrawPoint& point : path->Points) {
        EXPECT_TRUE((path->Clipped ? sheet.Grown(1e9) : sheet).Contains(point)) << point.X << " " << point.Y;
      }
    } else if (const auto* raster = std::get_if<PictureRaster>(&record)) {
      EXPECT_TRUE(sheet.Contains(raster->Box));
      EXPECT_FALSE(raster->Box.Meets(legend));
      for (const auto& [other, place] : texts) {
        EXPECT_FALSE(place.Meets(raster->Box)) << other;  // on the map are only labels, which come last
      }
      EXPECT_EQ(raster->Columns * raster->Rows(), raster->Pixels.size());
    }
  }
  EXPECT_TRUE(!layout.Legend || missing == 0);
  EXPECT_TRUE(sheet.Contains(picture.Clip));
}

// Whether any of the line between two points lies in the box, by many points on it.
bool PassesThrough(const PictureBox& box, const DrawPoint& from, const DrawPoint& to) {
  for (int i = 0; i <= 64; ++i) {
    const double t = i / 64.0;
    if (box.Contains(DrawPoint{from.X + t * (to.X - from.X), from.Y + t * (to.Y - from.Y)})) {
      return true;
    }
  }
  return false;
}

// The legend covers nothing that is drawn in the plot but shaded stretches: where it stands inside, no
// symbol, line, outline or reference, and no filled part around it.
void ExpectLegendClear(const Chart& chart, const ChartLayout& layout) {
  if (!layout.Legend || !layout.Legend->Meets(layout.Plot)) {
    return;
  }
  const PictureBox& legend = *layout.Legend;
  std::size_t bands = chart.Bands.size();  // they are drawn first
  for (const auto& record : layout.Drawn.Records) {
    EXPECT_FALSE(std::holds_alternative<PictureRaster>(record));
    const auto* symbol = std::get_if<PictureSymbol>(&record);
    EXPECT_FALSE(symbol != nullptr && symbol->Clipped && legend.Grown(symbol->Radius).Contains(symbol->At));
    const auto* path = std::get_if<PicturePath>(&record);
    if (path == nullptr || (path->Clipped && bands > 0 && bands-- > 0)) {
      continue;
    }
    const bool reference = path->Pen.Dash > 0 && path->Pen.Colour != 0x0000FF;  // not a curve in the legend
    PictureBox around = {1e9, 1e9, -1e9, -1e9};
    for (std::size_t i = 0; (path->Clipped || reference) && i < path->Points.size(); ++i) {
      const DrawPoint& to = path->Points[i];
      const DrawPoint& from = path->Points[i > 0 ? i - 1 : path->Closed ? path->Points.size() - 1 : i];
      ASSERT_FALSE(PassesThrough(legend, from, to));
      around = {std::min(around.Left, to.X), std::min(around.Top, to.Y), std::max(around.Right, to.X),
                std::max(around.Bottom, to.Y)};
    }
    EXPECT_FALSE(path->Closed && path->Points.size() == 4 && around.Meets(legend)) << "a bar";
  }
}

TEST(LayOutChart, KeepsItsRulesInEverySize) {
  int legends = 0;
  for (unsigned seed = 1; seed <= 1000 && !testing::Test::HasFailure(); ++seed) {
    ChartMaker maker(seed);
    const Chart chart = maker.Make();
    const PictureSize size = maker.Size();
    const ChartLayout layout = LayOutChart(chart, size, TextWidth, maker.Window(chart));
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", " << size.Width << " x " << size.Height);
    ExpectNoneOverAnother(chart, layout);
    ExpectLegendClear(chart, layout);
    EXPECT_GE(layout.Plot.Width(), 60);
    EXPECT_GE(layout.Plot.Height(), 50);
    EXPECT_FALSE(layout.LegendOmitted && size.Width > 900 && size.Height > 500) << "there is room for it";
    legends += layout.Legend ? 1 : 0;
    for (const PlacedPoint& point : layout.Points) {
      const DrawPoint value = layout.ValueAt(point.At);
      const ChartCurve& curve = chart.Curves[point.Curve];
      const double slack = 1e-6 * (layout.Seen.Y.High - layout.Seen.Y.Low);
      EXPECT_NEAR(value.Y, curve.Y[point.Index], slack);
    }
  }
  EXPECT_GT(legends, 500);
}

Chart Falling() {
  Chart chart;
  chart.Title = "A heading that is far too long for a small picture, and is cut off there";
  chart.XAxis.Title = "Depth of Cover (ft)";
  chart.YAxis.Title = "Stability Factor";
  for (const char* label : {"Development (KORVA)", "Retreat (KORVA)"}) {
    chart.Curves.push_back({.Label = label, .Colour = 0xFF, .X = {100, 150, 200}, .Y = {3, kChartHole, 0.1}});
  }
  chart.References.push_back({1.5, "1.5"});
  FitScales(chart);
  return chart;
}

std::vector<std::string> TextsOf(const Picture& picture) {
  std::vector<std::string> texts;
  for (const auto& record : picture.Records) {
    if (const auto* text = std::get_if<PictureText>(&record)) {
      texts.push_back(text->Text);
    }
  }
  return texts;
}

bool Has(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

TEST(LayOutChart, GivesUpTheLegendLast) {
  Chart chart = Falling();
  for (ChartCurve& curve : chart.Curves) {
    curve.X = {100, 125, 150, 175, 200};
    curve.Y = {3, 0.1, 3, 0.1, 3};
  }
  const ChartLayout small = LayOutChart(chart, {267, 180}, TextWidth);
  EXPECT_TRUE(small.LegendOmitted);
  const std::vector<std::string> texts = TextsOf(small.Drawn);
  EXPECT_TRUE(texts.front().starts_with("A heading that") && texts.front().ends_with("\xE2\x80\xA6"))
      << texts.front();
  EXPECT_TRUE(Has(texts, "1.5"));
  const ChartLayout below = LayOutChart(chart, {300, 300}, TextWidth);
  EXPECT_TRUE(below.Legend && below.Legend->Top > below.XTitle.Bottom);
  const ChartLayout beside = LayOutChart(chart, {500, 300}, TextWidth);
  EXPECT_TRUE(beside.Legend && beside.Legend->Left > beside.Plot.Right);
}

// A chart with a part of every kind.
Chart AllParts() {
  Chart chart;
  chart.Title = "All parts";
  chart.XAxis = {"Across (ft)", true, {}};
  chart.YAxis = {"Up", true, {}};
  chart.Cells =
      ChartCells{{0, 40, 80, 120}, {0, 4, 8}, {10, 35, kChartHole, kChartHole, 20, 60}, "Stress (psi)"};
  chart.Bands = {{10, 30, 0xEAE3D5, "failed"}};
  chart.Bars = {{0, 20, 0, 3, 0x2F6F9F, "runs"}, {20, 40, 0, 5, 0xCD5C5C}};
  chart.Curves = {{.Label = "first",
                   .Colour = 0x0000FF,
                   .X = {0, 40, 80, 120, 160},
                   .Y = {9, 7, 8, kChartHole, 1},
                   .Symbol = SymbolShape::kSquare,
                   .Hollow = {false, true}},
                  {.Label = "the second",
                   .Colour = 0x006400,
                   .X = {0, 80, 160},
                   .Y = {4, 6, 5},
                   .Dash = 4,
                   .Low = {3, 5, 4.5},
                   .High = {5, 6.5, 7}},
                  {.Label = "third",
                   .Colour = 0xCD5C5C,
                   .X = {60, 150},
                   .Y = {2, 9.5},
                   .Line = false,
                   .Symbol = SymbolShape::kCross},
                  {.Label = "", .Colour = 0, .X = {30, 50}, .Y = {1, 2}, .Symbol = SymbolShape::kDiamond}};
  chart.SymbolSize = 7;
  chart.References = {{1.5, "1.5"}, {100, "limit", true}, {500, "out of sight", true}};
  chart.Labels = {{60, 2, "right"}, {158, 5, "left"}, {80, 8, "one over"}, {80, 8, "the other"}};
  chart.Notes = {
      "A note that is so long that it does not stand in one line of a picture as small as this one",
      "Another note"};
  FitScales(chart);
  chart.XAxis.Scale = ScaleFor(0, 160);
  return chart;
}

std::string Told(const std::vector<DrawPoint>& points) {
  std::string told;
  for (const DrawPoint& at : points) {
    told += fmt::format(" {:.2f},{:.2f}", at.X, at.Y);
  }
  return told;
}

std::string Told(const ChartLayout& layout) {
  const auto pen = [](const PicturePen& p) { return fmt::format("{:06X}/{}/{}", p.Colour, p.Width, p.Dash); };
  const Picture& picture = layout.Drawn;
  std::string told = fmt::format("picture of {} by {}\n", picture.Size.Width, picture.Size.Height);
  for (const auto& [name, box] : {std::pair("clip", picture.Clip),
                                  {"plot", layout.Plot},
                                  {"title", layout.Title},
                                  {"X title", layout.XTitle},
                                  {"Y title", layout.YTitle},
                                  {"legend", layout.Legend.value_or(PictureBox{})}}) {
    told += fmt::format("{}:{}\n", name,
                        Told(std::vector<DrawPoint>{{box.Left, box.Top}, {box.Right, box.Bottom}}));
  }
  for (const PlacedPoint& point : layout.Points) {
    told += fmt::format("point {} {}:{}\n", point.Curve, point.Index, Told(std::vector{point.At}));
  }
  for (const auto& record : picture.Records) {
    if (const auto* path = std::get_if<PicturePath>(&record)) {
      told += fmt::format("path {} {}{}{}:{}\n", pen(path->Pen), path->Closed ? "closed " : "",
                          path->Fill ? fmt::format("{:06X} ", *path->Fill) : "",
                          path->Clipped ? "clipped" : "", Told(path->Points));
    } else if (const auto* symbol = std::get_if<PictureSymbol>(&record)) {
      told += fmt::format("symbol {} {} {} {:06X} {}:{}\n", static_cast<int>(symbol->Shape), symbol->Radius,
                          pen(symbol->Pen), symbol->Fill, symbol->Clipped ? "clipped" : "",
                          Told(std::vector{symbol->At}));
    } else if (const auto* raster = std::get_if<PictureRaster>(&record)) {
      told += fmt::format("raster of {} by {}:{}\n", raster->Columns, raster->Rows(),
                          Told(std::vector<DrawPoint>{{raster->Box.Left, raster->Box.Top},
                                                      {raster->Box.Right, raster->Box.Bottom}}));
      for (std::size_t i = 0; i < raster->Pixels.size(); i += raster->Pixels.size() / 16) {
        told += fmt::format("pixel {}: {:08X}\n", i, raster->Pixels[i]);
      }
    } else if (const auto* text = std::get_if<PictureText>(&record)) {
      told +=
          fmt::format("text {} {} {}{:06X} \"{}\":{}\n", text->Pixels, text->Along,
                      text->Upright ? "upright " : "", text->Colour, text->Text, Told(std::vector{text->At}));
    }
  }
  return told;
}

// scripts/renew-goldens names a file that takes what is drawn now.
TEST(LayOutChart, DrawsEveryPartWhereItStood) {
  const auto measure = [](const std::string& text, double pixels) {
    return 0.55 * pixels * static_cast<double>(text.size());
  };
  std::string told;
  for (const PictureSize size : {PictureSize{760, 520}, {300, 420}}) {
    told += Told(LayOutChart(AllParts(), size, measure));
  }
  told += Told(LayOutChart(Falling(), {700, 400}, measure));
  told += Told(LayOutChart(Falling(), {500, 200}, measure, ChartWindow{{110, 190}, {1, 2}}));
  if (const char* renewed = std::getenv("KORVA_RENEWED_CHARTS"); renewed != nullptr) {
    std::ofstream(renewed, std::ios::binary) << told;
    return;
  }
  std::ifstream file(KORVA_GOLDEN "/charts.txt", std::ios::binary);
  EXPECT_EQ(told, std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(LayOutChart, NotesAreBrokenIntoLines) {
  const auto size = [](const std::string& text) { return static_cast<double>(text.size()); };
  EXPECT_EQ(NoteLines({"one two three", "four"}, 8, size),
            (std::vector<std::string>{"one two", "three", "four"}));
  EXPECT_EQ(NoteLines({"a /long/path"}, 5, size), (std::vector<std::string>{"a", "/long", "/path"}));
  EXPECT_EQ(NoteLines({"\xC3\xA4\xC3\xA4"}, 1, size), (std::vector<std::string>{"\xC3\xA4", "\xC3\xA4"}))
      << "characters stay whole";
}

TEST(TextWidth, GrowsWithTheSizeAndTakesEveryText) {
  EXPECT_NEAR(TextWidth("Stability Factor", 24), 2 * TextWidth("Stability Factor", 12), 1e-9);
  EXPECT_NEAR(TextWidth("\xC3\xA4 1", 12), TextWidth("a 1", 12), 1e-6) << "an accent is no wider";
  EXPECT_EQ(TextWidth("", 12), 0);
}

}  // namespace
}  // namespace korva
