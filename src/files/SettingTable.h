// One table for each record of settings: the keys, the members they stand for, and their ranges. Reader and
// writer of the settings file walk the same table.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "core/ClampOrReset.h"
#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "files/UtilINI.h"

namespace korva {

template <class Record>
struct Setting {
  std::string_view Key;
  std::variant<std::int16_t Record::*, float Record::*, std::string Record::*> Member;
  std::string_view Missing = "0";  // the value of a missing or empty key
  double Low = 0;
  double High = 1;
};

// Stores `value` as the setting holds it, a whole number or 32 bits; a value outside the range becomes the
// lower bound, and the result is false.
template <class Record>
bool StoreNumber(Record& record, const Setting<Record>& setting, double value) {
  const bool inRange = value >= setting.Low && value <= setting.High;
  if (const auto* whole = std::get_if<std::int16_t Record::*>(&setting.Member)) {
    record.** whole =
        static_cast<std::int16_t>(ClampOrReset(std::nearbyint(value), setting.Low, setting.High));
  } else if (const auto* single = std::get_if<float Record::*>(&setting.Member)) {
    record.** single = static_cast<float>(ClampOrReset(value, setting.Low, setting.High));
  }
  return inRange;
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
    if (const auto* whole = std::get_if<std::int16_t Record::*>(&setting.Member)) {
      SetIniValue(text, section, setting.Key, std::to_string(record.**whole));
    } else if (const auto* single = std::get_if<float Record::*>(&setting.Member)) {
      SetIniValue(text, section, setting.Key, GeneralText(record.**single));
    } else {
      SetIniValue(text, section, setting.Key, record.**std::get_if<std::string Record::*>(&setting.Member));
    }
  }
}

}  // namespace korva
