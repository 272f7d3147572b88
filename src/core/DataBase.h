// The values with which the case history data base was analyzed, and what is said where a panel differs.
// Pages print the texts as they stand, the form after "Warning: ".
#pragma once

#include <string_view>

#include "core/UnitSystem.h"

namespace korva {

// One value by unit system, and the warning for every other.
struct DataBaseValue {
  double English;
  double Metric;
  std::string_view Warning;

  constexpr double In(UnitSystem units) const { return units == kMetric ? Metric : English; }
};

inline constexpr DataBaseValue kDataBaseStrength = {
    900, 6.21,  // psi, MPa
    "The KORVA case history data base was analyzed with an in situ coal strength of 900 psi.  Stability "
    "Factors (SF) obtained with a different in situ coal strength may not be comparable to the suggested "
    "SF values obtained from BRANTEL's analysis of the data base.  Also, BRANTEL research has shown that "
    "the reliability of the KORVA design method decreases substantially when laboratory coal strengths "
    "were used in place of the default value.  For more information, see Help/Resources/In situ strength "
    "of coal."};

inline constexpr DataBaseValue kDataBaseUnitWeight = {
    162, 25.45,  // pcf, kN/m3
    "The KORVA case history data base was analyzed with an overburden unit weight of 162 pcf.  Stability "
    "Factors (SF) obtained with a different overburden unit weight may not be comparable to the suggested "
    "SF values obtained from BRANTEL's analysis of the data base."};

inline constexpr DataBaseValue kDataBaseAngle = {
    21, 21,  // degrees
    "The KORVA case history data base was analyzed with abutment angles of 21 degrees.  Stability Factors "
    "(SF) obtained with different abutment angles may not be comparable to the suggested SF values "
    "obtained from BRANTEL's analysis of the data base.  For more information, see Help/Project Input "
    "Parameters."};

inline constexpr std::string_view kBreadthWarning =
    "The KORVA case history data base was analyzed with the breadth of the Active Mining Zone (AMZ) "
    "calculated automatically (AMZ = 5 times the square root of the depth of cover).  Stability Factors "
    "(SF) obtained with a different AMZ may not be comparable to the suggested SF values obtained from "
    "BRANTEL's analysis of the data base.  For more information, see Help/Project Input Parameters.";

inline constexpr std::string_view kArchFactorWarning =
    "The KORVA case history data base was analyzed with the Pressure Arch Factor (Fpa) calculated "
    "automatically (Fpa = 0.28 times the natural log of the depth-to-panel-width ratio).  Stability "
    "Factors (SF) obtained with a different Fpa may not be comparable to the suggested SF values obtained "
    "from BRANTEL's analysis of the data base.  For more information, see Help/Project Input Parameters.";

inline constexpr std::string_view kTwoSideGobsWarning =
    "In the KORVA data base, of the 19 case histories of Active Retreat and Two Side Gobs under deep "
    "cover, only 7 were successful.  This extraction sequence should be avoided if possible.";

}  // namespace korva
