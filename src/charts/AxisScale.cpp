#include "charts/AxisScale.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace korva {

int AxisScale::Labels() const {
  return static_cast<int>(std::lround((High - Low) / Step)) + 1;
}

double AxisScale::Value(int label) const {
  return (std::round(Low / Step) + label) * Step;
}

std::string AxisScale::Text(int label) const {
  const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(Step) - 1e-9)), 0, 12);
  // A step of 2.5, 0.25 and so on has a digit more.
  const double scaled = Step * std::pow(10, decimals);
  const int digits = decimals + (std::abs(scaled - std::round(scaled)) > 1e-6 ? 1 : 0);
  const double value = Value(label);
  return fmt::format("{:.{}f}", value == 0 ? 0.0 : value, digits);
}

AxisScale ScaleFor(double low, double high, int mostLabels) {
  if (!(high > low)) {
    const double room = low == 0 ? 1 : std::abs(low) / 2;
    low -= room;
    high += room;
  }
  double power = std::pow(10, std::floor(std::log10(high - low)) - 1);
  for (;; power *= 10) {
    for (const double digit : {1.0, 2.0, 2.5, 5.0}) {
      const double step = digit * power;
      const AxisScale scale = {std::floor(low / step + 1e-9) * step, std::ceil(high / step - 1e-9) * step,
                               step};
      if (scale.Labels() <= std::max(mostLabels, kLeastLabels)) {
        return scale;
      }
    }
  }
}

AxisScale ScaleThatFits(double low, double high, double length, double gap,
                        const std::function<double(const std::string& label)>& size) {
  for (int most = kMostLabels;; --most) {
    const AxisScale scale = ScaleFor(low, high, most);
    double room = 0;
    for (int label = 0; label < scale.Labels(); ++label) {
      room = std::max(room, size(scale.Text(label)) + gap);
    }
    if (most <= kLeastLabels || room * (scale.High - scale.Low) <= length * scale.Step) {
      return scale;
    }
  }
}

}  // namespace korva
