#include "workbook/DateFormat.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace korva {

namespace {

constexpr std::int64_t kSecondsOfDay = 86'400;
constexpr std::int64_t kFalseLeapDay = 60;  // of the system that begins in 1900

// With zeros in front up to `width`.
std::string Padded(std::int64_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string DayText(std::int64_t day, DateSystem system) {
  using std::chrono::days;
  using std::chrono::sys_days;
  if (system == DateSystem::k1900 && day == kFalseLeapDay) {
    return "1900-02-29";
  }
  const sys_days start = system == DateSystem::k1904 ? sys_days{std::chrono::year{1904} / 1 / 1}
                         : day < kFalseLeapDay       ? sys_days{std::chrono::year{1899} / 12 / 31}
                                                     : sys_days{std::chrono::year{1899} / 12 / 30};
  const std::chrono::year_month_day date = start + days{day};
  return Padded(static_cast<int>(date.year()), 4) + "-" + Padded(static_cast<unsigned>(date.month()), 2) +
         "-" + Padded(static_cast<unsigned>(date.day()), 2);
}

std::string TimeText(std::int64_t seconds) {
  return Padded(seconds / 3600, 2) + ":" + Padded(seconds / 60 % 60, 2) + ":" + Padded(seconds % 60, 2);
}

bool IsOneOf(char letter, std::string_view letters) {
  return letters.find(letter) != std::string_view::npos;
}

// Takes a bracket off the front of `code` and says whether it is that of an elapsed time.
bool TakeBracket(std::string_view& code) {
  const auto end = code.find(']');
  const std::string_view inside = code.substr(1, end == std::string_view::npos ? end : end - 1);
  code.remove_prefix(end == std::string_view::npos ? code.size() : end + 1);
  return !inside.empty() && inside.find_first_not_of("hHmMsS") == std::string_view::npos;
}

}  // namespace

bool IsBuiltInDateFormat(int id) {
  // 27 to 36 and 50 to 58 are the dates of East Asian editions.
  return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
}

bool IsDateFormat(std::string_view code) {
  while (!code.empty() && code.front() != ';') {
    const char letter = code.front();
    if (letter == '[') {
      if (TakeBracket(code)) {
        return true;
      }
    } else if (letter == '"') {
      const auto end = code.find('"', 1);
      code.remove_prefix(end == std::string_view::npos ? code.size() : end + 1);
    } else if (IsOneOf(letter, "\\_*")) {  // with the character after it
      code.remove_prefix(code.size() < 2 ? 1 : 2);
    } else if (IsOneOf(letter, "yYmMdDhHsS")) {
      return true;
    } else {
      code.remove_prefix(1);
    }
  }
  return false;
}

std::optional<std::string> DateText(double days, DateSystem system) {
  static constexpr double kAfterLast1900 = 2'958'466;  // 1 January 10000
  static constexpr double kAfterLast1904 = 2'957'004;
  const double end = system == DateSystem::k1904 ? kAfterLast1904 : kAfterLast1900;
  if (!(days >= 0 && days < end)) {
    return std::nullopt;
  }
  const std::int64_t seconds = std::llround(days * static_cast<double>(kSecondsOfDay));
  const std::int64_t day = seconds / kSecondsOfDay;
  if (day == 0) {
    return TimeText(seconds);
  }
  if (static_cast<double>(day) >= end) {
    return std::nullopt;
  }
  const std::int64_t time = seconds % kSecondsOfDay;
  return DayText(day, system) + (time == 0 ? "" : "T" + TimeText(time));
}

}  // namespace korva
