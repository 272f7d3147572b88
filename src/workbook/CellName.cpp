#include "workbook/CellName.h"

#include <algorithm>
#include <charconv>

namespace korva {

static constexpr int kLetters = 26;

std::string ColumnName(int column) {
  std::string letters;
  for (int left = column; left > 0; left = (left - 1) / kLetters) {
    letters += static_cast<char>('A' + (left - 1) % kLetters);
  }
  std::reverse(letters.begin(), letters.end());
  return letters;
}

std::string CellName(const CellPlace& place) {
  return ColumnName(place.Column) + std::to_string(place.Row);
}

std::optional<CellPlace> ParseCellName(std::string_view name) {
  CellPlace place;
  while (!name.empty()) {
    const char letter = name.front();
    const bool small = letter >= 'a' && letter <= 'z';
    if (!small && (letter < 'A' || letter > 'Z')) {
      break;
    }
    place.Column = place.Column * kLetters + (letter - (small ? 'a' : 'A')) + 1;
    if (place.Column > kMostColumns) {
      return std::nullopt;
    }
    name.remove_prefix(1);
  }
  const auto* const end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data(), end, place.Row);
  if (place.Column == 0 || error != std::errc() || stop != end || place.Row < 1 || place.Row > kMostRows) {
    return std::nullopt;
  }
  return place;
}

}  // namespace korva
