#include "reports/RoundSF.h"

#include <cmath>

#include "core/NumberText.h"
#include "core/RuntimeError.h"

namespace korva {

float RoundSF(double value, FactorRounding roundKORVASF) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) {
    throw RuntimeError(ErrorNumber::kOverflow, "a stability factor");
  }
  if (roundKORVASF == FactorRounding::kTwoDecimals) {
    return static_cast<float>(RoundHalfEven(static_cast<double>(single), 2));
  }
  if (roundKORVASF == FactorRounding::kTruncated) {
    const auto hundredfold = static_cast<float>(static_cast<double>(single) * 100);
    return static_cast<float>(std::trunc(static_cast<double>(hundredfold)) / 100);
  }
  return single;
}

}  // namespace korva
