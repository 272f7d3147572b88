// Reading a number out of a text, with a point as separator whatever the locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korva {

struct ParsedNumber {
  std::size_t length = 0;  // characters of the number; 0 if the text does not begin with one
  double value = 0;        // the largest number with the sign of the text if `overflow`
  bool overflow = false;
};

// The number at the very start of `text`: a sign, digits with at most one point among them, and an exponent.
// Words such as "inf" and "nan" are no numbers. A number too small to be told from 0 is 0.
ParsedNumber ParseNumberPrefix(std::string_view text);

// `text` (UTF-8) without the blanks of every kind at both ends (spaces of any width, tabs, line ends, marks
// without width), and with the minus sign U+2212 as "-": what a person has copied from elsewhere.
std::string CleanNumberText(std::string_view text);

// "counts as 12", of a text that counts as another number than it looks.
std::string CountsAsText(double value);

}  // namespace korva
