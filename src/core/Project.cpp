#include "core/Project.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "core/FileNames.h"
#include "core/NumberText.h"

namespace korva {

namespace {

constexpr int kLengthDecimals = 2;

// One value converted by `factor` and rounded half to even.
double Converted(double value, double factor, bool toMetric, int decimals) {
  const double scaled = toMetric ? value / factor : value * factor;
  if (!std::isfinite(scaled)) {
    throw RuntimeError(ErrorNumber::kOverflow, "a value is too large for the other unit system");
  }
  return RoundHalfEven(scaled, decimals);
}

}  // namespace

Project EmptyProject(UnitSystem units) {
  Project project;
  if (units == kMetric) {
    project.CoalStrength = kDataBaseStrength.English / kPsiPerMPa;
    project.UnitWeight = kDataBaseUnitWeight.English / kPcfPerKNm3;
  }
  return project;
}

void ConvertProjectUnits(StoredProject& project, UnitSystem targetUnits) {
  const bool toMetric = targetUnits == kMetric;
  const auto length = [toMetric](double value) {
    return Converted(value, kFeetPerMeter, toMetric, kLengthDecimals);
  };

  Project p = project.ProjectInput;
  for (double Project::*field :
       {&Project::EntryHeight, &Project::DepthCover, &Project::EntryWidth, &Project::XcutSpacing,
        &Project::BreadthAMZ, &Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::BarrierFirstGob,
        &Project::SlabcutFirstGob, &Project::ExtentSecondGob, &Project::BarrierSecondGob,
        &Project::SlabcutSecondGob}) {
    p.*field = length(p.*field);
  }
  for (int i = 1; i <= PillarRows(p); ++i) {
    p.XcutCenters[i] = length(p.XcutCenters[i]);
  }
  for (float Project::*field : {&Project::WidthRowC, &Project::WidthRowD}) {
    const double width = length(static_cast<double>(p.*field));
    if (std::abs(width) > static_cast<double>(std::numeric_limits<float>::max())) {
      throw RuntimeError(ErrorNumber::kOverflow, "a row's width is too large for the other unit system");
    }
    p.*field = static_cast<float>(width);
  }
  p.CoalStrength = Converted(p.CoalStrength, kPsiPerMPa, toMetric, 2);
  p.UnitWeight = Converted(p.UnitWeight, kPcfPerKNm3, toMetric, toMetric ? 3 : 2);

  project.ProjectInput = p;
  project.ProjectUnits = targetUnits;
}

std::string ConvertedFileName(const std::string& fileName, UnitSystem targetUnits) {
  return (targetUnits == kMetric ? "Metric_" : "English_") + FileBaseName(fileName, false);
}

int PillarRows(const Project& project) {
  if (project.NumberEntries <= std::numeric_limits<std::int16_t>::min()) {
    throw RuntimeError(ErrorNumber::kOverflow, "NumberEntries");
  }
  return project.NumberEntries - 1;
}

}  // namespace korva
