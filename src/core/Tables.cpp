#include "core/Tables.h"

#include "core/IndexedArray.h"

namespace korva {

namespace {

struct LabelPair {
  std::string_view english;
  std::string_view metric;
};

// Several rows pair units of different scale, row 7 for instance feet with centimeters; they stay as listed.
constexpr std::array<LabelPair, 18> UnitLabels = {{
    {" (ft)", " (m)"},
    {" (psi)", " (MPa)"},
    {" (pcf)", " (kN/m3)"},
    {" (in)", " (cm)"},
    {" (psf)", " (kPa)"},
    {" (lbs)", " (kN)"},
    {" (tons)", " (tn)"},
    {" (ft)", " (cm)"},
    {" (ksi)", " (MPa)"},
    {" (tons)", " (MN)"},
    {" (tons/ft)", " (MN/m)"},
    {" (in)", " (mm)"},
    {" (tons)", " (kN)"},
    {" (tons/ft)", " (kN/m)"},
    {" (million psi)", " (GPa)"},
    {" (kips/ft)", " (kN/m)"},
    {" (kip-ft/ft^2)", " (kN-m/m^2)"},
    {" (ton-ft/ft^2)", " (kN-m/m^2)"},
}};

}  // namespace

std::string_view UnitLabel(UnitKind kind, std::int16_t units) {
  const LabelPair& labels = UnitLabels[static_cast<std::size_t>(kind)];
  switch (units) {
    case 0:
      return labels.english;
    case 1:
      return labels.metric;
    default:
      ThrowSubscript(units, 0, 1);
  }
}

std::string_view BareUnit(std::string_view label) {
  return label.substr(2, label.size() - 3);
}

}  // namespace korva
