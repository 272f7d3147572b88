#include "core/Format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "core/RuntimeError.h"

namespace korva {

namespace {

constexpr int kScientificDigits = 3;
constexpr std::string_view kAtMostTwoDecimals = "#.##";

// The digits of a number and the power of ten of the first one.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;

  bool IsZero() const { return digits.find_first_not_of('0') == std::string::npos; }
};

Decimal ToDecimal(double value, int significant) {
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, std::abs(value), std::chars_format::scientific, significant - 1)
          .ptr;
  const char* mark = std::find(static_cast<const char*>(text), static_cast<const char*>(end), 'e');
  Decimal decimal;
  decimal.negative = std::signbit(value);
  decimal.digits.assign(text, 1).append(static_cast<const char*>(text) + 2, mark);
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, decimal.exponent);
  return decimal;
}

// Keeps the first `kept` digits, rounded half away from zero. A carry out of the first digit raises the
// exponent and is one digit more.
void RoundDigits(Decimal& decimal, int kept) {
  if (kept >= static_cast<int>(decimal.digits.size())) {
    return;
  }
  const bool up = kept >= 0 && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
  if (!up) {
    return;
  }
  for (auto digit = decimal.digits.rbegin(); digit != decimal.digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  decimal.digits.insert(0, 1, '1');
  ++decimal.exponent;
}

std::string FixedText(Decimal decimal, int decimals) {
  RoundDigits(decimal, decimal.exponent + decimals + 1);
  std::string text = decimal.negative && !decimal.IsZero() ? "-" : "";
  // All digits from the power of ten 0 or higher down to the last decimal, zeros on either side of those
  // there are.
  if (decimal.exponent < 0) {
    decimal.digits.insert(0, static_cast<std::size_t>(-decimal.exponent), '0');
    decimal.exponent = 0;
  }
  const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
  decimal.digits.resize(whole + static_cast<std::size_t>(decimals), '0');
  text.append(decimal.digits, 0, whole);
  if (decimals > 0) {
    text.append(".").append(decimal.digits, whole);
  }
  return text;
}

// `text` with zeros in front until it has `digits` integer digits.
std::string Padded(std::string text, std::size_t digits) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  const std::size_t whole = std::min(text.find('.'), text.size()) - sign;
  return text.insert(sign, digits > whole ? digits - whole : 0, '0');
}

std::string ScientificText(Decimal decimal) {
  if (decimal.IsZero()) {
    return ".00E+00";
  }
  RoundDigits(decimal, kScientificDigits);
  std::string text = decimal.negative ? "-" : "";
  text.append(decimal.digits, 0, 1).append(".").append(decimal.digits, 1, kScientificDigits - 1);
  text += decimal.exponent < 0 ? "E-" : "E+";
  const std::string power = std::to_string(std::abs(decimal.exponent));
  return text.append(power.size() < 2 ? "0" : "").append(power);
}

std::string FormatDigits(double value, int significant, std::string_view pattern) {
  if (!std::isfinite(value)) {
    throw RuntimeError(ErrorNumber::kOverflow, "a result has no finite value");
  }
  const Decimal decimal = ToDecimal(value, significant);
  if (pattern == kLoadPattern) {
    return ScientificText(decimal);
  }
  if (pattern == kAtMostTwoDecimals) {
    std::string text = FixedText(decimal, 2);
    text.erase(text.find_last_not_of('0') + 1);  // stops at the point at the latest
    return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
  }
  const auto point = std::min(pattern.find('.'), pattern.size());
  const bool fixed = point > 0 && pattern[point - 1] == '0' &&
                     pattern.find_first_not_of("#0.") == pattern.npos &&
                     pattern.find('#', point) == pattern.npos;
  if (!fixed) {
    throw RuntimeError(ErrorNumber::kInvalidCall, "the number pattern " + std::string(pattern));
  }
  const std::size_t decimals = point < pattern.size() ? pattern.size() - point - 1 : 0;
  const auto digits = static_cast<std::size_t>(
      std::count(pattern.begin(), pattern.begin() + static_cast<std::ptrdiff_t>(point), '0'));
  return Padded(FixedText(decimal, static_cast<int>(decimals)), digits);
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  return FormatDigits(value, 15, pattern);
}

std::string Format(float value, std::string_view pattern) {
  return FormatDigits(static_cast<double>(value), 7, pattern);
}

}  // namespace korva
