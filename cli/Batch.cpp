// korva batch: many projects, one row each.
#include "commands/Batch.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "Commands.h"
#include "ValueJson.h"
#include "core/Format.h"
#include "core/NumberText.h"
#include "core/Tables.h"
#include "core/Text.h"
#include "files/ProjectFile.h"

namespace korva::cli {

namespace {

struct BatchCall {
  std::vector<std::string> Paths;
  std::string Model;
  bool AsCsv = false;
  bool AsJson = false;
  unsigned Jobs = std::max(1U, std::thread::hardware_concurrency());
};

bool HasRun(const BatchRow& row) {
  return !row.Refusal && !row.Error && row.Failure.empty();
}

int StatusOf(const BatchRow& row) {
  return HasRun(row) ? kDone : row.Refusal ? kRefused : kFailed;
}

// Why a row without refusal has no run, or nothing.
std::string Failure(const BatchRow& row) {
  return row.Error ? fmt::format("{} ({})", row.Error->what(), static_cast<std::int64_t>(row.Error->Number()))
                   : row.Failure;
}

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
  return fmt::format("{}", fmt::join(texts, separator));
}

// One text for each result of a run: both factors, the barriers' by case and side, the remnants'; `factor`
// and `other` make them.
template <class FactorText, class OtherText>
std::vector<std::string> ResultTexts(const BatchRow& row, FactorText factor, OtherText other) {
  std::vector<std::string> texts;
  for (int c = kDevelopment; c <= kRetreat; ++c) {
    texts.push_back(factor(c));
  }
  for (int c = kDevelopment; c <= kRetreat; ++c) {
    for (int k = kFirstSide; k <= kSecondSide; ++k) {
      texts.push_back(other(c, k, row.BarrierSF[c][k]));
    }
  }
  for (int k = kFirstSide; k <= kSecondSide; ++k) {
    texts.push_back(other(kDevelopment, k, row.RemnantSF[k]));  // shown whatever cases are
  }
  return texts;
}

// Without control characters, which a title or a file name might bring to the terminal.
std::string Printable(std::string text) {
  std::replace_if(text.begin(), text.end(), IsControl, '?');
  return text;
}

std::string NoticeText(const BatchRow& row) {
  return row.Notices.empty() ? "" : "  (" + Joined(row.Notices, "; ") + ")";
}

// As on the pages, with "-" for what they do not show.
std::string TableText(const std::vector<BatchRow>& rows) {
  std::size_t width = 4;
  for (const BatchRow& row : rows) {
    width = std::max(width, CharacterCount(row.File));
  }
  std::string text = fmt::format("{}  {:<7}  {:<11} {:>7} {:>7} {:>7} {:>7} {:>7} {:>7} {:>7} {:>7}  {}\n",
                                 PadRight("FILE", width), "UNITS", "MODEL", "SF dev", "SF ret", "B1 dev",
                                 "B2 dev", "B1 ret", "B2 ret", "REM 1", "REM 2", "RULES / TITLE");
  for (const BatchRow& row : rows) {
    text += PadRight(Printable(row.File), width);
    if (!HasRun(row)) {
      text += row.Refusal ? "  refused: " + *row.Refusal : "  error: " + Failure(row);
      text += NoticeText(row) + "\n";
      continue;
    }
    const auto shown = [&row](int c) { return c <= row.LastCase; };
    const auto results = ResultTexts(
        row, [&](int c) { return shown(c) ? row.ShownSF[c] : "-"; },
        [&](int c, int k, double value) {
          return shown(c) && k <= LastStage(row.LoadCond) ? Format(value, kFactorPattern) : "-";
        });
    text += "  " + PadRight(UnitSystemName(row.Units), 7) + "  " + PadRight(ModelName(row.CalcMode), 11);
    for (const std::string& result : results) {
      text += " " + PadLeft(result, 7);
    }
    // No rule judges a laminated run.
    const std::string rules = row.Laminated ? "-" : fmt::format("{}", fmt::join(row.RuleFlags, " "));
    text += "  [" + rules + "] " + Printable(row.Title) + NoticeText(row) + "\n";
  }
  return text;
}

std::string CsvText(const std::vector<BatchRow>& rows) {
  std::string text =
      "file,title,units,model,sf_development,sf_retreat,barrier1_development,barrier2_development,barrier1_"
      "retreat,"
      "barrier2_retreat,remnant1,remnant2,rules,refused,error,notices\n";
  for (const BatchRow& row : rows) {
    std::vector<std::string> cells = {row.File, row.Title};
    cells.push_back(row.Read ? std::string(UnitSystemName(row.Units)) : "");
    cells.push_back(row.Read ? std::string(ModelName(row.CalcMode)) : "");
    const auto results = ResultTexts(
        row, [&row](int c) { return HasRun(row) ? GeneralText(row.SFKorva[c]) : ""; },
        [&row](int, int k, double value) {
          return HasRun(row) && k <= LastStage(row.LoadCond) ? GeneralText(value) : "";
        });
    cells.insert(cells.end(), results.begin(), results.end());
    cells.push_back(fmt::format("{}", fmt::join(row.RuleFlags, " ")));
    cells.push_back(row.Refusal.value_or(""));
    cells.push_back(Failure(row));
    cells.push_back(Joined(row.Notices, "; "));
    std::transform(cells.begin(), cells.end(), cells.begin(), CsvCell);
    text += Joined(cells, ",") + "\n";
  }
  return text;
}

Json SidesJson(const BySide<double>& values) {
  return {{"3", values[kFirstSide]}, {"4", values[kSecondSide]}};
}

// The results of the models that ran, by their names.
void AddResults(Json& object, const BatchRow& row) {
  if (UsesTraditional(row.CalcMode)) {
    object["SFKorva"] = {{"1", row.SFKorva[kDevelopment]}, {"2", row.SFKorva[kRetreat]}};
    object["BarrierSF"] = {{"1", SidesJson(row.BarrierSF[kDevelopment])},
                           {"2", SidesJson(row.BarrierSF[kRetreat])}};
    object["RemnantSF"] = SidesJson(row.RemnantSF);
  }
  if (row.Laminated) {
    object["StrondSF"] = ValueJson(row.Laminated->StrondSF);
    object["StrondBarrierSF"] = ValueJson(row.Laminated->StrondBarrierSF);
    object["StrondRemnantSF"] = ValueJson(row.Laminated->StrondRemnantSF);
  }
}

Json RowsJson(const std::vector<BatchRow>& rows) {
  Json json = Json::array();
  for (const BatchRow& row : rows) {
    Json object = {{"file", row.File}, {"refused", nullptr}};
    if (row.Refusal) {
      object["refused"] = *row.Refusal;
    }
    if (row.Error) {
      object["error"] = ErrorJson(*row.Error);
    } else if (!row.Failure.empty()) {
      object["error"] = PlainErrorJson(row.Failure);
    }
    if (row.Read) {
      object["title"] = row.Title;
      object["units"] = UnitSystemName(row.Units);
      object["model"] = ModelName(row.CalcMode);
    }
    if (HasRun(row)) {
      AddResults(object, row);
      object["RuleFlags"] = row.RuleFlags;
    }
    object["notices"] = row.Notices;
    json.push_back(std::move(object));
  }
  return json;
}

int RunCall(const Settings& settings, const BatchCall& call) {
  const std::vector<std::string> files = FindProjectFiles(call.Paths);
  if (files.empty()) {
    PrintMessage(fmt::format("no project files (*.{}) found", kProjectExtension));
    if (call.AsJson) {
      Print(JsonText(Json::array()));
    }
    return kFailed;
  }
  std::vector<BatchRow> rows;
  {
    TerminalProgress progress;
    rows = RunBatch(files, settings, ModelOf(call.Model), call.Jobs, progress);
  }
  Print(call.AsJson ? JsonText(RowsJson(rows)) : call.AsCsv ? CsvText(rows) : TableText(rows));
  int worst = kDone;
  for (const BatchRow& row : rows) {
    worst = std::max(worst, StatusOf(row));
  }
  return worst;
}

}  // namespace

Command AddBatch(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<BatchCall>();
  CLI::App* parser = app.add_subcommand("batch", "Calculate many projects, one row each");
  parser->add_option("PATH", call->Paths, "project files, and folders that hold some")->required();
  AddModelOption(*parser, call->Model);
  auto* csv = parser->add_flag("--csv", call->AsCsv, "rows as comma separated values");
  parser->add_flag("--json", call->AsJson, "rows as JSON")->excludes(csv);
  parser->add_option("--jobs", call->Jobs, "number of projects calculated in parallel")
      ->type_name("N")
      ->check(CLI::Range(1, 256));
  parser->footer("Example:\n  korva batch examples --csv");
  return {parser, [call, &common] {
            return RunGuarded(common, "batch", false,
                              [&](Korva& korva) { return RunCall(korva.Preferences, *call); });
          }};
}

}  // namespace korva::cli
