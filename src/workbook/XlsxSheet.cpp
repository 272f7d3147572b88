#include "workbook/XlsxSheet.h"

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

#include "core/NumberParsing.h"
#include "core/Text.h"
#include "workbook/DateStyles.h"
#include "workbook/SharedStrings.h"
#include "workbook/SheetBuilder.h"
#include "workbook/WorkbookParts.h"
#include "workbook/XmlPart.h"

namespace korva {

namespace {

// What the values of cells mean.
struct Legend {
  std::vector<std::string> SharedStrings;
  std::vector<bool> DateStyles;
  DateSystem Dates = DateSystem::k1900;
  bool IsCalculatedAnew = false;
};

// The cells of formulas, of those rows that have been read. One formula can fill many cells, and stands in
// the first.
class FormulaCells {
 public:
  // Tells whether the cell `node` is one, and keeps in mind which other cells its formula fills.
  bool Note(const pugi::xml_node& node, const CellPlace& place) {
    const pugi::xml_node formula = ChildOf(node, "f");
    if (formula && AttributeOf(formula, "t").value_or("") != "shared") {  // those stand in every cell
      NoteRange(AttributeOf(formula, "ref").value_or(""));
    }
    return formula || lastRow_.at(static_cast<std::size_t>(place.Column)) >= place.Row;
  }

 private:
  void NoteRange(std::string_view range) {
    const auto colon = range.find(':');
    const auto first = ParseCellName(range.substr(0, colon));
    const auto last = colon == range.npos ? first : ParseCellName(range.substr(colon + 1));
    for (int column = first && last ? first->Column : 1; last && column <= last->Column; ++column) {
      lastRow_.at(static_cast<std::size_t>(column)) = last->Row;
    }
  }

  std::vector<int> lastRow_ = std::vector<int>(kMostColumns + 1);  // to which formulas fill a column
};

class XlsxCells {
 public:
  XlsxCells(Legend legend, const Reading& reading)
      : legend_(std::move(legend)), reading_(reading), sheet_(reading) {}

  Sheet ReadRows(const pugi::xml_node& rows) {
    int last = 0;
    for (const pugi::xml_node row : rows.children()) {
      if (IsElement(row, "row")) {
        const auto number = AttributeOf(row, "r");
        last = number ? ParseCount(*number).value_or(0) : last + 1;
        if (last < 1 || last > kMostRows) {
          reading_.Damaged(fmt::format("its sheet has a row \"{}\"", number.value_or("beyond the last one")));
        }
        ReadRow(row, last);
      }
    }
    return sheet_.Take();
  }

 private:
  void ReadRow(const pugi::xml_node& row, int number) {
    CellPlace place{number, 0};
    for (const pugi::xml_node cell : row.children()) {
      if (!IsElement(cell, "c")) {
        continue;
      }
      ++place.Column;
      if (const auto name = AttributeOf(cell, "r")) {
        const auto named = ParseCellName(*name);
        if (!named || named->Row != number) {
          reading_.Damaged(fmt::format("row {} has a cell \"{}\"", number, *name));
        }
        place = *named;
      }
      sheet_.Put(place, CellOf(cell, place));
    }
  }

  Cell CellOf(const pugi::xml_node& node, const CellPlace& place) {
    if (legend_.IsCalculatedAnew && formulas_.Note(node, place)) {
      return {CellKind::kNoValue, 0, {}};
    }
    return SavedCell(node, place);
  }

  Cell SavedCell(const pugi::xml_node& node, const CellPlace& place) const {
    const std::string_view type = AttributeOf(node, "t").value_or("n");
    const pugi::xml_node value = ChildOf(node, "v");
    const std::string held = InnerText(value);
    if (type == "inlineStr") {
      return {CellKind::kText, 0, TextOfRuns(ChildOf(node, "is"))};
    }
    const bool isText = type == "str";
    if (!value || (held.empty() && !isText)) {
      return {ChildOf(node, "f") ? CellKind::kNoValue : CellKind::kEmpty, 0, {}};
    }
    return isText ? Cell{CellKind::kText, 0, WithoutEscapes(held)} : Valued(node, place, type, held);
  }

  Cell Valued(const pugi::xml_node& node, const CellPlace& place, std::string_view type,
              std::string_view held) const {
    const std::string_view text = WithoutXmlSpace(held);
    if (type == "n") {
      return Number(node, place, text);
    }
    if (type == "s") {
      const auto index = ParseCount(text);
      if (!index || static_cast<std::size_t>(*index) >= legend_.SharedStrings.size()) {
        BadValue(place, text, "not a text of the workbook");
      }
      return {CellKind::kText, 0, legend_.SharedStrings[static_cast<std::size_t>(*index)]};
    }
    if (type == "b") {
      const auto flag = ParseXmlFlag(text);
      if (!flag) {
        BadValue(place, text, "neither true nor false");
      }
      return {CellKind::kBoolean, 0, *flag ? "TRUE" : "FALSE"};
    }
    if (type == "d") {
      if (text.find_first_not_of("0123456789-:.+TZ") != std::string_view::npos) {
        BadValue(place, text, "no date");
      }
      return {CellKind::kDate, 0, std::string(text)};
    }
    if (type != "e") {
      BadValue(place, type, "not a type of cell");
    }
    return {CellKind::kError, 0, std::string(text)};
  }

  Cell Number(const pugi::xml_node& node, const CellPlace& place, std::string_view text) const {
    const ParsedNumber parsed = ParseNumberPrefix(text);
    if (parsed.length == 0 || parsed.length != text.size() || parsed.overflow) {
      BadValue(place, text, "no number");
    }
    const auto style = ParseCount(AttributeOf(node, "s").value_or("0"));
    const auto index = static_cast<std::size_t>(style.value_or(0));
    if (index < legend_.DateStyles.size() && legend_.DateStyles[index]) {
      if (auto date = DateText(parsed.value, legend_.Dates)) {
        return {CellKind::kDate, parsed.value, std::move(*date)};
      }
    }
    return {CellKind::kNumber, parsed.value, {}};
  }

  [[noreturn]] void BadValue(const CellPlace& place, std::string_view value, std::string_view what) const {
    reading_.Damaged(fmt::format("cell {} holds \"{}\", which is {}", CellName(place), Excerpt(value), what));
  }

  Legend legend_;
  FormulaCells formulas_;
  const Reading& reading_;
  SheetBuilder sheet_;
};

}  // namespace

Sheet ReadXlsxSheet(std::string_view bytes, std::string_view name, const Reading& reading) {
  ZipParts zip(bytes, reading);
  const WorkbookParts parts = FindParts(zip, name, reading);
  Legend legend{ReadSharedStrings(zip, parts.SharedStrings, reading),
                ReadDateStyles(zip, parts.Styles, reading), parts.Dates, parts.IsCalculatedAnew};
  const pugi::xml_document part = ParseXml(zip.Read(parts.Sheet), parts.Sheet, "worksheet", reading);
  const pugi::xml_node sheet = part.document_element();
  legend.IsCalculatedAnew |= FlagOf(ChildOf(sheet, "sheetCalcPr"), "fullCalcOnLoad");
  XlsxCells cells(std::move(legend), reading);
  return cells.ReadRows(ChildOf(sheet, "sheetData"));
}

}  // namespace korva
