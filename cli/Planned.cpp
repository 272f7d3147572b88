// Commands that have their name but are not built yet.
#include "Commands.h"

namespace korva::cli {

std::vector<Command> AddPlanned(CLI::App& app) {
  CLI::App* import = app.add_subcommand("import", "Not built yet")->fallthrough(false)->allow_extras();
  return {{import, [] {
             Complain("the command import is not built yet");
             return kFailed;
           }}};
}

}  // namespace korva::cli
