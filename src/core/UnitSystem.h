// The two unit systems of a project.
#pragma once

namespace korva {

// By the number that a file holds.
enum class UnitSystem : int {
  kEnglish = 0,  // feet, psi, pcf
  kMetric = 1,   // meters, MPa, kN/m3
};
using enum UnitSystem;

}  // namespace korva
