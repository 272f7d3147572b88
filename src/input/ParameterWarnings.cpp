#include "input/ParameterWarnings.h"

#include <array>

#include "core/Project.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

constexpr double kDataBaseAngle = 21;
// By unit system: psi and MPa, pcf and kN/m3.
constexpr std::array<double, 2> kDataBaseStrength = {900, 6.21};
constexpr std::array<double, 2> kDataBaseUnitWeight = {162, 25.45};

double OfUnits(const std::array<double, 2>& values, UnitSystem units) {
  return values[units == kMetric ? 1 : 0];
}

}  // namespace

std::optional<std::string> AbutmentAngleWarning(std::string_view text) {
  if (FieldNumber(text) == kDataBaseAngle) {
    return std::nullopt;
  }
  return "Warning: The KORVA case history data base was analyzed with abutment angles of 21 degrees.  Stability "
         "Factors (SF) obtained with different abutment angles may not be comparable to the suggested SF values "
         "obtained from BRANTEL's analysis of the data base.  For more information, see Help/Project Input "
         "Parameters.";
}

std::optional<std::string> CoalStrengthWarning(std::string_view text, UnitSystem units) {
  if (FieldNumber(text) == OfUnits(kDataBaseStrength, units)) {
    return std::nullopt;
  }
  return "Warning: The KORVA case history data base was analyzed with an in situ coal strength of 900 psi.  "
         "Stability Factors (SF) obtained with a different in situ coal strength may not be comparable to the "
         "suggested SF values obtained from BRANTEL's analysis of the data base.  Also, BRANTEL research has shown "
         "that the reliability of the KORVA design method decreases substantially when laboratory coal strengths "
         "were used in place of the default value.  For more information, see Help/Resources/In situ strength of "
         "coal.";
}

std::optional<std::string> UnitWeightWarning(std::string_view text, UnitSystem units) {
  if (FieldNumber(text) == OfUnits(kDataBaseUnitWeight, units)) {
    return std::nullopt;
  }
  return "Warning: The KORVA case history data base was analyzed with an overburden unit weight of 162 pcf.  "
         "Stability Factors (SF) obtained with a different overburden unit weight may not be comparable to the "
         "suggested SF values obtained from BRANTEL's analysis of the data base.";
}

std::string AutomaticAMZWarning() {
  return "Warning: The KORVA case history data base was analyzed with the breadth of the Active Mining Zone (AMZ) "
         "calculated automatically (AMZ = 5 times the square root of the depth of cover).  Stability Factors (SF) "
         "obtained with a different AMZ may not be comparable to the suggested SF values obtained from BRANTEL's "
         "analysis of the data base.  For more information, see Help/Project Input Parameters.";
}

std::string AutomaticArchWarning() {
  return "Warning: The KORVA case history data base was analyzed with the Pressure Arch Factor (Fpa) calculated "
         "automatically (Fpa = 0.28 times the natural log of the depth-to-panel-width ratio).  Stability Factors "
         "(SF) obtained with a different Fpa may not be comparable to the suggested SF values obtained from "
         "BRANTEL's analysis of the data base.  For more information, see Help/Project Input Parameters.";
}

std::string DeepCoverWarning() {
  return "Warning: In the KORVA data base, of the 19 case histories of Active Retreat and Two Side Gobs under deep "
         "cover, only 7 were successful.  This extraction sequence should be avoided if possible.";
}

}  // namespace korva
