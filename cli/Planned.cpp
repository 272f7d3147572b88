// Commands that have their name but are not built yet.
#include <fmt/format.h>

#include "Commands.h"

namespace korva::cli {

std::vector<Command> AddPlanned(CLI::App& app) {
  std::vector<Command> commands;
  for (const char* name : {"import", "units"}) {
    CLI::App* parser = app.add_subcommand(name, "Not built yet")->fallthrough(false)->allow_extras();
    commands.push_back({parser, [name] {
                          Complain(fmt::format("the command {} is not built yet", name));
                          return kFailed;
                        }});
  }
  return commands;
}

}  // namespace korva::cli
