// One worksheet as its cells, whatever kind of workbook it was read from.
#pragma once

#include <map>
#include <string>
#include <utility>

namespace korva {

enum class CellKind {
  kEmpty,
  kNumber,
  kText,
  kDate,     // a number shown as a date or time; Text is its ISO form, such as "2024-02-29T18:15:30"
  kBoolean,  // Text is "TRUE" or "FALSE"
  kError,    // Text is the error's name, such as "#DIV/0!"
  kNoValue,  // a formula that is still to be calculated
};

struct Cell {
  CellKind Kind = CellKind::kEmpty;
  double Number = 0;  // of kNumber and kDate; always finite; 0 of a date that the file holds as a text
  std::string Text;   // UTF-8; of a number and of a missing value empty
};

// Rows and columns count from 1.
class Sheet {
 public:
  // An empty cell for one that is not there.
  const Cell& At(int row, int column) const {
    static const Cell kNone;
    const auto line = rows_.find(row);
    if (line == rows_.end()) {
      return kNone;
    }
    const auto cell = line->second.find(column);
    return cell == line->second.end() ? kNone : cell->second;
  }

  // The last row that holds a cell; 0 for an empty sheet.
  int LastRow() const { return rows_.empty() ? 0 : rows_.rbegin()->first; }

  // Empty cells are not kept.
  void Set(int row, int column, Cell cell) {
    if (cell.Kind != CellKind::kEmpty) {
      rows_[row][column] = std::move(cell);
    }
  }

 private:
  std::map<int, std::map<int, Cell>> rows_;
};

}  // namespace korva
