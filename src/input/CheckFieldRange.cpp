#include "input/CheckFieldRange.h"

#include <fmt/format.h>

#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "core/Text.h"
#include "input/FieldNumber.h"

namespace korva {

std::optional<std::string> CheckFieldRange(std::string_view text, double minimum, double maximum,
                                           std::string_view label) {
  const std::string prefix = label.empty() ? std::string() : fmt::format("{}: ", label);
  const std::string trimmed = CleanNumberText(text);
  if (trimmed.empty()) {
    return prefix + "Blank field not allowed";
  }
  const double value = FieldNumber(text);
  if (value >= minimum && value <= maximum) {
    return std::nullopt;
  }
  return fmt::format("{}Value '{}' is outside input range{}Valid range is: {}-{}", prefix, trimmed, kLineEnd,
                     GeneralText(minimum), GeneralText(maximum));
}

}  // namespace korva
