// korva report: the output pages of a project.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "commands/Calculate.h"
#include "commands/PrivateFiles.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"

namespace korva::cli {

namespace {

struct ReportCall {
  std::string File;
  std::vector<int> Pages;
  std::string Model;
  bool AsJson = false;
  std::string Out;
};

Json ReportJson(const std::string& file, const Json& refused, const Json& pages,
                const std::string& warnings) {
  return {{"file", file}, {"refused", refused}, {"pages", pages}, {"warnings", warnings}};
}

// The pages asked for, or all, with a line that holds a form feed between two.
std::string PagesText(const Korva& korva, std::vector<int> pages) {
  if (pages.empty()) {
    for (int page = 0; page <= korva.OutPageLast; ++page) {
      pages.push_back(page);
    }
  }
  std::string text;
  for (const int page : pages) {
    text += (text.empty() ? "" : "\f\n") + PlatformLines(korva.OutBuf[page]);
  }
  return text;
}

int Report(Korva& korva, const ReportCall& call) {
  const auto output = [&call](const std::string& text) {
    if (call.Out.empty()) {
      Print(text);
    } else {
      WriteFileSafely(call.Out, text);
    }
  };
  if (!call.Out.empty() && IsSameFile(call.File, call.Out)) {
    throw UsageError{"the report would replace the project file itself"};
  }
  if (call.Out.ends_with(".pdf") || call.Out.ends_with(".PDF")) {
    Complain("a report as PDF is not built yet; give the file another ending for plain text");
    return kFailed;
  }
  if (!OpenProject(korva, call.File, call.AsJson)) {
    return kFailed;
  }
  korva.ProjectCalc.CalcMode = ModelOf(call.Model).value_or(korva.ProjectCalc.CalcMode);
  const auto files = PrivateFilesOf(korva);
  RefusalMessages messages(call.File);
  if (!CalculateWorkingCopy(korva, messages, korva.ProjectCalc.CalcMode)) {
    if (call.AsJson) {
      output(JsonText(ReportJson(call.File, messages.Text, Json::array(), "")));
    }
    return kRefused;
  }
  TellFormNotices(korva, call.File);
  if (call.AsJson) {
    const Json pages(std::vector<std::string>(korva.OutBuf.begin(), korva.OutBuf.end()));
    output(JsonText(ReportJson(call.File, nullptr, pages, korva.WarningText)));
    return kDone;
  }
  output(PagesText(korva, call.Pages));
  if (!korva.WarningText.empty()) {
    PrintBeside("KORVA Warnings\n" + PlatformLines(korva.WarningText));
  }
  return kDone;
}

}  // namespace

Command AddReport(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<ReportCall>();
  CLI::App* parser = app.add_subcommand("report", "Print the output pages of a project");
  parser->add_option("FILE", call->File, "project file")->required();
  parser->add_option("--page", call->Pages, "only this page, 0 to 5; may be given again")
      ->type_name("N")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->check(CLI::Range(0, 5));
  AddModelOption(*parser, call->Model);
  parser->add_flag("--json", call->AsJson, "all pages and the warnings as JSON");
  parser->add_option("-o", call->Out, "write to this file instead of the terminal")->type_name("OUT");
  parser->footer("Example:\n  korva report examples/two-side-gobs.KVL --page 1");
  return {parser, [call, &common] {
            return RunGuarded(common, call->File, call->AsJson,
                              [&](Korva& korva) { return Report(korva, *call); });
          }};
}

}  // namespace korva::cli
