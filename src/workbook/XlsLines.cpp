#include "workbook/XlsLines.h"

#include <charconv>
#include <cmath>

#include "workbook/SheetBuilder.h"
#include "workbook/XmlPart.h"

namespace korva {

namespace {

[[noreturn]] void BadAnswer(const Reading& reading) {
  reading.Refuse("the program korva-xls gave an incomplete answer about this workbook");
}

// Takes the text up to `end` off the front, and `end`. Fails the reading if it is not there.
std::string_view TakeUpTo(char end, std::string_view& text, const Reading& reading) {
  const auto at = text.find(end);
  if (at == std::string_view::npos) {
    BadAnswer(reading);
  }
  const std::string_view taken = text.substr(0, at);
  text.remove_prefix(at + 1);
  return taken;
}

// The lines between the first and the last one.
std::vector<std::string_view> LinesOf(std::string_view answer, const Reading& reading) {
  if (TakeUpTo('\n', answer, reading) != kXlsFirstLine) {
    BadAnswer(reading);
  }
  std::vector<std::string_view> lines;
  for (;;) {
    const std::string_view line = TakeUpTo('\n', answer, reading);
    if (line.starts_with("end ")) {
      const auto count = ParseCount(line.substr(4));
      if (!count || static_cast<std::size_t>(*count) != lines.size() || !answer.empty()) {
        BadAnswer(reading);
      }
      return lines;
    }
    lines.push_back(line);
    if (lines.size() > kMostCells) {
      BadAnswer(reading);
    }
  }
}

std::string WithoutBackslashes(std::string_view text, const Reading& reading) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\') {
      plain += text[at];
      continue;
    }
    const char mark = ++at < text.size() ? text[at] : '\0';
    if (mark != 'n' && mark != 'r' && mark != '\\') {
      BadAnswer(reading);
    }
    plain += mark == 'n' ? '\n' : mark == 'r' ? '\r' : '\\';
  }
  return plain;
}

double NumberOf(std::string_view text, const Reading& reading) {
  double number = 0;
  const auto* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || !std::isfinite(number)) {
    BadAnswer(reading);
  }
  return number;
}

Cell CellOf(char kind, std::string_view value, const Reading& reading) {
  switch (kind) {
    case 'n':
      return {CellKind::kNumber, NumberOf(value, reading), {}};
    case 'd': {
      const double number = NumberOf(TakeUpTo(' ', value, reading), reading);
      return {CellKind::kDate, number, WithoutBackslashes(value, reading)};
    }
    case 't':
      return {CellKind::kText, 0, WithoutBackslashes(value, reading)};
    case 'e':
      return {CellKind::kError, 0, WithoutBackslashes(value, reading)};
    case 'b':
      if (const auto flag = ParseXmlFlag(value)) {
        return {CellKind::kBoolean, 0, *flag ? "TRUE" : "FALSE"};
      }
      break;
    case 'v':
      if (value.empty()) {
        return {CellKind::kNoValue, 0, {}};
      }
      break;
    default:
      break;
  }
  BadAnswer(reading);
}

}  // namespace

Sheet ParseXlsCells(std::string_view answer, const Reading& reading) {
  SheetBuilder sheet(reading);
  for (std::string_view line : LinesOf(answer, reading)) {
    const std::string_view kind = TakeUpTo(' ', line, reading);
    const auto row = ParseCount(TakeUpTo(' ', line, reading));
    const auto column = ParseCount(TakeUpTo(' ', line, reading));
    if (kind.size() != 1 || !row || !column) {
      BadAnswer(reading);
    }
    sheet.Put({*row, *column}, CellOf(kind.front(), line, reading));
  }
  return sheet.Take();
}

std::vector<std::string> ParseXlsSheetNames(std::string_view answer, const Reading& reading) {
  std::vector<std::string> names;
  for (std::string_view line : LinesOf(answer, reading)) {
    if (TakeUpTo(' ', line, reading) != "s") {
      BadAnswer(reading);
    }
    names.push_back(WithoutBackslashes(line, reading));
  }
  return names;
}

}  // namespace korva
