// Numbers as plain text, and rounding to decimals. Nothing here knows a locale.
#pragma once

#include <string>

namespace korva {

// The general form: the shortest text of the value at 15 significant digits (7 for a 32-bit value), with a
// point, a leading zero before it, and an exponent ("1.5E-05", "1E+15") below 1E-04 and from 1E+15 (1E+07)
// on. Run-time error 6 for a value that is not finite.
std::string GeneralText(double value);
std::string GeneralText(float value);

// The same form with as many digits as it takes to read back to the very same value, at most 17.
std::string ShortestText(double value);

// The form that integers and singles have in a file: a blank or minus sign, the digits, one trailing blank.
std::string PaddedText(int value);
std::string PaddedText(float value);

// `value` rounded to `decimals` (0 to 6) by its exact binary value, ties to even.
double RoundHalfEven(double value, int decimals);

}  // namespace korva
