#include "input/FieldNumber.h"

#include "core/NumberParsing.h"

namespace korva {

double FieldNumber(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  return start == std::string_view::npos ? 0 : ParseNumberPrefix(text.substr(start)).value;
}

}  // namespace korva
