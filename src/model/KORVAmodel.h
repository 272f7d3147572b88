// The traditional loading model: from a project record to all stability factors.
#pragma once

#include <optional>
#include <string>

#include "core/Project.h"
#include "model/Calculation.h"

namespace korva {

// The message of the first test that the project fails, or nothing. LoadingCondition is tested as the record
// holds it.
std::optional<std::string> CheckProject(const Project& project);

// The result of a preparation: a calculation that can be run, or the check's refusal.
struct Prepared {
  Calculation Run;
  std::optional<std::string> Refusal;
};

// Fills the working values from `project` in the unit system `units` and checks the project. Run-time error 6
// for values whose conversion overflows.
Prepared PrepareCalculation(const Project& project, UnitSystem units);

// Evaluates the Development and the Retreat case, at every loading condition. Results that an earlier run
// left are cleared. Run-time error 11 or 6, which names the quantity, for a division by zero or an overflow
// in a formula, 5 for a root or logarithm that has no value, 9 for a loading condition that the model does
// not know; the results are then not to be used.
void RunCalculation(Calculation& calculation);

// The pressure arch factor that a run with these working values takes: the entered one, or from depth H and
// panel width W (the centers' sum) 1 - 0.28 ln(H / W), at least 0.28, 1 for a panel wider than H - 80; two
// decimals.
float CalcArchFactor(const WorkValues& work);

}  // namespace korva
