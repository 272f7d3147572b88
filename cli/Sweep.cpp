// korva sweep: stability factors over a range of one parameter.
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "Commands.h"
#include "charts/LayOutChart.h"
#include "commands/Formats.h"
#include "commands/SweepCommand.h"
#include "core/ClassifyError.h"
#include "core/Limits.h"
#include "files/SafeWriter.h"
#include "graphs/GraphTitles.h"
#include "graphs/SweepChart.h"
#include "graphs/SweepNotes.h"

namespace korva::cli {

namespace {

struct SweepCall : ProjectCall {
  GraphKind Graph = kEntryHeightGraph;
  bool AsCsv = false;
};

using Rows = std::vector<std::vector<std::string>>;

bool HasNotices(const SweepData& data) {
  return std::any_of(data.Notices.begin(), data.Notices.end(),
                     [](const std::vector<FormNotice>& notices) { return !notices.empty(); });
}

// A heading, then every point: its value and the factors, as texts of `cell`, `none` for one that was not
// computed; then what is to be known of the point, if anything is of any.
template <class Cell>
Rows RowsOf(const SweepData& data, const std::string& xTitle, const char* none, Cell&& cell) {
  Rows rows(1, {xTitle});
  for (int curve = 1; curve <= data.CurveCount; ++curve) {
    rows[0].emplace_back(CurveLabel(curve));
  }
  for (std::int32_t point = 0; point < data.PointCount; ++point) {
    std::vector<std::string> row;
    for (int column = 0; column <= data.CurveCount; ++column) {
      row.push_back(point < data.PointsOf(column)
                        ? cell(data.GraphData[column][static_cast<std::size_t>(point)], column)
                        : none);
    }
    rows.push_back(std::move(row));
  }
  if (HasNotices(data)) {
    rows[0].emplace_back("Notice");
    for (std::size_t point = 0; point < data.Notices.size(); ++point) {
      rows[point + 1].push_back(NoticeText(data.Notices[point]));
    }
  }
  return rows;
}

// Shortest texts that read back to the same 32 bits.
std::string CsvText(const SweepData& data, const std::string& xTitle) {
  std::string text;
  for (auto& row : RowsOf(data, xTitle, "", [](float value, int) { return fmt::format("{}", value); })) {
    std::transform(row.begin(), row.end(), row.begin(), CsvCell);
    text += fmt::format("{}\n", fmt::join(row, ","));
  }
  return text;
}

std::string TableText(const SweepData& data, const std::string& xTitle) {
  std::string text;
  const auto cell = [](float value, int column) {
    return fmt::format("{:.{}f}", value, column == 0 ? 3 : 4);
  };
  const auto numbers = static_cast<std::size_t>(data.CurveCount) + 1;
  for (const auto& row : RowsOf(data, xTitle, "-", cell)) {
    for (std::size_t i = 0; i < numbers; ++i) {
      text += fmt::format("{}{:>{}}", i == 0 ? "" : "  ", row[i], i == 0 ? 28 : 26);
    }
    text += row.size() > numbers && !row[numbers].empty() ? "  " + row[numbers] : "";
    text += "\n";
  }
  return text + (data.Partial.empty() ? "" : fmt::format("partial: {}\n", data.Partial));
}

Json PointsJson(const SweepData& data, int column) {
  Json points = Json::array();
  for (std::int32_t point = 0; point < data.PointsOf(column); ++point) {
    points.push_back(static_cast<double>(data.GraphData[column][static_cast<std::size_t>(point)]));
  }
  return points;
}

Json NoticesJson(const SweepData& data) {
  Json points = Json::array();
  for (const auto& notices : data.Notices) {
    Json texts = Json::array();
    for (const FormNotice& notice : notices) {
      texts.push_back(notice.Text);
    }
    points.push_back(std::move(texts));
  }
  return points;
}

Json SweepJson(const SweepData& data) {
  Json curves = Json::array();
  for (int curve = 1; curve <= data.CurveCount; ++curve) {
    curves.push_back(PointsJson(data, curve));
  }
  Json json = {{"CurveCount", data.CurveCount},
               {"PointCount", data.PointCount},
               {"PointCapacity", data.PointCapacity},
               {"X", PointsJson(data, 0)},
               {"Y", curves}};
  if (HasNotices(data)) {
    json["Notices"] = NoticesJson(data);
  }
  if (const auto without = CurvesWithoutFactor(data); !without.empty()) {
    json["NoFactor"] = without;
  }
  if (!data.Partial.empty()) {
    json["Partial"] = data.Partial;
  }
  return json;
}

void PrintMissingBarrier(const Korva& korva, const SweepCall& call) {
  if (!HasBarrierOf(call.Graph, korva.ProjectCalc)) {
    PrintMessage(fmt::format("warning: {}: there is no {} barrier; its factors are 0", call.File,
                             IsOfSecondBarrier(call.Graph, false) ? "second" : "first"));
  }
}

// Runs the sweep and keeps its points. The error that ended it, if one did.
std::optional<RuntimeError> RunAndKeep(Korva& korva, SweepJob& job) {
  TerminalProgress progress;
  SweepOutcome outcome = RunSweepJob(job, [&progress](int step, int capacity) {
    progress.Advance(static_cast<std::size_t>(step - 1), static_cast<std::size_t>(capacity - 1));
    return true;
  });
  std::optional<RuntimeError> failure = outcome.Failure;
  KeepSweep(korva, job, std::move(outcome));
  return failure;
}

void PrintNotes(const Korva& korva, const SweepCall& call) {
  const auto warn = [&call](std::string_view text) { Warn(call.File, text); };
  for (const NoticeRange& range : NoticeRanges(korva.Sweep)) {
    warn(fmt::format("{} {}: {}", ParameterName(call.Graph), range.Values, range.Reason));
  }
  const std::vector<int> without = CurvesWithoutFactor(korva.Sweep);
  // A graph without any was told of before the sweep.
  if (!without.empty() && IsLaminatedCurve(without.front())) {
    warn("there is no second barrier; the laminated factors are 0");
  }
  if (!korva.Sweep.Partial.empty()) {
    warn("partial: " + korva.Sweep.Partial);
  }
}

// With `failure`, which ended the sweep, JSON tells that and the points in front of it.
void PrintSweep(Korva& korva, const SweepCall& call, PictureKind kind,
                const std::optional<RuntimeError>& failure) {
  const SweepData& sweep = korva.Sweep;
  const GraphSettings& settings = korva.Preferences.Graph;
  const std::string& xTitle = settings.XAxisTitle[sweep.GraphIndex];
  if (!call.Out.empty()) {
    const int curves = DisplayCurves(korva.ProjectCalc, sweep);
    const ChartLayout laidOut =
        LayOutChart(ChartOf(sweep, curves, settings, true), kChartSheet, Formats().TextWidth);
    WriteFileSafely(call.Out, Formats().PictureBytes(kind, laidOut.Drawn));
  } else if (call.AsJson && failure) {
    TerminalMessages messages(call.File);
    ClassifyError(korva, messages, *failure, true);
    Print(JsonText({{"file", call.File}, {"error", ErrorJson(*failure)}, {"sweep", SweepJson(sweep)}}));
  } else if (call.AsJson) {
    Print(JsonText(SweepJson(sweep)));
  } else {
    Print(call.AsCsv ? CsvText(sweep, xTitle) : TableText(sweep, xTitle));
  }
}

int Sweep(Korva& korva, const SweepCall& call, PictureKind kind) {
  RefusalMessages messages(call.File);
  auto job = PrepareSweep(korva, messages, call.Graph, korva.ProjectCalc.CalcMode);
  if (!job) {
    if (call.AsJson) {
      Print(JsonText({{"file", call.File}, {"refused", messages.Text}}));
    }
    return kRefused;
  }
  PrintMissingBarrier(korva, call);
  const std::optional<RuntimeError> failure = RunAndKeep(korva, *job);
  if (failure && korva.Sweep.PointCount == 0) {
    throw RuntimeError(failure->Number(), failure->Detail());
  }
  PrintNotes(korva, call);
  PrintSweep(korva, call, kind, failure);
  if (failure && !call.AsJson) {
    throw RuntimeError(failure->Number(), failure->Detail());
  }
  return failure ? kFailed : kDone;
}

}  // namespace

Command AddSweep(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<SweepCall>();
  CLI::App* parser = app.add_subcommand("sweep", "Stability factors over a range of one parameter");
  AddFile(*parser, call->File);
  parser
      ->add_option_function<int>(
          "GRAPH", [call](int graph) { call->Graph = static_cast<GraphKind>(graph); },
          "0 entry height, 1 depth of cover, 2 crosscut angle, 3 crosscut spacing; barrier factors over "
          "4 first, 5 second barrier width, 6 depth of cover")
      ->required()
      ->check(CLI::Range(0, kGraphs - 1));
  const auto bound = [&](const char* name, const char* key, const std::string& what) {
    parser
        ->add_option_function<std::string>(
            name,
            [call, key](const std::string& value) {
              call->Changes.push_back(fmt::format("{}={}", key, value));
            },
            what)
        ->type_name("P");
  };
  bound("--min", "PlotRangeMin",
        fmt::format("least value in percent of the project's, 0 to {}", kGreatestRange));
  bound("--max", "PlotRangeMax", fmt::format("greatest value, 0 to {}", kGreatestRange));
  AddModelOption(*parser, call->Model);
  auto* csv = parser->add_flag("--csv", call->AsCsv, "all digits, separated by commas");
  auto* json = parser->add_flag("--json", call->AsJson, "the points as JSON")->excludes(csv);
  parser->add_option("-o", call->Out, "draw the graph into this file, .svg, .pdf or .png")
      ->type_name("OUT")
      ->excludes(csv)
      ->excludes(json);
  parser->footer("Example:\n  korva sweep examples/two-side-gobs.KVL 1 --min 80 --max 120");
  return {parser, [call, &common] {
            const PictureKind kind = PictureKindFor(*call);
            return RunOnProject(common, *call, [&](Korva& korva) { return Sweep(korva, *call, kind); });
          }};
}

}  // namespace korva::cli
