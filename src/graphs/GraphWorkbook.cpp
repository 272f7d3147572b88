#include "graphs/GraphWorkbook.h"

#include <fmt/format.h>
#include <minizip/unzip.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <memory>
#include <pugixml.hpp>

#include "core/RuntimeError.h"
#include "files/FileReader.h"
#include "files/PrivateFolder.h"

namespace korva {

namespace {

constexpr std::uint64_t kLargestWorkbook = std::uint64_t{64} << 20;
constexpr const char* kSheet = "Graph";

[[noreturn]] void Fail(const std::string& what) {
  throw RuntimeError(ErrorNumber::kDeviceIo, fmt::format("the workbook: {}", what));
}

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) {
    Fail(lxw_strerror(error));
  }
}

std::uint16_t Column(std::size_t curve, int offset) {
  return static_cast<std::uint16_t>(2 * curve + static_cast<std::size_t>(offset));
}

// A text, if there is one: empty cells are none.
void WriteText(lxw_worksheet* sheet, std::size_t row, std::uint16_t column, const std::string& text) {
  if (!text.empty()) {
    Check(worksheet_write_string(sheet, static_cast<lxw_row_t>(row), column, text.c_str(), nullptr));
  }
}

// What is to be known of the points, in a column after the curves, and of the sweep, in the next one.
void WriteNotices(lxw_worksheet* sheet, const Chart& chart) {
  const std::size_t curves = chart.Curves.size();
  const auto column = [&](int offset, const char* heading, const std::vector<std::string>& texts) {
    if (!texts.empty()) {
      WriteText(sheet, 0, Column(curves, offset), heading);
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
      WriteText(sheet, i + 1, Column(curves, offset), texts[i]);
    }
  };
  column(0, "Notice", chart.PointNotices);
  column(1, "Remark", chart.Notes);
}

void WriteCells(lxw_worksheet* sheet, const Chart& chart) {
  for (std::size_t i = 0; i < chart.Curves.size(); ++i) {
    const ChartCurve& curve = chart.Curves[i];
    Check(worksheet_write_string(sheet, 0, Column(i, 0), "X-coord", nullptr));
    Check(worksheet_write_string(sheet, 0, Column(i, 1), curve.Label.c_str(), nullptr));
    for (std::size_t j = 0; j < curve.X.size(); ++j) {
      const auto row = static_cast<lxw_row_t>(j + 1);
      Check(worksheet_write_number(sheet, row, Column(i, 0), curve.X[j], nullptr));
      if (curve.Y[j] != kChartHole) {
        Check(worksheet_write_number(sheet, row, Column(i, 1), curve.Y[j], nullptr));
      }
    }
    Check(worksheet_set_column(sheet, Column(i, 1), Column(i, 1), 28, nullptr));
  }
}

// Points about which something is to be known have a hollow symbol.
void MarkPoints(lxw_chart_series* series, const ChartCurve& curve, lxw_color_t colour) {
  lxw_chart_fill paper = {};
  paper.color = LXW_COLOR_WHITE;
  lxw_chart_line outline = {};
  outline.color = colour;
  lxw_chart_point hollow = {&outline, &paper, nullptr};
  lxw_chart_point plain = {};
  std::vector<lxw_chart_point*> list;
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    list.push_back(IsHollow(curve, i) ? &hollow : &plain);
  }
  list.push_back(nullptr);
  Check(chart_series_set_points(series, list.data()));
}

// By the shapes of the symbols.
constexpr std::array<std::uint8_t, 5> kMarkers = {LXW_CHART_MARKER_CIRCLE, LXW_CHART_MARKER_SQUARE,
                                                  LXW_CHART_MARKER_TRIANGLE, LXW_CHART_MARKER_DIAMOND,
                                                  LXW_CHART_MARKER_PLUS};

void AddCurve(lxw_chart* drawn, const Chart& chart, std::size_t i) {
  const ChartCurve& curve = chart.Curves[i];
  const auto last = static_cast<lxw_row_t>(curve.X.size());
  lxw_chart_series* series = chart_add_series(drawn, nullptr, nullptr);
  chart_series_set_categories(series, kSheet, 1, Column(i, 0), last, Column(i, 0));
  chart_series_set_values(series, kSheet, 1, Column(i, 1), last, Column(i, 1));
  chart_series_set_name_range(series, kSheet, 0, Column(i, 1));
  lxw_chart_line line = {};
  line.color = curve.Colour == 0 ? lxw_color_t{LXW_COLOR_BLACK} : curve.Colour;
  line.none = curve.Line ? LXW_FALSE : LXW_TRUE;
  line.width = 2;
  chart_series_set_line(series, &line);
  chart_series_set_marker_type(series, curve.Symbol ? kMarkers.at(static_cast<std::size_t>(*curve.Symbol))
                                                    : std::uint8_t{LXW_CHART_MARKER_NONE});
  if (curve.Symbol) {
    lxw_chart_fill fill = {};
    fill.color = line.color;
    chart_series_set_marker_fill(series, &fill);
    chart_series_set_marker_size(series, static_cast<std::uint8_t>(chart.SymbolSize));
    if (!curve.Hollow.empty()) {
      MarkPoints(series, curve, line.color);
    }
  }
}

