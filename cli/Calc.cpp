// korva calc: every number of a calculation, before the conversion to output units.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "ValueJson.h"
#include "commands/Calculate.h"
#include "core/NumberText.h"
#include "input/FormComputations.h"

namespace korva::cli {

namespace {

// What the input form would compute. A value that has none is null and reported; the calculation stands
// without it.
Json FormJson(const Korva& korva, const std::string& file) {
  const Project shown = ShownInForm(korva.ProjectCalc);
  const UnitSystem units = korva.Stored.ProjectUnits;
  const auto value = [&file](auto compute) -> Json {
    try {
      return compute();
    } catch (const RuntimeError& error) {
      Warn(file, error.what());
      return nullptr;
    }
  };
  return {{"Calc_AMZ", value([&] { return Calc_AMZ(shown.DepthCover, units); })},
          {"Calc_Arch", value([&] { return static_cast<double>(Calc_Arch(shown, units)); })},
          {"Calc_Ext_Ratio", value([&] { return Calc_Ext_Ratio(shown); })}};
}

// The results of the models that ran.
Json CalcJson(const Korva& korva, const Evaluated& evaluated, const std::string& file) {
  const Calculation& run = evaluated.Run;
  Json json = Json::object();
  const auto add = [&json](const char* name, const auto& value) { json[name] = ValueJson(value); };
  if (UsesTraditional(evaluated.Model)) {
    VisitResults(run.Out, add);
  }
  if (UsesLaminated(evaluated.Model)) {
    VisitStrondResults(evaluated.Laminated.Results, add);
  }
  json["LoadCond"] = LastStage(run.Work.LoadCond);
  json["PanelWidth"] = run.Work.PanelWidth;
  json["form"] = FormJson(korva, file);
  return json;
}

// The same as lines of name and value.
std::string CalcText(const Json& json, const std::string& prefix = {}) {
  std::string text;
  for (const auto& [key, value] : json.items()) {
    const std::string name = prefix.empty() || prefix == "form" ? key : fmt::format("{}[{}]", prefix, key);
    if (value.is_object()) {
      text += CalcText(value, name);
    } else if (value.is_number_float()) {
      text += fmt::format("{:<24} {}\n", name, GeneralText(value.get<double>()));
    } else {
      text += fmt::format("{:<24} {}\n", name, value.is_string() ? value.get<std::string>() : value.dump());
    }
  }
  return text;
}

int Calc(Korva& korva, const ProjectCall& call) {
  const Evaluated evaluated = EvaluateProject(korva, korva.ProjectCalc.CalcMode);
  if (evaluated.Refusal) {
    TerminalMessages messages(call.File);
    ShowMessage(korva, messages, {.text = *evaluated.Refusal});
    if (call.AsJson) {
      Print(JsonText({{"file", call.File},
                      {"refused", *evaluated.Refusal},
                      {"pages", Json::array()},
                      {"warnings", ""}}));
    }
    return kRefused;
  }
  PrintFormNotices(korva, call.File);
  const Json json = CalcJson(korva, evaluated, call.File);
  Print(call.AsJson ? JsonText(json) : CalcText(json));
  return kDone;
}

}  // namespace

Command AddCalc(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<ProjectCall>();
  CLI::App* parser = app.add_subcommand("calc", "Print every number of a calculation");
  AddFile(*parser, call->File);
  AddModelOption(*parser, call->Model);
  parser->add_flag("--json", call->AsJson, "as JSON, arrays index by index");
  parser->footer("Example:\n  korva calc examples/two-side-gobs.KVL --json");
  return {parser, [call, &common] {
            return RunOnProject(common, *call, [&](Korva& korva) { return Calc(korva, *call); });
          }};
}

}  // namespace korva::cli
