#include "files/OptionsFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "core/Limits.h"
#include "core/Text.h"
#include "files/SettingTable.h"

namespace korva {

namespace {

constexpr std::string_view kSection = "KORVAOptions";

constexpr auto kOptions = std::to_array<Setting<OptionSettings>>({
    {"OutputStrUnits", &OptionSettings::OutputStrUnits, "0", 0, kStressUnits.size() - 1},
    {"OutputStrGradUnits", &OptionSettings::OutputStrGradUnits, "0", 0, kLoadUnits.size() - 1},
    {"ShowInputScreenOnLoad", &OptionSettings::ShowInputScreenOnLoad, "0"},
    {"IssueWarningCancel", &OptionSettings::IssueWarningCancel, "1"},
    {"ViewChildWindow", &OptionSettings::ViewChildWindow, "1"},
    {"PrintModuleHeader", &OptionSettings::PrintModuleHeader, "1"},
    {"PlotEntryDims", &OptionSettings::PlotEntryDims, "1"},
    {"PlotXcutDims", &OptionSettings::PlotXcutDims, "1"},
    {"PlotGobDims", &OptionSettings::PlotGobDims, "1"},
    {"PlotSingleXcutDims", &OptionSettings::PlotSingleXcutDims, "1"},
    {"PlotGobExtLoose", &OptionSettings::PlotGobExtLoose, "1"},
    {"PlotRangeMin", &OptionSettings::PlotRangeMin, "100", 0, kGreatestRange},
    {"PlotRangeMax", &OptionSettings::PlotRangeMax, "150", 0, kGreatestRange},
    {"PrintPlotReminder", &OptionSettings::PrintPlotReminder, "1"},
    {"AskOfficeInstall", &OptionSettings::AskOfficeInstall, "1"},
    {"RoundKORVASF", &OptionSettings::RoundKORVASF, "0", 0, 2},
    {"CellSizeEnglish", &OptionSettings::CellSizeEnglish, "2", -kGreatestCell, kGreatestCell},
    {"CellSizeMetric", &OptionSettings::CellSizeMetric, "0.5", -kGreatestCell, kGreatestCell},
    {"Strond2DViewProgress", &OptionSettings::Strond2DViewProgress, "0"},
    {"Strond2DViewProgOutput", &OptionSettings::Strond2DViewProgOutput, "0"},
    {"Strond2DViewOutput", &OptionSettings::Strond2DViewOutput, "0"},
    {"iOptDir", &OptionSettings::iOptDir, "1", 0, 3},
});

// A cell of size 0 takes the value of a missing key.
bool HasNoCell(const Setting<OptionSettings>& option, const OptionSettings& options) {
  return (option.Key == "CellSizeEnglish" && options.CellSizeEnglish == 0) ||
         (option.Key == "CellSizeMetric" && options.CellSizeMetric == 0);
}

// Stores `value`; false if it lay outside its range or a cell had no size.
bool Store(OptionSettings& options, const Setting<OptionSettings>& option, double value) {
  const bool inRange = StoreNumber(options, option, value);
  if (HasNoCell(option, options)) {
    StoreNumber(options, option, ParseNumberPrefix(option.Missing).value);
    return false;
  }
  return inRange;
}

}  // namespace

bool HasOptions(std::string_view text) {
  return std::any_of(kOptions.begin(), kOptions.end(), [text](const auto& option) {
    return FindIniValue(text, kSection, option.Key).has_value();
  });
}

OptionSettings ReadOptions(std::string_view text) {
  return ReadOptions(text, nullptr);
}

OptionSettings ReadOptions(std::string_view text, bool* reset) {
  OptionSettings options;
  for (const auto& option : kOptions) {
    const std::string value = GetIniValue(text, kSection, option.Key, std::string(option.Missing));
    const double number = ParseNumberPrefix(value).value;
    // Percentages of a swept range are read as whole numbers though they are held as fractions.
    Store(options, option, option.High == kGreatestRange ? std::nearbyint(number) : number);
  }
  const bool empty = options.PlotRangeMin == options.PlotRangeMax;
  if (reset != nullptr) {
    *reset = empty;
  }
  if (empty) {
    options.PlotRangeMin = OptionSettings{}.PlotRangeMin;
    options.PlotRangeMax = OptionSettings{}.PlotRangeMax;
  }
  return options;
}

void WriteOptions(std::string& text, const OptionSettings& options) {
  WriteTable(text, kSection, kOptions, options);
}

OptionChange SetOption(OptionSettings& options, std::string_view key, std::string_view value) {
  const auto* option = std::find_if(kOptions.begin(), kOptions.end(),
                                    [key](const auto& o) { return SameIniName(o.Key, Trimmed(key)); });
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
