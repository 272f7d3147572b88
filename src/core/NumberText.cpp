#include "core/NumberText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/RuntimeError.h"

namespace korva {

namespace {

// The largest number of 15 digits; what lies above would be rounded up to a text that no double holds.
constexpr double kLargest = 1.79769313486231e308;

constexpr int kFirstPlain = -4;  // powers of ten that the general form writes without an exponent
constexpr int kLastPlain = 14;

void RequireFinite(double value) {
  if (!std::isfinite(value)) {
    throw RuntimeError(ErrorNumber::kOverflow, "a number without a finite value has no text");
  }
}

std::string General(double value, int digits) {
  RequireFinite(value);
  if (value == 0) {
    return "0";  // -0 too
  }
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, std::clamp(value, -kLargest, kLargest),
                                 std::chars_format::general, digits)
                       .ptr;
  std::replace(text, end, 'e', 'E');
  return {text, end};
}

std::string Padded(std::string digits) {
  return (digits.front() == '-' ? digits : " " + digits) + " ";
}

}  // namespace

std::string GeneralText(double value) {
  return General(value, 15);
}

std::string GeneralText(float value) {
  return General(static_cast<double>(value), 7);
}

std::string ShortestText(double value) {
  RequireFinite(value);
  if (value == 0) {
    return "0";
  }
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
  std::string shortest(text, end);
  const auto mark = shortest.find('e');
  const int power = std::stoi(shortest.substr(mark + 1));
  if (power < kFirstPlain || power > kLastPlain) {
    shortest[mark] = 'E';
    return shortest;
  }
  return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr};
}

std::string PaddedText(int value) {
  return Padded(fmt::format("{}", value));
}

std::string PaddedText(float value) {
  return Padded(GeneralText(value));
}

double RoundHalfEven(double value, int decimals) {
  static constexpr double kScales[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
  const double scale = kScales[decimals];
  const double scaled = value * scale;
  if (!(std::abs(scaled) < 0x1p53)) {
    return value;  // its neighbours are further away than the decimals
  }
  double rounded = std::nearbyint(scaled);
  if (std::abs(scaled - rounded) == 0.5) {
    // The product looks like a tie; what the multiplication rounded away decides.
    const double rest = std::fma(value, scale, -scaled);
    if (rest > 0) {
      rounded = std::ceil(scaled);
    } else if (rest < 0) {
      rounded = std::floor(scaled);
    }
  }
  return rounded / scale;
}

}  // namespace korva
