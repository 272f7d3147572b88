#include "input/FieldNumber.h"

#include "core/NumberParsing.h"

namespace korva {

double FieldNumber(std::string_view text) {
  return ParseNumberPrefix(CleanNumberText(text)).value;
}

std::optional<std::string> CountsAs(std::string_view text) {
  const std::string cleaned = CleanNumberText(text);
  const ParsedNumber number = ParseNumberPrefix(cleaned);
  const bool asItLooks = number.length == cleaned.size() && !number.overflow;
  return asItLooks ? std::nullopt : std::optional(CountsAsText(number.value));
}

}  // namespace korva
