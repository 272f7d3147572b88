#include "files/OptionsFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <variant>

#include "core/ClampOrReset.h"
#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "core/Text.h"
#include "files/UtilINI.h"

namespace korva {

namespace {

constexpr std::string_view kSection = "KORVAOptions";

struct Option {
  std::string_view key;
  std::variant<std::int16_t OptionSettings::*, float OptionSettings::*> member;
  double missing;  // the value of a missing key
  double low = 0;
  double high = 1;
};

// Cell sizes have no bound but that of their type; 0 becomes the value of a missing key.
constexpr double kNoBound = 32767;
// Percentages of a swept range, read as whole numbers though they are held as fractions.
constexpr double kLargestRange = 150;

constexpr auto kOptions = std::to_array<Option>({
    {"OutputStrUnits", &OptionSettings::OutputStrUnits, 0},
    {"OutputStrGradUnits", &OptionSettings::OutputStrGradUnits, 0},
    {"ShowInputScreenOnLoad", &OptionSettings::ShowInputScreenOnLoad, 0},
    {"IssueWarningCancel", &OptionSettings::IssueWarningCancel, 1},
    {"ViewChildWindow", &OptionSettings::ViewChildWindow, 1},
    {"PrintModuleHeader", &OptionSettings::PrintModuleHeader, 1},
    {"PlotEntryDims", &OptionSettings::PlotEntryDims, 1},
    {"PlotXcutDims", &OptionSettings::PlotXcutDims, 1},
    {"PlotGobDims", &OptionSettings::PlotGobDims, 1},
    {"PlotSingleXcutDims", &OptionSettings::PlotSingleXcutDims, 1},
    {"PlotGobExtLoose", &OptionSettings::PlotGobExtLoose, 1},
    {"PlotRangeMin", &OptionSettings::PlotRangeMin, 100, 0, kLargestRange},
    {"PlotRangeMax", &OptionSettings::PlotRangeMax, 150, 0, kLargestRange},
    {"PrintPlotReminder", &OptionSettings::PrintPlotReminder, 1},
    {"AskOfficeInstall", &OptionSettings::AskOfficeInstall, 1},
    {"RoundKORVASF", &OptionSettings::RoundKORVASF, 0, 0, 2},
    {"CellSizeEnglish", &OptionSettings::CellSizeEnglish, 2, -kNoBound, kNoBound},
    {"CellSizeMetric", &OptionSettings::CellSizeMetric, 0.5, -kNoBound, kNoBound},
    {"Strond2DViewProgress", &OptionSettings::Strond2DViewProgress, 0},
    {"Strond2DViewProgOutput", &OptionSettings::Strond2DViewProgOutput, 0},
    {"Strond2DViewOutput", &OptionSettings::Strond2DViewOutput, 0},
    {"iOptDir", &OptionSettings::iOptDir, 1, 0, 3},
});

// Stores `value` as the setting holds it, a whole number or 32 bits; false if it lay outside its range.
bool Store(OptionSettings& options, const Option& option, double value) {
  const bool whole = std::holds_alternative<std::int16_t OptionSettings::*>(option.member);
  double kept = ClampOrReset(whole ? std::nearbyint(value) : value, option.low, option.high);
  if (!whole) {
    kept = static_cast<double>(static_cast<float>(kept));
  }
  const bool noCell = option.high == kNoBound && kept == 0;
  if (noCell) {
    kept = option.missing;
  }
  std::visit(
      [&options, kept](auto member) {
        options.*member = static_cast<std::remove_reference_t<decltype(options.*member)>>(kept);
      },
      option.member);
  return value >= option.low && value <= option.high && !noCell;
}

}  // namespace

bool HasOptions(std::string_view text) {
  return std::any_of(kOptions.begin(), kOptions.end(), [text](const Option& option) {
    return FindIniValue(text, kSection, option.key).has_value();
  });
}

OptionSettings ReadOptions(std::string_view text) {
  OptionSettings options;
  for (const Option& option : kOptions) {
    const std::string value = GetIniValue(text, kSection, option.key, GeneralText(option.missing));
    const double number = ParseNumberPrefix(value).value;
    Store(options, option, option.high == kLargestRange ? std::nearbyint(number) : number);
  }
  if (options.PlotRangeMin == options.PlotRangeMax) {
    options.PlotRangeMin = OptionSettings{}.PlotRangeMin;
    options.PlotRangeMax = OptionSettings{}.PlotRangeMax;
  }
  return options;
}

OptionChange SetOption(OptionSettings& options, std::string_view key, std::string_view value) {
  const auto* option = std::find_if(kOptions.begin(), kOptions.end(),
                                    [key](const Option& o) { return SameIniName(o.key, Trimmed(key)); });
  if (option == kOptions.end()) {
    return OptionChange::kUnknownKey;
  }
  const std::string_view number = Trimmed(value);
  const ParsedNumber parsed = ParseNumberPrefix(number);
  if (parsed.length == 0 || parsed.length != number.size()) {
    return OptionChange::kNoNumber;
  }
  return Store(options, *option, parsed.value) ? OptionChange::kDone : OptionChange::kReset;
}

}  // namespace korva
