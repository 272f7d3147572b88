// What the last run was about, as far as the program shows it beside the output pages.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/Project.h"

namespace korva {

// The stability factors of one case of one model, as page 1 shows them; empty where none was computed.
struct FactorLine {
  bool Laminated = false;
  bool Retreat = false;
  std::string Zone;
  std::array<std::string, 2> Barriers;  // at the first and the second side gob
};

// The record that ran, and what came out of it: a line for each model that ran and each case shown.
struct RunSummary {
  Project Input;
  UnitSystem Units = kEnglish;
  OverburdenModel Model = kTraditionalModel;
  int SideGobs = 0;
  std::vector<FactorLine> Factors;
};

}  // namespace korva
