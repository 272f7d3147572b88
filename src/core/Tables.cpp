#include "core/Tables.h"

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

std::string_view UnitLabel(UnitKind kind, UnitSystem units) {
  const LabelPair& labels = UnitLabels[static_cast<std::size_t>(kind)];
  return units == kMetric ? labels.metric : labels.english;
}

std::string_view ModelName(OverburdenModel model) {
  const auto index = static_cast<std::size_t>(model);
  return kModelNames[index < kModelNames.size() ? index : static_cast<std::size_t>(kLaminatedModel)];
}

std::string_view UnitSystemName(UnitSystem units) {
  return units == kMetric ? "Metric" : "English";
}

std::string_view BareUnit(std::string_view label) {
  return label.substr(2, label.size() - 3);
}

}  // namespace korva
