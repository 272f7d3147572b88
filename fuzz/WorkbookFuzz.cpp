// A zip as a workbook, or a part of one within a zip that is whole: cells in their bounds, or a run-time
// error. The first byte chooses the part that the others are.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "support/Workbooks.h"
#include "workbook/CellName.h"
#include "workbook/XlsxSheet.h"

using namespace korva;

static std::string BookOf(char part, std::string bytes) {
  test::BookParts parts;
  parts.Sheet =
      "<worksheet><sheetData><row><c s='1'><v>45351.5</v></c><c t='s'><v>0</v></c></row></sheetData></worksheet>";
  parts.SharedStrings = "<sst><si><t>a</t></si></sst>";
  parts.Styles = "<styleSheet><cellXfs><xf/><xf numFmtId='14'/></cellXfs></styleSheet>";
  switch (part) {
    case 's':
      parts.Sheet = std::move(bytes);
      break;
    case 't':
      parts.SharedStrings = std::move(bytes);
      break;
    case 'y':
      parts.Styles = std::move(bytes);
      break;
    case 'w':
      parts.Workbook = std::move(bytes);
      break;
    case 'l':
      parts.Links = std::move(bytes);
      break;
    case 'r':
      parts.RootLinks = std::move(bytes);
      break;
    default:
      return bytes;
  }
  return test::BookOf(parts);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  try {
    const Reading reading("fuzz", nullptr);
    const Sheet sheet = ReadXlsxSheet(
        BookOf(input.empty() ? 'z' : input.front(), input.substr(input.empty() ? 0 : 1)), "Cases", reading);
    Require(sheet.LastRow() <= kMostRows, "no row is beyond the last one");
    for (int column = 1; column <= 20; ++column) {
      const Cell& cell = sheet.At(sheet.LastRow(), column);
      Require(std::isfinite(cell.Number), "numbers are finite");
      Require(IsUtf8(cell.Text), "texts are UTF-8");
    }
  } catch (const RuntimeError& error) {
    Require(error.Detail().starts_with("fuzz: ") && IsUtf8(error.Detail()), "an error names the file");
  }
  return 0;
}
