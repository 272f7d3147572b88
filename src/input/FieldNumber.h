// The number that a form reads out of a text box.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// The value of the longest leading number in `text`, with a point as separator; 0 if there is none. Blanks of
// every kind before it are skipped, and U+2212 is a minus. Digits beyond the range of a number give the
// largest one.
double FieldNumber(std::string_view text);

// "counts as 12" for a text that counts as another number than it looks, such as "12,5", "1 200" or "abc";
// nothing for a number, and for an empty text, which is 0.
std::optional<std::string> CountsAs(std::string_view text);

}  // namespace korva
