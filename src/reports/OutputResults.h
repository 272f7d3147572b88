// The results of a run in output units.
#pragma once

#include <string_view>

#include "core/OutputUnits.h"
#include "model/Calculation.h"

namespace korva {

// A calculation whose loads and stresses carry these labels.
struct OutputResults {
  WorkValues Work;
  Results Out;
  std::string_view LoadLabel;
  std::string_view StressLabel;
};

// Metric results stay in kN and kPa. NetAMZCapacity, RemnantOwnCapacity and RemnantStrength are printed
// nowhere and keep the calculation's units.
OutputResults ConvertResultUnits(const Calculation& calculation, const OutputUnits& units);

}  // namespace korva
