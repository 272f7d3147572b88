// The results of a run in output units.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/Calculation.h"

namespace korva {

// The choice of units for the output of an English project.
struct OutputUnits {
  std::int16_t OutputStrUnits = 0;      // stresses: 0 psi, else psf
  std::int16_t OutputStrGradUnits = 1;  // loads: 1 tons, else lbs
};

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
