#include "core/ArithmeticWatch.h"

#include <fmt/format.h>

#include <cfenv>
#include <cmath>

#include "core/RuntimeError.h"

namespace korva {

namespace {

constexpr int kFaults = FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID;

}  // namespace

ArithmeticWatch::ArithmeticWatch(Mode mode, const void* /*results*/) : mode_(mode) {
  if (std::fetestexcept(kFaults) != 0) {  // clearing is slow, testing is not
    std::feclearexcept(kFaults);
  }
}

bool ArithmeticWatch::Raised() const {
  return std::fetestexcept(kFaults) != 0;
}

void ArithmeticWatch::ThrowIfRaised(std::string_view quantity, int index) const {
  const int raised = std::fetestexcept(kFaults);
  if (raised == 0) {
    return;
  }
  std::feclearexcept(kFaults);
  const bool overflow = (raised & FE_DIVBYZERO) == 0 && (raised & FE_OVERFLOW) != 0;
  throw RuntimeError(overflow ? ErrorNumber::kOverflow : ErrorNumber::kDivisionByZero,
                     index == 0 ? fmt::format("in the calculation of {}", quantity)
                                : fmt::format("in the calculation of {}[{}]", quantity, index));
}

double SquareRoot(double value, std::string_view quantity) {
  if (value < 0) {
    throw RuntimeError(ErrorNumber::kInvalidCall,
                       fmt::format("in the calculation of {}: the square root of {}", quantity, value));
  }
  return std::sqrt(value);
}

double NaturalLog(double value, std::string_view quantity) {
  if (value <= 0) {
    throw RuntimeError(ErrorNumber::kInvalidCall,
                       fmt::format("in the calculation of {}: the logarithm of {}", quantity, value));
  }
  return std::log(value);
}

}  // namespace korva
