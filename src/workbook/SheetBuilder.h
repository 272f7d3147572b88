// A worksheet in the making, kept within its bounds.
#pragma once

#include <cstddef>
#include <utility>

#include "workbook/CellName.h"
#include "workbook/Reading.h"
#include "workbook/Sheet.h"

namespace korva {

inline constexpr std::size_t kMostCells = 1'000'000;
inline constexpr std::size_t kMostTextBytes = std::size_t{64} << 20;  // of all cells together

class SheetBuilder {
 public:
  explicit SheetBuilder(const Reading& reading) : reading_(reading) {}

  // An empty text makes an empty cell. Ends the reading for a cell outside the largest worksheet, a second
  // one at the same place, a text that is not UTF-8, a number that is not finite, and for more than the
  // bounds.
  void Put(const CellPlace& place, Cell cell);

  Sheet Take() { return std::move(sheet_); }

 private:
  const Reading& reading_;
  Sheet sheet_;
  std::size_t seen_ = 0;   // empty ones too
  std::size_t cells_ = 0;  // kept
  std::size_t textBytes_ = 0;
};

}  // namespace korva