void AddChart(lxw_workbook* book, lxw_worksheet* sheet, const Chart& chart) {
  lxw_chart* drawn = workbook_add_chart(book, LXW_CHART_SCATTER_STRAIGHT_WITH_MARKERS);
  if (drawn == nullptr) {
    Fail("no memory for its chart");
  }
  for (std::size_t i = 0; i < chart.Curves.size(); ++i) {
    if (!chart.Curves[i].X.empty()) {
      AddCurve(drawn, chart, i);
    }
  }
  chart_title_set_name(drawn, chart.Title.c_str());
  chart_axis_set_name(drawn->x_axis, chart.XAxis.Title.c_str());
  chart_axis_set_name(drawn->y_axis, chart.YAxis.Title.c_str());
  chart_axis_set_min(drawn->x_axis, chart.XAxis.Scale.Low);
  chart_axis_set_max(drawn->x_axis, chart.XAxis.Scale.High);
  chart_axis_major_gridlines_set_visible(drawn->x_axis, chart.XAxis.Grid ? LXW_TRUE : LXW_FALSE);
  chart_axis_major_gridlines_set_visible(drawn->y_axis, chart.YAxis.Grid ? LXW_TRUE : LXW_FALSE);
  if (!chart.Legend) {
    chart_legend_set_position(drawn, LXW_CHART_LEGEND_NONE);
  }
  lxw_chart_options room = {};
  room.x_scale = 1.5;
  room.y_scale = 1.6;
  const int behind = chart.Notes.empty() ? 1 : 3;
  Check(worksheet_insert_chart_opt(sheet, 1, Column(chart.Curves.size(), behind), drawn, &room));
}

void WriteWorkbook(const Chart& chart, const std::string& folder, const std::string& file) {
  std::string scratch = folder;
  lxw_workbook_options options = {};
  options.tmpdir = scratch.data();
  lxw_workbook* book = workbook_new_opt(file.c_str(), &options);
  if (book == nullptr) {
    Fail("no memory");
  }
  try {
    lxw_worksheet* sheet = workbook_add_worksheet(book, kSheet);
    worksheet_set_landscape(sheet);
    worksheet_fit_to_pages(sheet, 1, 0);
    WriteCells(sheet, chart);
    WriteNotices(sheet, chart);
    if (!chart.Curves.empty() && !chart.Curves[0].X.empty()) {
      AddChart(book, sheet, chart);
    }
  } catch (...) {
    lxw_workbook_free(book);
    throw;
  }
  Check(workbook_close(book));
}

// An entry of the file, read to its end; its checksum is tested.
std::string EntryOf(unzFile zip) {
  std::array<char, std::size_t{64} * 1024> room{};
  std::string bytes;
  if (unzOpenCurrentFile(zip) != UNZ_OK) {
    Fail("a part cannot be read back");
  }
  int count = 0;
  while ((count = unzReadCurrentFile(zip, room.data(), static_cast<unsigned>(room.size()))) > 0) {
    bytes.append(room.data(), static_cast<std::size_t>(count));
  }
  if (count < 0 || unzCloseCurrentFile(zip) != UNZ_OK) {
    Fail("a part cannot be read back");
  }
  return bytes;
}

std::size_t CellsOf(const pugi::xml_document& part) {
  std::size_t cells = 0;
  for (const pugi::xml_node row : part.child("worksheet").child("sheetData").children("row")) {
    for (const pugi::xml_node cell : row.children("c")) {
      cells += cell.child("v").empty() ? 0U : 1U;
    }
  }
  return cells;
}

// The writer can lose part of a sheet on a full disk without noticing it.
void ReadBack(const std::string& file, std::size_t expectedCells) {
  const std::unique_ptr<void, decltype(&unzClose)> zip(unzOpen64(file.c_str()), unzClose);
  if (!zip) {
    Fail("it cannot be read back");
  }
  std::size_t cells = 0;
  int state = unzGoToFirstFile(zip.get());
  for (; state == UNZ_OK; state = unzGoToNextFile(zip.get())) {
    const std::string bytes = EntryOf(zip.get());
    pugi::xml_document part;
    if (!part.load_buffer(bytes.data(), bytes.size())) {
      Fail("a part was cut off");
    }
    cells += CellsOf(part);
  }
  if (state != UNZ_END_OF_LIST_OF_FILE || cells != expectedCells) {
    Fail(fmt::format("{} of {} cells were written", cells, expectedCells));
  }
}

// As many as WriteCells and WriteNotices write.
std::size_t CellsOf(const Chart& chart) {
  std::size_t cells = 0;
  for (const ChartCurve& curve : chart.Curves) {
    const auto holes = static_cast<std::size_t>(std::count(curve.Y.begin(), curve.Y.end(), kChartHole));
    cells += 2 + 2 * curve.X.size() - holes;
  }
  for (const auto* texts : {&chart.PointNotices, &chart.Notes}) {
    const auto none = static_cast<std::size_t>(std::count(texts->begin(), texts->end(), std::string()));
    cells += texts->empty() ? 0 : 1 + texts->size() - none;
  }
  return cells;
}

}  // namespace

std::string GraphWorkbook(const Chart& chart) {
  const PrivateFolder folder;
  const std::string file = folder.Name() + "/graph.xlsx";
  WriteWorkbook(chart, folder.Name(), file);
  ReadBack(file, CellsOf(chart));
  return ReadWholeFile(file, kLargestWorkbook);
}

}  // namespace korva
