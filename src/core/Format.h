// Number patterns of the reports.
#pragma once

#include <string>
#include <string_view>

namespace korva {

inline constexpr std::string_view kFactorPattern = "##0.00";
inline constexpr std::string_view kLoadPattern = "#.00E+00";

// `value` in a pattern such as "0", "##0.00" or "#.00E+00": the number at 15 significant digits (7 for a
// 32-bit value) rounded half away from zero to the pattern's decimals. A fixed pattern gives at least as many
// integer digits as it has zeros in front of the point; "#.##" at most two decimals and no point after a
// whole number; the scientific one a mantissa digit and two decimals, and ".00E+00" for 0. What rounds to
// zero has no minus sign. Run-time error 6 for a value that is not finite, 5 for a pattern that does not
// exist.
std::string Format(double value, std::string_view pattern);
std::string Format(float value, std::string_view pattern);

}  // namespace korva
