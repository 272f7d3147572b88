#include "workbook/SheetBuilder.h"

#include <fmt/format.h>

#include <cmath>

#include "core/Encoding.h"

namespace korva {

void SheetBuilder::Put(const CellPlace& place, Cell cell) {
  static constexpr std::size_t kCellsBetweenQuestions = 4096;
  if (++seen_ % kCellsBetweenQuestions == 0) {
    reading_.ThrowIfCancelled();
  }
  if (place.Row < 1 || place.Row > kMostRows || place.Column < 1 || place.Column > kMostColumns) {
    reading_.Damaged(
        fmt::format("a cell in row {} and column {} lies outside the sheet", place.Row, place.Column));
  }
  if (cell.Kind == CellKind::kText && cell.Text.empty()) {
    cell.Kind = CellKind::kEmpty;
  }
  if (cell.Kind == CellKind::kEmpty) {
    return;
  }
  textBytes_ += cell.Text.size();
  if (++cells_ > kMostCells || textBytes_ > kMostTextBytes) {
    reading_.TooLarge(
        fmt::format("its sheet has more than {} cells or {} MiB of text", kMostCells, kMostTextBytes >> 20U));
  }
  if (!std::isfinite(cell.Number)) {
    reading_.Damaged(fmt::format("cell {} holds no finite number", CellName(place)));
  }
  if (!IsUtf8(cell.Text)) {
    reading_.Damaged(fmt::format("the text of cell {} is not UTF-8", CellName(place)));
  }
  if (sheet_.At(place.Row, place.Column).Kind != CellKind::kEmpty) {
    reading_.Damaged(fmt::format("cell {} appears twice", CellName(place)));
  }
  sheet_.Set(place.Row, place.Column, std::move(cell));
}

}  // namespace korva
