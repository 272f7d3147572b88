// Which number formats show a date or a time, and the dates themselves.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// Where the days of a workbook are counted from. The older count holds 29 February 1900, which never was.
enum class DateSystem { k1900, k1904 };

// Whether the number format that every workbook has under `id` without naming it shows a date or a time.
bool IsBuiltInDateFormat(int id);

// The same of a format code, such as "yyyy\-mm\-dd;@". Its first section decides; quoted texts, escaped
// characters and brackets do not count, elapsed times such as [h] do.
bool IsDateFormat(std::string_view code);

// The ISO form of `days`, rounded to seconds: "2024-05-17", "2024-05-17T06:30:00", and for less than one day
// "06:30:00". Nothing for days that the count does not reach: negative ones, and those after the year 9999.
std::optional<std::string> DateText(double days, DateSystem system);

}  // namespace korva
