// The units that the results of an English project may have, by the options that choose them. Metric results
// stay in kN and kPa.
#pragma once

#include <array>
#include <string_view>

#include "core/UnitSystem.h"

namespace korva {

enum class StressUnit : int { kPsi = 0, kPsf = 1 };
enum class LoadUnit : int { kPounds = 0, kTons = 1 };

struct OutputUnit {
  std::string_view Label;  // in the heading of a column
  const char* Caption;     // among the options
  double Scale;
};

// By StressUnit; psf are multiplied by the scale.
inline constexpr std::array<OutputUnit, 2> kStressUnits = {{{" (psi)", "psi", kPsiPerPsf},  //
                                                            {" (psf)", "psf", 1}}};
// By LoadUnit; pounds are divided by the scale.
inline constexpr std::array<OutputUnit, 2> kLoadUnits = {{{" (lbs)", "lbs,  lbs/ft", 1},  //
                                                          {" (tons)", "tons, tons/ft", kPoundsPerTon}}};

constexpr const OutputUnit& UnitOf(StressUnit unit) {
  return kStressUnits.at(static_cast<std::size_t>(unit));
}
constexpr const OutputUnit& UnitOf(LoadUnit unit) {
  return kLoadUnits.at(static_cast<std::size_t>(unit));
}

// The choice of the options.
struct OutputUnits {
  StressUnit OutputStrUnits = StressUnit::kPsi;
  LoadUnit OutputStrGradUnits = LoadUnit::kTons;
};

}  // namespace korva
