#include "files/FieldCursor.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/NumberParsing.h"
#include "core/Text.h"

namespace korva {

namespace {

constexpr std::string_view kBlanks = " \t";
// So many lines after the last value have a notice of their own.
constexpr int kMostRestNotices = 20;

// What stood in the file, short enough for a message and without control characters.
std::string Shown(std::string_view found) {
  static constexpr std::size_t kLongest = 40;
  std::string shown(found.substr(0, BytesOfCharacters(found, kLongest)));
  std::replace_if(shown.begin(), shown.end(), IsControl, '?');
  return shown.size() < found.size() ? shown + "..." : shown;
}

}  // namespace

FieldCursor::FieldCursor(std::string_view text, std::string fileName, std::vector<FileNotice>& notices)
    : rest_(text), fileName_(std::move(fileName)), notices_(notices) {}

void FieldCursor::Fail(ErrorNumber number, std::string_view expected, std::string_view found) const {
  throw RuntimeError(
      number, fmt::format("{}, line {}: expected {}, found {}", fileName_, fieldLine_, expected, found));
}

std::string_view FieldCursor::ReadLine(std::string_view expected) {
  fieldLine_ = line_;
  if (rest_.empty()) {
    Fail(ErrorNumber::kInputPastEnd, expected, "the end of the file");
  }
  const SplitLine split = TakeLine(rest_);
  rest_ = split.rest;
  ++line_;
  return split.line;
}

std::string_view FieldCursor::ReadText(std::string_view expected) {
  return TakeField(expected).text;
}

double FieldCursor::ReadNumber(std::string_view expected) {
  const Field field = TakeField(expected);
  if (field.end == End::kComma) {
    notices_.push_back(
        {FileNoticeKind::kComma, fieldLine_,
         fmt::format("a comma ends {}; what follows it was read as the next value", expected)});
  } else if (field.end == End::kFile) {
    notices_.push_back(
        {FileNoticeKind::kNoLineEnd, fieldLine_,
         fmt::format("{} has no line end after it; the file may have been cut off", expected)});
  }
  const std::size_t first = field.text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return 0;
  }
  const std::string_view text = field.text.substr(first, field.text.find_last_not_of(kBlanks) - first + 1);
  const ParsedNumber parsed = ParseNumberPrefix(text);
  if (parsed.length != text.size()) {
    // What the end of the file cuts off in front of a digit, such as "-" or "1E+", is a value that is
    // missing.
    const bool cut =
        field.end == End::kFile && ParseNumberPrefix(std::string(text) + "0").length > text.size();
    Fail(cut ? ErrorNumber::kInputPastEnd : ErrorNumber::kTypeMismatch, fmt::format("{}, a number", expected),
         fmt::format("\"{}\"", Shown(text)));
  }
  if (parsed.overflow) {
    Fail(ErrorNumber::kOverflow, fmt::format("{}, a number", expected), fmt::format("\"{}\"", Shown(text)));
  }
  return parsed.value;
}

float FieldCursor::ReadSingle(std::string_view expected) {
  const double value = ReadNumber(expected);
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    Fail(ErrorNumber::kOverflow, fmt::format("{}, a 32-bit number", expected), fmt::format("{}", value));
  }
  return static_cast<float>(value);
}

int FieldCursor::ReadInteger(std::string_view expected) {
  const double value = std::nearbyint(ReadNumber(expected));
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
    Fail(ErrorNumber::kOverflow, fmt::format("{}, an integer from -32768 to 32767", expected),
         fmt::format("{}", value));
  }
  return static_cast<int>(value);
}

void FieldCursor::NoticeRest() {
  int found = 0;
  while (!rest_.empty()) {
    const SplitLine split = TakeLine(rest_);
    rest_ = split.rest;
    if (split.line.find_first_not_of(kBlanks) != std::string_view::npos && ++found <= kMostRestNotices) {
      notices_.push_back({FileNoticeKind::kNotRead, line_,
                          fmt::format("\"{}\" follows the last value and was not read", Shown(split.line))});
    }
    ++line_;
  }
  if (found > kMostRestNotices) {
    notices_.push_back({FileNoticeKind::kNotRead, line_ - 1,
                        fmt::format("{} more lines up to here were not read", found - kMostRestNotices)});
  }
}

FieldCursor::Field FieldCursor::TakeField(std::string_view expected) {
  SkipBlanks();
  fieldLine_ = line_;
  if (rest_.empty()) {
    Fail(ErrorNumber::kInputPastEnd, expected, "the end of the file");
  }
  const bool quoted = rest_.front() == '"';
  if (quoted) {
    Advance(1);
  }
  // A quote that nothing closes ends with its line, so that it cannot swallow the values after it.
  const auto ends = [end = quoted ? '"' : ','](char c) { return c == end || c == '\r' || c == '\n'; };
  const std::string_view text(rest_.begin(), std::find_if(rest_.begin(), rest_.end(), ends));
  Advance(text.size());
  if (quoted && rest_.starts_with('"')) {
    Advance(1);
    SkipBlanks();
  }
  return {text, TakeDelimiter()};
}

void FieldCursor::SkipBlanks() {
  Advance(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

FieldCursor::End FieldCursor::TakeDelimiter() {
  if (rest_.empty()) {
    return End::kFile;
  }
  if (rest_.front() == ',') {
    Advance(1);
    return End::kComma;
  }
  if (rest_.front() != '\r' && rest_.front() != '\n') {
    return End::kQuote;
  }
  Advance(rest_.starts_with(kLineEnd) ? kLineEnd.size() : 1);
  ++line_;
  return End::kLine;
}

}  // namespace korva
