// korva save and korva convert: a project in the newest format, as it is or in the other unit system.
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "Commands.h"
#include "commands/FileCommands.h"
#include "files/FileTree.h"

namespace korva::cli {

namespace {

struct SaveCall {
  std::string File;
  std::string Out;
  bool Convert = false;
  bool Force = false;
};

// Whether saving would replace the very file that was read, parts of which were not.
bool WouldLoseContent(const Korva& korva, const SaveCall& call) {
  const bool unread = std::any_of(korva.FileNotices.begin(), korva.FileNotices.end(),
                                  [](const FileNotice& n) { return n.kind == FileNoticeKind::kNotRead; });
  return unread && IsSameFile(call.File, call.Out);
}

int Save(Korva& korva, const SaveCall& call) {
  if (!OpenProject(korva, call.File, false)) {
    return kFailed;
  }
  if (!call.Force && WouldLoseContent(korva, call)) {
    PrintMessage(fmt::format(
        "{}: not replaced, since what follows its last value would be lost; --force replaces it", call.Out));
    return kRefused;
  }
  if (call.Convert) {
    ConvertProject(korva, korva.Stored.ProjectUnits == kMetric ? kEnglish : kMetric);
  }
  korva.ProjectFileName = call.Out;
  FileSave(korva);
  return kDone;
}

Command AddSaving(CLI::App& app, const CommonOptions& common, const char* name, const char* what,
                  const char* example, bool convert) {
  auto call = std::make_shared<SaveCall>();
  call->Convert = convert;
  CLI::App* parser = app.add_subcommand(name, what);
  AddFile(*parser, call->File);
  parser->add_option("OUT", call->Out, "file to write")->required();
  parser->add_flag("--force", call->Force, "replace FILE itself even if not all of it was read");
  parser->footer(example);
  return {parser, [call, &common] {
            return RunGuarded(common, call->File, false, [&](Korva& korva) { return Save(korva, *call); });
          }};
}

}  // namespace

Command AddSave(CLI::App& app, const CommonOptions& common) {
  return AddSaving(app, common, "save", "Write a project in the newest format",
                   "Example:\n  korva save examples/old-format.KVL new.KVL", false);
}

Command AddConvert(CLI::App& app, const CommonOptions& common) {
  return AddSaving(app, common, "convert", "Write a project in the other unit system",
                   "Example:\n  korva convert examples/development.KVL metric.KVL", true);
}

}  // namespace korva::cli
