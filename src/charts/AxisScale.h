// Round numbers along an axis.
#pragma once

#include <functional>
#include <string>

namespace korva {

// Round numbers from Low to High, both multiples of Step.
struct AxisScale {
  double Low = 0;
  double High = 1;
  double Step = 1;

  int Labels() const;
  double Value(int label) const;
  std::string Text(int label) const;
};

inline constexpr int kMostLabels = 8;
inline constexpr int kLeastLabels = 3;  // with fewer there may be no round numbers around a range

// The scale of at most `mostLabels` labels that holds `low` and `high`.
AxisScale ScaleFor(double low, double high, int mostLabels = kMostLabels);

// The same with as many labels as leave each other `gap`, on an axis that is `length` long; `size` gives the
// room that a label's text takes along it.
AxisScale ScaleThatFits(double low, double high, double length, double gap,
                        const std::function<double(const std::string& label)>& size);

}  // namespace korva
