#include "input/FieldNumber.h"

#include "core/NumberParsing.h"
#include "core/NumberText.h"

namespace korva {

double FieldNumber(std::string_view text) {
  return ParseNumberPrefix(CleanNumberText(text)).value;
}

std::optional<std::string> CountsAs(std::string_view text) {
  const std::string cleaned = CleanNumberText(text);
  const ParsedNumber number = ParseNumberPrefix(cleaned);
  if (number.length == cleaned.size() && !number.overflow) {
    return std::nullopt;
  }
  return "counts as " + GeneralText(number.value);
}

}  // namespace korva
