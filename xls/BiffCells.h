// The cells of a worksheet.
#pragma once

#include <map>
#include <string_view>
#include <utility>

#include "workbook/Sheet.h"
#include "xls/BiffBook.h"

namespace korva {

// By row and column, from 0.
using BiffCells = std::map<std::pair<int, int>, Cell>;

// The sheet whose records begin at `offset` of the stream. Fails with kDamaged, and with kTooLarge for more
// cells than a sheet may have.
BiffCells ReadBiffCells(std::string_view stream, std::size_t offset, const BiffBook& book);

}  // namespace korva
