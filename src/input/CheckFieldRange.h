// The range check that all forms share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// Why `text` is no value from `minimum` to `maximum`, both allowed, or nothing. A label is put in front.
std::optional<std::string> CheckFieldRange(std::string_view text, double minimum, double maximum,
                                           std::string_view label);

}  // namespace korva
