// Watches the arithmetic of a calculation for divisions by zero and overflows.
#pragma once

#include <string_view>

namespace korva {

// Clears the processor's floating-point flags when made. Raised() tells whether an operation since then
// divided by zero, overflowed or had no value. A stepwise watch does so after each named quantity and throws
// the run-time error that names it: 11 for a division by zero or 0/0, 6 for an overflow. Flags belong to a
// thread.
class ArithmeticWatch {
 public:
  enum class Mode { kWhole, kStepwise };

  // `results` is where a function of its own computes what it gives back, if it does: a compiler may
  // otherwise move the operations after the reading of the flags.
  explicit ArithmeticWatch(Mode mode, const void* results = nullptr);

  bool Raised() const;

  // The quantity just computed; `index` 0 stands for none.
  void Step(std::string_view quantity, int index = 0) const {
    if (mode_ == Mode::kStepwise) [[unlikely]] {
      ThrowIfRaised(quantity, index);
    }
  }

 private:
  void ThrowIfRaised(std::string_view quantity, int index) const;

  Mode mode_;
};

// Square root and natural logarithm; run-time error 5 that names the quantity for an argument without one.
double SquareRoot(double value, std::string_view quantity);
double NaturalLog(double value, std::string_view quantity);

}  // namespace korva
