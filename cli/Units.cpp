// korva units: one value in all units of its kind.
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "Commands.h"
#include "core/NumberText.h"
#include "input/UnitTables.h"

namespace korva::cli {

namespace {

struct UnitsCall {
  std::string Kind;
  std::string Source;
  std::string Value;
  bool AsJson = false;
};

// What the calculator reads, as long as it is a number and nothing else. One that may be meant otherwise is
// told.
double ValueOf(const std::string& text) {
  const CalculatorNumber number = ReadCalculatorNumber(text);
  if (!number.Whole) {
    throw UsageError{fmt::format("{}: expected a number{}", text, number.Note ? "; it " + *number.Note : "")};
  }
  if (number.Note) {
    PrintMessage(fmt::format("{}: {}", text, *number.Note));
  }
  return number.Value;
}

const UnitTab& TabOf(const std::string& word) {
  const auto& tabs = UnitTabs();
  return *std::find_if(tabs.begin(), tabs.end(), [&word](const UnitTab& tab) { return tab.Word == word; });
}

int Units(const UnitsCall& call) {
  const UnitTab& tab = TabOf(call.Kind);
  const auto source = UnitOf(tab, call.Source);
  if (!source) {
    std::string known;
    for (const CalculatorUnit& unit : tab.Units) {
      known += fmt::format("{}\"{}\"", known.empty() ? "" : ", ", unit.Caption);
    }
    throw UsageError{fmt::format("{}: expected one of {}", call.Source, known)};
  }
  const double value = ValueOf(call.Value);
  const std::vector<double> row = ConvertUnits(tab.Quantity, *source, value);
  Json json = Json::array();
  std::string text;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string number = ShortestText(row[i]);
    json.push_back({{"unit", tab.Units[i].Caption}, {"value", row[i]}, {"text", number}});
    text += fmt::format("{:<14}{}\n", tab.Units[i].Caption, number);
  }
  const auto index = static_cast<std::size_t>(*source);
  Print(call.AsJson
            ? JsonText(
                  {{"kind", tab.Word}, {"source", tab.Units[index].Caption}, {"value", value}, {"row", json}})
            : text);
  return kDone;
}

}  // namespace

Command AddUnits(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<UnitsCall>();
  CLI::App* parser = app.add_subcommand("units", "One value in all units of its kind");
  std::vector<std::string> words;
  for (const UnitTab& tab : UnitTabs()) {
    words.emplace_back(tab.Word);
  }
  parser->add_option("KIND", call->Kind, "length, load, loadgrad, stress or stressgrad")
      ->required()
      ->check(CLI::IsMember(words));
  parser->add_option("SOURCE", call->Source, "the value's unit, by its name or its number from 0 on")
      ->required();
  parser->add_option("VALUE", call->Value, "the value")->required();
  parser->add_flag("--json", call->AsJson, "the row as JSON");
  parser->footer("Example:\n  korva units stress MPa 6.2");
  return {parser, [call, &common] {
            return RunGuarded(common, "units", call->AsJson, [&](Korva&) { return Units(*call); });
          }};
}

}  // namespace korva::cli
