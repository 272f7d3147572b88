// The two unit systems of a project.
#pragma once

namespace korva {

// By the number that a file holds.
enum class UnitSystem : int {
  kEnglish = 0,  // feet, psi, pcf
  kMetric = 1,   // meters, MPa, kN/m3
};
using enum UnitSystem;

inline constexpr double kPoundsPerTon = 2000;  // short tons
inline constexpr double kSquareInchesPerSquareFoot = 144;
inline constexpr double kPsiPerPsf = 0.006944444444444444;

}  // namespace korva
