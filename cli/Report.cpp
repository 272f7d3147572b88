// korva report: the output pages of a project.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "commands/Calculate.h"
#include "commands/Formats.h"
#include "commands/PrintCommands.h"
#include "pictures/PictureKind.h"
#include "services/PagePrinter.h"

namespace korva::cli {

namespace {

struct ReportCall : ProjectCall {
  std::vector<int> Pages;
  std::string Paper;  // of a PDF; empty for that of the project's units
};

Json ReportJson(const std::string& file, const Json& refused, const Json& pages,
                const std::string& warnings) {
  return {{"file", file}, {"refused", refused}, {"pages", pages}, {"warnings", warnings}};
}

// The pages asked for, or all, with `between` between two.
std::string PagesText(const Korva& korva, std::vector<int> pages, std::string_view between) {
  if (pages.empty()) {
    for (int page = 0; page <= korva.OutPageLast; ++page) {
      pages.push_back(page);
    }
  }
  std::string text;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    text.append(i == 0 ? "" : between).append(korva.OutBuf[pages[i]]);
  }
  return text;
}

bool IsPdf(const ReportCall& call) {
  return PictureKindOf(call.Out) == PictureKind::kPdf;
}

// The pages as the program prints them.
std::string ReportPdf(const Korva& korva, const ReportCall& call) {
  const PaperSize paper = call.Paper.empty()   ? PaperOfUnits(korva.Stored.ProjectUnits)
                          : call.Paper == "a4" ? kA4Paper
                                               : kLetterPaper;
  const auto sheets = SheetsOf(PagesText(korva, call.Pages, ""), paper, LocalTimeNow());
  return Formats().PagesPdf(sheets, paper, DocumentTitle(korva));
}

void CheckCall(const ReportCall& call) {
  RefuseOwnFile(call, "report");
  if (call.AsJson && IsPdf(call)) {
    throw UsageError{"JSON cannot be written to a PDF; leave out --json or use another extension with -o"};
  }
  if (!call.Paper.empty() && !IsPdf(call)) {
    throw UsageError{"--paper is for a report as PDF, -o OUT.pdf"};
  }
}

int Report(Korva& korva, const ReportCall& call) {
  RefusalMessages messages(call.File);
  if (!CalculateWorkingCopy(korva, messages, korva.ProjectCalc.CalcMode)) {
    if (call.AsJson) {
      WriteOrPrint(call, JsonText(ReportJson(call.File, messages.Text, Json::array(), "")));
    }
    return kRefused;
  }
  PrintFormNotices(korva, call.File);
  if (call.AsJson) {
    const Json pages(std::vector<std::string>(korva.OutBuf.begin(), korva.OutBuf.end()));
    WriteOrPrint(call, JsonText(ReportJson(call.File, nullptr, pages, korva.WarningText)));
    return kDone;
  }
  WriteOrPrint(call,
               IsPdf(call) ? ReportPdf(korva, call) : PlatformLines(PagesText(korva, call.Pages, "\f\r\n")));
  if (!korva.WarningText.empty()) {
    PrintToStandardError("KORVA Warnings\n" + PlatformLines(korva.WarningText));
  }
  return kDone;
}

}  // namespace

Command AddReport(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<ReportCall>();
  CLI::App* parser = app.add_subcommand("report", "Print the output pages of a project");
  AddFile(*parser, call->File);
  parser->add_option("--page", call->Pages, "only this page, 0 to 5; may be given again")
      ->type_name("N")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->check(CLI::Range(0, 5));
  AddModelOption(*parser, call->Model);
  parser->add_flag("--json", call->AsJson, "all pages and the warnings as JSON");
  parser
      ->add_option("-o", call->Out,
                   "write to this file instead of the terminal; a name ending in .pdf gets printed pages")
      ->type_name("OUT");
  parser
      ->add_option("--paper", call->Paper,
                   "paper of a PDF, a4 or letter; else as the units of the project ask")
      ->type_name("PAPER")
      ->check(CLI::IsMember({"a4", "letter"}));
  parser->footer("Example:\n  korva report examples/two-side-gobs.KVL --page 1");
  return {parser, [call, &common] {
            CheckCall(*call);
            return RunOnProject(common, *call, [&](Korva& korva) { return Report(korva, *call); });
          }};
}

}  // namespace korva::cli
