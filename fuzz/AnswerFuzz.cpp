// Any bytes as the answer of the program that reads .xls workbooks: cells, or a run-time error.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Require.h"
#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "workbook/CellName.h"
#include "workbook/XlsLines.h"

using namespace korva;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view answer(reinterpret_cast<const char*>(data), size);
  const Reading reading("fuzz", nullptr);
  try {
    const Sheet sheet = ParseXlsCells(answer, reading);
    Require(sheet.LastRow() <= kMostRows, "no row is beyond the last one");
    for (int column = 1; column <= 20; ++column) {
      const Cell& cell = sheet.At(sheet.LastRow(), column);
      Require(std::isfinite(cell.Number), "numbers are finite");
      Require(IsUtf8(cell.Text), "texts are UTF-8");
    }
  } catch (const RuntimeError&) {
  }
  try {
    Require(ParseXlsSheetNames(answer, reading).size() <= size, "a name takes a line");
  } catch (const RuntimeError& error) {
    Require(error.Detail().starts_with("fuzz: "), "an error names the file");
  }
  return 0;
}
