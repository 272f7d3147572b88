// korva sweep: stability factors over a range of one parameter.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "commands/FileMenu.h"
#include "commands/PrivateFiles.h"
#include "commands/SweepCommand.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"
#include "graphs/ChartPicture.h"
#include "graphs/GraphTitles.h"

namespace korva::cli {

namespace {

struct SweepCall {
  std::string File;
  int Graph = 0;
  std::string Min;
  std::string Max;
  std::string Model;
  bool AsCsv = false;
  bool AsJson = false;
  std::string Out;
};

// A heading, then every point: its value and the factors, as texts of `column`.
template <class Cell>
std::vector<std::vector<std::string>> Rows(const SweepData& data, const std::string& xTitle, Cell&& cell) {
  std::vector<std::vector<std::string>> rows(1, {xTitle});
  for (int curve = 1; curve <= data.CurveCount; ++curve) {
    rows[0].emplace_back(CurveLabel(curve));
  }
  for (std::size_t point = 0; point < static_cast<std::size_t>(data.PointCount); ++point) {
    std::vector<std::string> row;
    for (int column = 0; column <= data.CurveCount; ++column) {
      row.push_back(cell(data.GraphData[column][point], column));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

// Shortest texts that read back to the same 32 bits.
std::string CsvText(const SweepData& data, const std::string& xTitle) {
  std::string text;
  for (const auto& row : Rows(data, xTitle, [](float value, int) { return fmt::format("{}", value); })) {
    text += fmt::format("{}\n", fmt::join(row, ","));
  }
  return text;
}

std::string TableText(const SweepData& data, const std::string& xTitle) {
  std::string text;
  const auto cell = [](float value, int column) {
    return fmt::format("{:.{}f}", value, column == 0 ? 3 : 4);
  };
  for (const auto& row : Rows(data, xTitle, cell)) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += fmt::format("{}{:>{}}", i == 0 ? "" : "  ", row[i], i == 0 ? 28 : 26);
    }
    text += "\n";
  }
  return text;
}

Json PointsJson(const SweepData& data, int column) {
  Json points = Json::array();
  for (std::size_t point = 0; point < static_cast<std::size_t>(data.PointCount); ++point) {
    points.push_back(static_cast<double>(data.GraphData[column][point]));
  }
  return points;
}

Json SweepJson(const SweepData& data) {
  Json curves = Json::array();
  for (int curve = 1; curve <= data.CurveCount; ++curve) {
    curves.push_back(PointsJson(data, curve));
  }
  return {{"CurveCount", data.CurveCount},
          {"PointCount", data.PointCount},
          {"PointCapacity", data.PointCapacity},
          {"X", PointsJson(data, 0)},
          {"Y", curves}};
}

void TellMissingBarrier(const Korva& korva, const SweepCall& call) {
  const BarrierGraphs graphs = GraphsOf(korva.ProjectCalc);
  const bool second = call.Graph == kSecondBarrierGraph;
  const bool shown = second ? graphs.Second : graphs.First;
  if (call.Graph >= kFirstBarrierGraph && !shown) {
    Complain(fmt::format("warning: {}: there is no {} barrier; its factors are 0", call.File,
                         second ? "second" : "first"));
  }
}

int Sweep(Korva& korva, const SweepCall& call) {
  const auto kind = PictureKindOf(call.Out);
  if (!call.Out.empty() && !kind) {
    throw UsageError{fmt::format("-o {}: expected a name that ends in .svg, .pdf or .png", call.Out)};
  }
  if (!call.Out.empty() && IsSameFile(call.File, call.Out)) {
    throw UsageError{"the picture would replace the project file itself"};
  }
  if (!OpenProject(korva, call.File, call.AsJson)) {
    return kFailed;
  }
  korva.ProjectCalc.CalcMode = ModelOf(call.Model).value_or(korva.ProjectCalc.CalcMode);
  const auto files = PrivateFilesOf(korva);
  RefusalMessages messages(call.File);
  const auto graph = static_cast<GraphKind>(call.Graph);
  auto job = PrepareSweep(korva, messages, graph, korva.ProjectCalc.CalcMode);
  if (!job) {
    if (call.AsJson) {
      Print(JsonText({{"file", call.File}, {"refused", messages.Text}}));
    }
    return kRefused;
  }
  TellMissingBarrier(korva, call);
  {
    TerminalProgress progress;
    KeepSweep(korva, *job, RunSweepJob(*job, [&progress](int step, int capacity) {
                progress.Advance(static_cast<std::size_t>(step - 1), static_cast<std::size_t>(capacity - 1));
                return true;
              }));
  }
  GraphSettings& settings = korva.Preferences.Graph;
  PrepareTitles(settings, graph, korva.Stored.ProjectUnits);
  const std::string& xTitle = settings.XAxisTitle[graph];
  if (kind) {
    const int curves = DisplayCurves(korva.ProjectCalc, korva.Sweep);
    WriteFileSafely(call.Out, ChartPicture(ChartOf(korva.Sweep, curves, settings, true), *kind));
  } else if (call.AsJson) {
    Print(JsonText(SweepJson(korva.Sweep)));
  } else {
    Print(call.AsCsv ? CsvText(korva.Sweep, xTitle) : TableText(korva.Sweep, xTitle));
  }
  return kDone;
}

}  // namespace

Command AddSweep(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<SweepCall>();
  CLI::App* parser = app.add_subcommand("sweep", "Stability factors over a range of one parameter");
  parser->add_option("FILE", call->File, "project file")->required();
  parser
      ->add_option(
          "GRAPH", call->Graph,
          "0 entry height, 1 depth of cover, 2 crosscut angle, 3 crosscut spacing; barrier factors over "
          "4 first, 5 second barrier width, 6 depth of cover")
      ->required()
      ->check(CLI::Range(0, kGraphs - 1));
  parser->add_option("--min", call->Min, "least value in percent of the project's, 0 to 150")->type_name("P");
  parser->add_option("--max", call->Max, "greatest value, 0 to 150")->type_name("P");
  AddModelOption(*parser, call->Model);
  auto* csv = parser->add_flag("--csv", call->AsCsv, "all digits, separated by commas");
  auto* json = parser->add_flag("--json", call->AsJson, "the points as JSON")->excludes(csv);
  parser->add_option("-o", call->Out, "draw the graph into this file, .svg, .pdf or .png")
      ->type_name("OUT")
      ->excludes(csv)
      ->excludes(json);
  parser->footer("Example:\n  korva sweep examples/two-side-gobs.KVL 1 --min 80 --max 120");
  return {
      parser, [call, &common] {
        CommonOptions options = common;
        for (const auto& [key, value] : {std::pair{"PlotRangeMin", call->Min}, {"PlotRangeMax", call->Max}}) {
          if (!value.empty()) {
            options.Changes.push_back(fmt::format("{}={}", key, value));
          }
        }
        return RunGuarded(options, call->File, call->AsJson,
                          [&](Korva& korva) { return Sweep(korva, *call); });
      }};
}

}  // namespace korva::cli
