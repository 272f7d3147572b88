// The project record: one retreat panel as the engineer describes it.
#pragma once

#include <string>

#include "core/DataBase.h"
#include "core/IndexedArray.h"
#include "core/OverburdenModel.h"
#include "core/PanelLoading.h"
#include "core/UnitSystem.h"

namespace korva {

inline constexpr int kLeastEntries = 2;
inline constexpr int kMaxEntries = 10;
inline constexpr int kMaxRows = kMaxEntries - 1;

inline constexpr double kFeetPerMeter = 3.280839895013123;
inline constexpr double kPsiPerMPa = 145.0377;
inline constexpr double kPcfPerKNm3 = 6.3663022639200495;
inline constexpr double kRadiansPerDegree = 0.017453292519943278;

// All lengths in ft or m, strengths in psi or MPa, unit weight in pcf or kN/m3, angles in degrees, by the
// unit system of the project. Flags hold 1 and 0, or what a file had. The values here are those of an empty
// English project.
struct Project {
  double EntryHeight = 0;
  double DepthCover = 0;
  double EntryWidth = 0;
  double XcutSpacing = 0;
  double XcutAngle = 90;
  int NumberEntries = 2;
  IndexedArray<double, 1, kMaxRows> XcutCenters;  // 1 to NumberEntries - 1 are in use
  double CoalStrength = kDataBaseStrength.English;
  double UnitWeight = kDataBaseUnitWeight.English;
  double BreadthAMZ = 0;
  PanelLoading LoadingCondition = PanelLoading::kDevelopmentLoad;
  int LoadingConditionAux = 0;  // carried from file to file, without a meaning
  int AMZAuto = 1;
  float ArchFactor = 1;
  int ArchAuto = 1;
  OverburdenModel CalcMode = kTraditionalModel;
  double ExtentActiveGob = 0;
  double AbutmentAngleActiveGob = kDataBaseAngle.English;
  double ExtentFirstGob = 0;
  double AbutmentAngleFirstGob = kDataBaseAngle.English;
  double BarrierFirstGob = 0;
  double SlabcutFirstGob = 0;
  double ExtentSecondGob = 0;
  double AbutmentAngleSecondGob = kDataBaseAngle.English;
  double BarrierSecondGob = 0;
  double SlabcutSecondGob = 0;
  int RowA = 0;
  int RowB = 0;
  int RowC = 0;
  int RowD = 0;
  float WidthRowC = 0;
  float WidthRowD = 0;

  bool operator==(const Project&) const = default;
};

// What a project file holds. Texts are UTF-8.
struct StoredProject {
  Project ProjectInput;
  std::string ProjectTitle;
  std::string ProjectDescription;   // lines joined by CR LF
  int ProjectDescriptionLines = 0;  // counted as the description is read; nobody reads it
  UnitSystem ProjectUnits = kEnglish;
};

inline bool HasActiveGob(const Project& project) {
  return HasActiveGob(project.LoadingCondition);
}
inline bool HasFirstSideGob(const Project& project) {
  return HasFirstSideGob(project.LoadingCondition);
}
inline bool HasSecondSideGob(const Project& project) {
  return HasSecondSideGob(project.LoadingCondition);
}

// Whether a flag of the record is set: at exactly 1.
constexpr bool IsSet(int flag) {
  return flag == 1;
}
// Whether a run computes the arch factor: unless its flag is 0.
inline bool ComputesArch(const Project& project) {
  return project.ArchAuto != 0;
}

// The record of an empty project. LoadingConditionAux is the caller's to carry over.
Project EmptyProject(UnitSystem units);

// The file name after a conversion: "Metric_" or "English_" and the name without its folder.
std::string ConvertedFileName(const std::string& fileName, UnitSystem targetUnits);

// Number of pillar rows across the panel: NumberEntries minus 1. Run-time error 6 below the 16-bit range.
int PillarRows(const Project& project);

}  // namespace korva
