#include "input/UnitTables.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/NumberParsing.h"
#include "core/RuntimeError.h"
#include "core/UnitSystem.h"

namespace korva {

namespace {

// Kept as these numbers, not derived from more exact definitions.
constexpr double kInchesPerFoot = 12.0;
constexpr double kCmPerInch = 2.54;
constexpr double kCmPerMeter = 100.0;
constexpr double kKNPerPound = 0.004448220489393218;
constexpr double kKNPerTon = 8.896440978786435;
constexpr double kKNPerKip = 4.448220489393218;
constexpr double kThousand = 1000.0;
constexpr double kTwelfth = 0.08333333333333333;
constexpr double kKNPerMeter = 0.014593899243416069;  // per lbsF/ft
constexpr double kPaPerPsi = 6894.757293;
constexpr double kMillion = 1000000.0;
constexpr double kPaPerMeter = 271447.137519685;  // per psi/in

constexpr std::size_t kGroup = 4;  // a comma and three digits

using Row = std::vector<double>;

// Expressions are evaluated from left to right, as they stand.

Row Length(int source, double x) {
  switch (source) {
    case 0:
      return {x, x / kInchesPerFoot, x * kCmPerInch, x * kCmPerInch / kCmPerMeter};
    case 1:
      return {x * kInchesPerFoot, x, x * kInchesPerFoot * kCmPerInch,
              x * kInchesPerFoot * kCmPerInch / kCmPerMeter};
    case 2:
      return {x / kCmPerInch, x / kCmPerInch / kInchesPerFoot, x, x / kCmPerMeter};
    default:
      return {x * kCmPerMeter / kCmPerInch, x * kCmPerMeter / kCmPerInch / kInchesPerFoot, x * kCmPerMeter,
              x};
  }
}

Row Load(int source, double x) {
  switch (source) {
    case 0:
      return {x, x / kPoundsPerTon, x * kKNPerPound, x * kKNPerPound / kThousand, x / kThousand};
    case 1:
      return {x * kPoundsPerTon, x, x * kPoundsPerTon * kKNPerPound,
              x * kPoundsPerTon * kKNPerPound / kThousand, x * kPoundsPerTon / kThousand};
    case 2:
      return {x / kKNPerPound, x / kKNPerTon, x, x / kThousand, x / kKNPerKip};
    case 3:
      return {x * kThousand / kKNPerPound, x * kThousand / kKNPerPound / kPoundsPerTon, x * kThousand, x,
              x * kThousand / kKNPerKip};
    default:
      return {x * kThousand, x / kPoundsPerTon * kThousand, x * kKNPerPound * kThousand,
              x * kKNPerPound / kThousand * kThousand, x};
  }
}

Row LoadGradient(int source, double x) {
  switch (source) {
    case 0:
      return {x, x / kTwelfth, x / kTwelfth * kKNPerMeter, x / kTwelfth * kKNPerMeter / kThousand};
    case 1:
      return {x * kTwelfth, x, x * kKNPerMeter, x * kKNPerMeter / kThousand};
    case 2:
      return {x / kKNPerMeter * kTwelfth, x / kKNPerMeter, x, x / kThousand};
    default:
      return {x * kThousand / kKNPerMeter * kTwelfth, x * kThousand / kKNPerMeter, x * kThousand, x};
  }
}

Row Stress(int source, double x) {
  switch (source) {
    case 0:
      return {x, x / kThousand, x / kPsiPerPsf, x * kPaPerPsi, x * kPaPerPsi / kMillion};
    case 1:
      return {x * kThousand, x, x / kPsiPerPsf * kThousand, x * kPaPerPsi * kThousand,
              x * kPaPerPsi / kMillion * kThousand};
    case 2:
      return {x * kPsiPerPsf / kThousand, x * kPsiPerPsf, x, x * kPsiPerPsf * kPaPerPsi,
              x * kPsiPerPsf * kPaPerPsi / kMillion};
    case 3:
      return {x / kPaPerPsi, x / kPaPerPsi / kThousand, x / kPaPerPsi / kPsiPerPsf, x, x / kMillion};
    default:
      return {x * kMillion / kPaPerPsi, x * kMillion / kPaPerPsi / kThousand,
              x * kMillion / kPaPerPsi / kPsiPerPsf, x * kMillion, x};
  }
}

Row StressGradient(int source, double x) {
  switch (source) {
    case 0:
      return {x, x / kTwelfth, x * kPaPerMeter, x * kPaPerMeter / kMillion};
    case 1:
      return {x * kTwelfth, x, x * kTwelfth * kPaPerMeter, x * kTwelfth * kPaPerMeter / kMillion};
    case 2:
      return {x / kPaPerMeter, x / kPaPerMeter / kTwelfth, x, x / kMillion};
    default:
      return {x * kMillion / kPaPerMeter, x * kMillion / kPaPerMeter / kTwelfth, x * kMillion, x};
  }
}

using Table = Row (*)(int source, double x);
constexpr std::array<Table, kUnitQuantities> kTables = {Length, Load, LoadGradient, Stress, StressGradient};

}  // namespace

const std::vector<UnitTab>& UnitTabs() {
  static const std::vector<UnitTab> tabs = {
      {UnitQuantity::kLength,
       "length",
       "Length",
       "Length units",
       "txtLength",
       "Option2",
       {{"in", "Text7"}, {"ft", "Text8"}, {"cm", "Text9"}, {"m", "Text10"}}},
      {UnitQuantity::kLoad,
       "load",
       "Load",
       "Load units",
       "txtLoad",
       "Option5",
       {{"lbsF", "Text21"},
        {"tonsF (short)", "Text22"},
        {"kN", "Text23"},
        {"MN", "Text24"},
        {"kips", "Text25"}}},
      {UnitQuantity::kLoadGradient,
       "loadgrad",
       "Load Grad",
       "Load gradient units",
       "txtLoadGrad",
       "Option4",
       {{"lbsF/in", "Text17"}, {"lbsF/ft", "Text18"}, {"kN/m", "Text19"}, {"MN/m", "Text20"}}},
      {UnitQuantity::kStress,
       "stress",
       "Stress",
       "Pressure/stress units",
       "txtStress",
       "Option1",
       {{"psi", "Text2"}, {"ksi", "Text3"}, {"psf", "Text4"}, {"Pa", "Text5"}, {"MPa", "Text6"}}},
      {UnitQuantity::kStressGradient,
       "stressgrad",
       "Stress Grad",
       "Pressure/stress gradient units",
       "txtStressGrad",
       "Option3",
       {{"psi/in", "Text12"}, {"psi/ft", "Text13"}, {"Pa/m", "Text14"}, {"MPa/m", "Text15"}}}};
  return tabs;
}

std::vector<double> ConvertUnits(UnitQuantity quantity, int source, double x) {
  const auto index = static_cast<std::size_t>(quantity);
  const int units = static_cast<int>(UnitTabs().at(index).Units.size());
  if (source < 0 || source >= units) {
    ThrowSubscript(source, 0, units - 1);
  }
  Row row = kTables.at(index)(source, x);
  if (!std::all_of(row.begin(), row.end(), [](double value) { return std::isfinite(value); })) {
    throw RuntimeError(ErrorNumber::kOverflow, "the value is too large for the other units");
  }
  return row;
}

CalculatorNumber ReadCalculatorNumber(std::string_view text) {
  std::string cleaned = CleanNumberText(text);
  const auto comma = cleaned.find(',');
  if (cleaned.find('.') == std::string::npos && comma != std::string::npos) {
    cleaned[comma] = '.';
  }
  const ParsedNumber number = ParseNumberPrefix(cleaned);
  const bool all = number.length == cleaned.size() && !number.overflow;
  const bool likeThousands = comma != std::string::npos && cleaned.size() - comma == kGroup;
  CalculatorNumber read{number.value, all && !cleaned.empty(), {}};
  if (!all || likeThousands) {
    read.Note = CountsAsText(number.value);
  }
  return read;
}

std::optional<int> UnitOf(const UnitTab& tab, std::string_view captionOrIndex) {
  for (std::size_t i = 0; i < tab.Units.size(); ++i) {
    if (captionOrIndex == tab.Units[i].Caption || captionOrIndex == std::to_string(i)) {
      return static_cast<int>(i);
    }
  }
  return std::nullopt;
}

}  // namespace korva
