#include "Calibration.h"

#include <algorithm>
#include <cmath>

namespace korva::laminated {

namespace {

constexpr double kFeetPerMeter = 3.280839895013123;
constexpr double kRadiansPerDegree = 0.017453292519943278;
constexpr double kSteepestGobAngle = 1.5690509975429008;  // 89.9 degrees
constexpr double kLeastRatio = 1e-14;
constexpr int kBisections = 64;

}  // namespace

double LengthScale(double depth, bool metric) {
  const double feet = metric ? depth * kFeetPerMeter : depth;
  const double scale = 5 * std::sqrt(feet) / std::log(10.0);
  return metric ? scale / kFeetPerMeter : scale;
}

double ShedCover(double depth, const GobSetting& gob) {
  const double angle = gob.AbutmentAngle < 90 ? gob.AbutmentAngle * kRadiansPerDegree : kSteepestGobAngle;
  const double reach = depth * std::tan(angle);
  if (gob.Width / 2 > reach) {
    return reach / 2;
  }
  return reach > 0 ? gob.Width / 2 - gob.Width * gob.Width / (8 * reach) : 0;
}

double ShedByStrip(double ratio, double lengthScale, const GobSetting& gob) {
  const double root = std::sqrt(ratio);
  const double th = std::tanh(root * gob.Width / (2 * lengthScale));
  return lengthScale * (1 / ratio - 1 / gob.AbutmentStiffness) * root * th /
         (1 + std::sqrt(ratio / gob.AbutmentStiffness) * th);
}

// The shed cover falls steadily from half the width at ratio 0 to nothing at the abutments' stiffness, and
// what is asked for lies between: one root. Bisection in the logarithm of the ratio.
double GobStiffness(double depth, double lengthScale, const GobSetting& gob) {
  const double wanted = ShedCover(depth, gob);
  if (!(wanted > 0)) {
    return gob.AbutmentStiffness;
  }
  double low = std::log(kLeastRatio);
  double high = std::log(gob.AbutmentStiffness);
  for (int step = 0; step < kBisections; ++step) {
    const double middle = (low + high) / 2;
    if (ShedByStrip(std::exp(middle), lengthScale, gob) > wanted) {
      low = middle;
    } else {
      high = middle;
    }
  }
  return std::min(std::exp((low + high) / 2), gob.AbutmentStiffness);
}

}  // namespace korva::laminated
