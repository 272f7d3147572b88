// One table for each record of settings: the keys, the members they stand for, and their ranges. Reader and
// writer of the settings file walk the same table.
#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "core/ClampOrReset.h"
#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "core/Settings.h"
#include "files/UtilINI.h"

namespace korva {

template <class Record>
struct Setting {
  std::string_view Key;
  std::variant<bool Record::*, int Record::*, float Record::*, std::string Record::*, UnitSystem Record::*,
               StressUnit Record::*, LoadUnit Record::*, FactorRounding Record::*, SolverFolder Record::*,
               GridLines Record::*, CurveStyle Record::*>
      Member;
  std::string_view Missing = "0";  // the value of a missing or empty key
  double Low = 0;
  double High = 1;
};

// Stores `value` as the setting holds it, a whole number or 32 bits; a value outside the range becomes the
// lower bound, and the result is false.
template <class Record>
bool StoreNumber(Record& record, const Setting<Record>& setting, double value) {
  std::visit(
      [&](auto member) {
        using Held = std::remove_reference_t<decltype(record.*member)>;
        if constexpr (std::is_same_v<Held, float>) {
          record.*member = static_cast<float>(ClampOrReset(value, setting.Low, setting.High));
        } else if constexpr (!std::is_same_v<Held, std::string>) {
          const double whole = ClampOrReset(std::nearbyint(value), setting.Low, setting.High);
          record.*member = static_cast<Held>(static_cast<int>(whole));
        }
      },
      setting.Member);
  return value >= setting.Low && value <= setting.High;
}

// A setting as a file holds it.
inline std::string SettingText(const std::string& words) {
  return words;
}
inline std::string SettingText(float number) {
  return GeneralText(number);
}
template <class Whole>
std::string SettingText(Whole number) {
  return std::to_string(static_cast<int>(number));
}

// Reads each setting of `table` off `section` of the profile `text`. A text that does not begin with a number
// is 0.
template <class Record, class Table>
void ReadTable(std::string_view text, std::string_view section, const Table& table, Record& record) {
  for (const Setting<Record>& setting : table) {
    const std::string value = GetIniValue(text, section, setting.Key, std::string(setting.Missing));
    if (const auto* words = std::get_if<std::string Record::*>(&setting.Member)) {
      record.** words = value;
    } else {
      StoreNumber(record, setting, ParseNumberPrefix(value).value);
    }
  }
}

// Writes each setting of `table` into `section` of the profile `text`.
template <class Record, class Table>
void WriteTable(std::string& text, std::string_view section, const Table& table, const Record& record) {
  for (const Setting<Record>& setting : table) {
    SetIniValue(text, section, setting.Key,
                std::visit([&](auto member) { return SettingText(record.*member); }, setting.Member));
  }
}

}  // namespace korva
