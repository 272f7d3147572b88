// Names of cells, such as "AB12".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// The largest worksheet that Excel knows.
inline constexpr int kMostRows = 1'048'576;
inline constexpr int kMostColumns = 16'384;

struct CellPlace {
  int Row = 0;  // both from 1
  int Column = 0;
};

// 1 is "A", 27 is "AA".
std::string ColumnName(int column);
std::string CellName(const CellPlace& place);

// Nothing for a text that is no name of a cell, or that of one outside the largest worksheet.
std::optional<CellPlace> ParseCellName(std::string_view name);

}  // namespace korva
