#include "core/NumberParsing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "core/NumberText.h"

namespace korva {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) {
    ++at;
  }
  return at;
}

bool IsSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '-' || text[at] == '+');
}

// The end of an exponent at `at`, or `at` if none stands there.
std::size_t SkipExponent(std::string_view text, std::size_t at) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) {
    return at;
  }
  const std::size_t digits = IsSign(text, at + 1) ? at + 2 : at + 1;
  const std::size_t end = SkipDigits(text, digits);
  return end > digits ? end : at;
}

// Whether an unsigned number that no double holds is too small, not too large: by the power of ten of its
// first digit that counts.
bool IsTiny(std::string_view number) {
  const auto first = number.find_first_of("123456789");
  const auto mark = number.find_first_of("eE");
  if (first == std::string_view::npos || (mark != std::string_view::npos && mark < first)) {
    return true;
  }
  const auto point = std::min(number.find('.'), std::min(mark, number.size()));
  const double power =
      first < point ? static_cast<double>(point - first) : -static_cast<double>(first - point);
  if (mark == std::string_view::npos) {
    return power < 0;
  }
  const bool negative = number[mark + 1] == '-';
  const std::string_view digits = number.substr(mark + (IsSign(number, mark + 1) ? 2 : 1));
  double exponent = 0;
  for (const char digit : digits) {
    exponent = exponent * 10 + (digit - '0');
  }
  return power + (negative ? -exponent : exponent) < 0;
}

constexpr std::string_view kMinusSign = "\xE2\x88\x92";  // U+2212

// All that shows as nothing: blanks, line ends, and marks of no width such as U+FEFF.
constexpr std::array<std::string_view, 38> kBlanks = {" ",
                                                      "\t",
                                                      "\n",
                                                      "\v",
                                                      "\f",
                                                      "\r",
                                                      "\xC2\x85",
                                                      "\xC2\xA0",
                                                      "\xE1\x9A\x80",
                                                      "\xE1\xA0\x8E",
                                                      "\xE2\x80\x80",
                                                      "\xE2\x80\x81",
                                                      "\xE2\x80\x82",
                                                      "\xE2\x80\x83",
                                                      "\xE2\x80\x84",
                                                      "\xE2\x80\x85",
                                                      "\xE2\x80\x86",
                                                      "\xE2\x80\x87",
                                                      "\xE2\x80\x88",
                                                      "\xE2\x80\x89",
                                                      "\xE2\x80\x8A",
                                                      "\xE2\x80\x8B",
                                                      "\xE2\x80\x8C",
                                                      "\xE2\x80\x8D",
                                                      "\xE2\x80\x8E",
                                                      "\xE2\x80\x8F",
                                                      "\xE2\x80\xA8",
                                                      "\xE2\x80\xA9",
                                                      "\xE2\x80\xAA",
                                                      "\xE2\x80\xAC",
                                                      "\xE2\x80\xAD",
                                                      "\xE2\x80\xAF",
                                                      "\xE2\x81\x9F",
                                                      "\xE2\x81\xA0",
                                                      "\xE2\x81\xA6",
                                                      "\xE2\x81\xA9",
                                                      "\xE3\x80\x80",
                                                      "\xEF\xBB\xBF"};

std::string_view WithoutBlanks(std::string_view text) {
  const auto isAtEnd = [&text](std::string_view blank) { return text.ends_with(blank); };
  const auto isAtStart = [&text](std::string_view blank) { return text.starts_with(blank); };
  for (auto blank = kBlanks.begin(); blank != kBlanks.end();) {
    blank = std::find_if(kBlanks.begin(), kBlanks.end(), isAtStart);
    text.remove_prefix(blank == kBlanks.end() ? 0 : blank->size());
  }
  for (auto blank = kBlanks.begin(); blank != kBlanks.end();) {
    blank = std::find_if(kBlanks.begin(), kBlanks.end(), isAtEnd);
    text.remove_suffix(blank == kBlanks.end() ? 0 : blank->size());
  }
  return text;
}

}  // namespace

ParsedNumber ParseNumberPrefix(std::string_view text) {
  const std::size_t start = IsSign(text, 0) ? 1 : 0;
  const std::size_t wholeEnd = SkipDigits(text, start);
  std::size_t end = wholeEnd;
  if (end < text.size() && text[end] == '.') {
    end = SkipDigits(text, end + 1);
  }
  const std::size_t digits = end - start - (end > wholeEnd ? 1 : 0);
  if (digits == 0) {
    return {};
  }
  end = SkipExponent(text, end);

  ParsedNumber parsed{end, 0, false};
  const std::string_view number = text.substr(start, end - start);
  const auto result = std::from_chars(number.data(), number.data() + number.size(), parsed.value);
  if (result.ec == std::errc::result_out_of_range) {
    parsed.overflow = !IsTiny(number);
    parsed.value = parsed.overflow ? std::numeric_limits<double>::max() : 0;
  }
  if (start == 1 && text[0] == '-') {
    parsed.value = -parsed.value;
  }
  return parsed;
}

std::string CleanNumberText(std::string_view text) {
  std::string cleaned(WithoutBlanks(text));
  for (auto at = cleaned.find(kMinusSign); at != std::string::npos; at = cleaned.find(kMinusSign, at)) {
    cleaned.replace(at, kMinusSign.size(), "-");
  }
  return cleaned;
}

std::string CountsAsText(double value) {
  return "counts as " + GeneralText(value);
}

}  // namespace korva
