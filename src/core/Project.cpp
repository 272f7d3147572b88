#include "core/Project.h"

#include <cstdint>
#include <limits>

#include "core/FileNames.h"
#include "core/NumberText.h"

namespace korva {

Project EmptyProject(UnitSystem units) {
  Project project;
  if (units == kMetric) {
    project.CoalStrength = kDataBaseStrength.English / kPsiPerMPa;
    project.UnitWeight = kDataBaseUnitWeight.English / kPcfPerKNm3;
  }
  return project;
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
