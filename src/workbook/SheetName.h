// Names of worksheets.
#pragma once

#include <algorithm>
#include <string_view>

namespace korva {

// Whether two names of worksheets are one: small letters count as capitals, as far as ASCII goes.
inline bool IsSameSheetName(std::string_view a, std::string_view b) {
  const auto capital = [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [capital](char x, char y) { return capital(x) == capital(y); });
}

}  // namespace korva
