#include "input/ParameterWarnings.h"

#include <fmt/format.h>

#include "input/FieldNumber.h"

namespace korva {

std::string FormWarning(std::string_view text) {
  return fmt::format("Warning: {}", text);
}

std::optional<std::string> WarningOn(std::string_view text, const DataBaseValue& usual, UnitSystem units) {
  if (FieldNumber(text) == usual.In(units)) {
    return std::nullopt;
  }
  return FormWarning(usual.Warning);
}

}  // namespace korva
