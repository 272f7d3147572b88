// korva import: projects from what other programs have written.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "commands/FileCommands.h"
#include "files/PlatformFile.h"

namespace korva::cli {

namespace {

struct VoskCall {
  std::string File;
  std::string Out;
};

int ImportVosk(Korva& korva, const VoskCall& call) {
  if (IsSameFile(call.File, call.Out)) {
    Complain(
        fmt::format("{}: not replaced, since it holds more than the panel that is taken over", call.Out));
    return kRefused;
  }
  if (!ReadInto(korva, call.File, FileOpenVOSK)) {
    return kFailed;
  }
  korva.ProjectFileName = call.Out;
  FileSave(korva);
  return kDone;
}

Command AddVosk(CLI::App& import, const CommonOptions& common) {
  auto call = std::make_shared<VoskCall>();
  CLI::App* parser = import.add_subcommand("vosk", "Take the panel of a VOSK project over");
  parser->add_option("FILE", call->File, "VOSK project file")->required();
  parser->add_option("OUT", call->Out, "project file to write")->required();
  parser->footer("Example:\n  korva import vosk panel.VSK panel.KVL");
  return {parser, [call, &common] {
            return RunGuarded(common, call->File, false,
                              [&](Korva& korva) { return ImportVosk(korva, *call); });
          }};
}

}  // namespace

std::vector<Command> AddImport(CLI::App& app, const CommonOptions& common) {
  CLI::App* import = app.add_subcommand("import", "Make projects of other programs' files");
  import->require_subcommand(1);
  import->fallthrough();
  return {AddVosk(*import, common)};
}

}  // namespace korva::cli
