// The number that a form reads out of a text box.
#pragma once

#include <string_view>

namespace korva {

// The value of the longest leading number in `text`, blanks skipped, with a point as separator; 0 if there is
// none. Digits beyond the range of a number give the largest one.
double FieldNumber(std::string_view text);

}  // namespace korva
