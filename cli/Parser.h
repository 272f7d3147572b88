// The table of commands and options of `korva`.
#pragma once

#include <memory>
#include <vector>

#include "Session.h"

namespace korva::cli {

struct Parser {
  CLI::App App{"Stability of coal pillars in room-and-pillar retreat panels", "korva"};
  CommonOptions Common;
  std::vector<Command> Commands;
};

// The commands keep references to it.
std::unique_ptr<Parser> MakeParser();

}  // namespace korva::cli
