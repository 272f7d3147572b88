// Rounding of stability factors for reports and rules.
#pragma once

#include "core/Settings.h"

namespace korva {

// `value` as a 32-bit float by the option RoundKORVASF: 0 rounds to 2 decimals half to even, 2 truncates to 2
// decimals, anything else leaves it. The captions of the choices 1 and 2 are crossed with what they do, and
// that stays. Run-time error 6 if the value has no 32-bit form.
float RoundSF(double value, FactorRounding roundKORVASF);

}  // namespace korva
