#include "input/ConvertProjectUnits.h"

#include <cmath>
#include <limits>

#include "core/NumberText.h"
#include "input/ParameterTable.h"

namespace korva {

namespace {

// One value converted by the factor of its kind, a length, a strength or a unit weight, and rounded half to
// even.
double Converted(double value, UnitKind kind, bool toMetric) {
  const double factor = kind == UnitKind::kStrength     ? kPsiPerMPa
                        : kind == UnitKind::kUnitWeight ? kPcfPerKNm3
                                                        : kFeetPerMeter;
  const double scaled = toMetric ? value / factor : value * factor;
  if (!std::isfinite(scaled)) {
    throw RuntimeError(ErrorNumber::kOverflow, "a value is too large for the other unit system");
  }
  return RoundHalfEven(scaled, kind == UnitKind::kUnitWeight && toMetric ? 3 : 2);
}

}  // namespace

void ConvertProjectUnits(StoredProject& project, UnitSystem targetUnits) {
  const bool toMetric = targetUnits == kMetric;
  Project p = project.ProjectInput;
  for (const NumberField& field : kNumberFields) {
    if (!field.Unit) {
      continue;
    }
    if (const auto* value = std::get_if<double Project::*>(&field.Member)) {
      p.** value = Converted(p.**value, *field.Unit, toMetric);
      continue;
    }
    float& single = p.*std::get<float Project::*>(field.Member);
    const double converted = Converted(static_cast<double>(single), *field.Unit, toMetric);
    if (std::abs(converted) > static_cast<double>(std::numeric_limits<float>::max())) {
      throw RuntimeError(ErrorNumber::kOverflow, "a row's width is too large for the other unit system");
    }
    single = static_cast<float>(converted);
  }
  for (int i = 1; i <= PillarRows(p); ++i) {
    p.XcutCenters[i] = Converted(p.XcutCenters[i], UnitKind::kLength, toMetric);
  }
  project.ProjectInput = p;
  project.ProjectUnits = targetUnits;
}

}  // namespace korva
