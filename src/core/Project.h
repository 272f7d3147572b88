// The project record: one retreat panel as the engineer describes it.
#pragma once

#include <cstdint>
#include <string>

#include "core/IndexedArray.h"

namespace korva {

// Unit systems, as a project file stores them.
inline constexpr std::int16_t kEnglish = 0;  // feet, psi, pcf
inline constexpr std::int16_t kMetric = 1;   // meters, MPa, kN/m3

// Overburden models, as CalcMode stores them.
inline constexpr std::int16_t kTraditionalModel = 0;
inline constexpr std::int16_t kLaminatedModel = 1;
inline constexpr std::int16_t kComparedModels = 2;

inline constexpr int kMaxEntries = 10;
inline constexpr int kMaxRows = kMaxEntries - 1;

inline constexpr double kFeetPerMeter = 3.280839895013123;
inline constexpr double kPsiPerMPa = 145.0377;
inline constexpr double kPcfPerKNm3 = 6.3663022639200495;
inline constexpr double kRadiansPerDegree = 0.017453292519943278;

// All lengths in ft or m, strengths in psi or MPa, unit weight in pcf or kN/m3, angles in degrees, by the
// unit system of the project. Flags hold 1 and 0. The values here are those of an empty English project.
struct Project {
  double EntryHeight = 0;
  double DepthCover = 0;
  double EntryWidth = 0;
  double XcutSpacing = 0;
  double XcutAngle = 90;
  std::int16_t NumberEntries = 2;
  IndexedArray<double, 1, kMaxRows> XcutCenters;  // 1 to NumberEntries - 1 are in use
  double CoalStrength = 900;
  double UnitWeight = 162;
  double BreadthAMZ = 0;
  std::int16_t LoadingCondition = 0;     // 0 to 3, index into LoadingConditionTitles
  std::int16_t LoadingConditionAux = 0;  // carried from file to file, without a meaning
  std::int16_t AMZAuto = 1;
  float ArchFactor = 1;
  std::int16_t ArchAuto = 1;
  std::int16_t CalcMode = kTraditionalModel;
  double ExtentActiveGob = 0;
  double AbutmentAngleActiveGob = 21;
  double ExtentFirstGob = 0;
  double AbutmentAngleFirstGob = 21;
  double BarrierFirstGob = 0;
  double SlabcutFirstGob = 0;
  double ExtentSecondGob = 0;
  double AbutmentAngleSecondGob = 21;
  double BarrierSecondGob = 0;
  double SlabcutSecondGob = 0;
  std::int16_t RowA = 0;
  std::int16_t RowB = 0;
  std::int16_t RowC = 0;
  std::int16_t RowD = 0;
  float WidthRowC = 0;
  float WidthRowD = 0;

  bool operator==(const Project&) const = default;
};

// What a project file holds. Texts are UTF-8.
struct StoredProject {
  Project ProjectInput;
  std::string ProjectTitle;
  std::string ProjectDescription;            // lines joined by CR LF
  std::int16_t ProjectDescriptionLines = 0;  // count kept while the description is read and normalized
  std::int16_t ProjectUnits = kEnglish;
};

// The record of an empty project. LoadingConditionAux is the caller's to carry over.
Project EmptyProject(std::int16_t units);

// Changes all values to the unit system `targetUnits`, each rounded to 2 decimals half to even (unit weight
// in metric units to 3). It does not look at the present units: offering only the other system is the
// caller's part. Run-time error 6 if a value leaves its range.
void ConvertProjectUnits(StoredProject& project, std::int16_t targetUnits);

// The file name after a conversion: "Metric_" or "English_" and the name without its folder.
std::string ConvertedFileName(const std::string& fileName, std::int16_t targetUnits);

// Number of pillar rows across the panel: NumberEntries minus 1. Run-time error 6 below the 16-bit range.
std::int16_t PillarRows(const Project& project);

}  // namespace korva
