#include "workbook/CaseRow.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

#include "core/Format.h"
#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "input/FormComputations.h"
#include "workbook/CellName.h"

namespace korva {

namespace {

// The sheet's columns, from 1.
enum CaseColumn {
  kCaseNumber = 1,
  kCaseName,
  kMineName,
  kEntryHeight,
  kDepthCover,
  kEntryWidth,
  kXcutSpacing,
  kXcutAngle,
  kNumberEntries,
  kFirstSpacing,  // of the nine spacings between entries
  kBreadthAMZ = 20,
  kLoadingCode,
  kExtentActiveGob,
  kExtentFirstGob,
  kExtentSecondGob,
  kBarrierFirstGob,
  kBarrierSecondGob,
  kSlabcutFirstGob,
  kSlabcutSecondGob,
  kAngleActiveGob,
  kAngleFirstGob,
  kAngleSecondGob,
  kCoalStrength,
  kUnitWeight,
  kSeam = 44,
  kMshaId,
  kState,
  kCounty
};

constexpr int kLoadingCodes = 4;

// The number that the whole of a text is, blanks around it aside.
std::optional<ParsedNumber> WholeNumber(std::string_view text) {
  const std::string_view trimmed = Trimmed(text);
  const ParsedNumber number = ParseNumberPrefix(trimmed);
  return number.length == 0 || number.length != trimmed.size() ? std::nullopt : std::optional(number);
}

// What a cell of no use holds, with its text.
std::string DescribeCell(const Cell& cell) {
  switch (cell.Kind) {
    case CellKind::kDate:
      return fmt::format("{} is a date", cell.Text);
    case CellKind::kBoolean:
      return fmt::format("{} is a boolean value", cell.Text);
    case CellKind::kError:
      return fmt::format("{} is an error value", cell.Text);
    case CellKind::kText:
      return fmt::format("\"{}\" is not a number with a decimal point", Excerpt(cell.Text));
    case CellKind::kEmpty:
    case CellKind::kNumber:
    case CellKind::kNoValue:  // reported with all others of the row
      break;
  }
  return "the number is out of range";
}

class CaseReader {
 public:
  CaseReader(const Sheet& sheet, int row) : sheet_(sheet), row_(row) {}

  [[noreturn]] void Fail(ErrorNumber number, int column, std::string_view reason) const {
    RequireCalculated();
    throw RuntimeError(number, fmt::format("sheet \"{}\", row {}, column {} ({}): {}", kCaseSheet, row_,
                                           column, ColumnName(column), reason));
  }

  // Fails for every cell that was asked for and is still to be calculated.
  void RequireCalculated() const {
    if (uncalculated_.empty()) {
      return;
    }
    std::string columns;
    for (const int column : uncalculated_) {
      columns += fmt::format("{}{} ({})", columns.empty() ? "" : ", ", column, ColumnName(column));
    }
    const bool one = uncalculated_.size() == 1;
    throw RuntimeError(
        ErrorNumber::kTypeMismatch,
        fmt::format("sheet \"{}\", row {}, {} {}: {} still to be calculated; open the workbook "
                    "in a spreadsheet program and save it there",
                    kCaseSheet, row_, one ? "column" : "columns", columns,
                    one ? "a formula that is" : "formulas that are"));
  }

  double Number(int column) const {
    const Cell& cell = sheet_.At(row_, column);
    if (cell.Kind == CellKind::kEmpty || IsUncalculated(column)) {
      return 0;
    }
    if (cell.Kind == CellKind::kNumber) {
      return cell.Number;
    }
    const auto number = cell.Kind == CellKind::kText ? WholeNumber(cell.Text) : std::nullopt;
    if (!number) {
      Fail(ErrorNumber::kTypeMismatch, column, DescribeCell(cell));
    }
    if (number->overflow) {
      Fail(ErrorNumber::kOverflow, column, fmt::format("\"{}\" is out of range", Excerpt(cell.Text)));
    }
    return number->value;
  }

  int Integer(int column) const {
    const double rounded = std::nearbyint(Number(column));
    if (std::abs(rounded) > std::numeric_limits<std::int16_t>::max()) {
      Fail(ErrorNumber::kOverflow, column, fmt::format("{} is out of range", GeneralText(rounded)));
    }
    return static_cast<int>(rounded);
  }

  // A cell in one line, numbers in their general form.
  std::string Text(int column) const {
    const Cell& cell = sheet_.At(row_, column);
    if (IsUncalculated(column)) {
      return {};
    }
    if (cell.Kind == CellKind::kError) {
      Fail(ErrorNumber::kTypeMismatch, column, DescribeCell(cell));
    }
    std::string text = cell.Kind == CellKind::kNumber ? GeneralText(cell.Number) : cell.Text;
    std::replace_if(text.begin(), text.end(), IsControl, ' ');
    return text;
  }

  // A spacing below 0 is named rather than the depth.
  float Arch(const Project& panel) const {
    if (!uncalculated_.empty()) {
      return panel.ArchFactor;  // the row fails anyway, when all its cells have been looked at
    }
    try {
      return UnroundedArch(panel);
    } catch (const RuntimeError& error) {
      int culprit = kDepthCover;
      for (int i = 1; i < panel.NumberEntries && culprit == kDepthCover; ++i) {
        culprit = panel.XcutCenters[i] < 0 ? kFirstSpacing + i - 1 : culprit;
      }
      Fail(error.Number(), culprit,
           fmt::format("with {} the panel has no arch factor", GeneralText(Number(culprit))));
    }
  }

  std::string CaseNumber() const {
    const Cell& cell = sheet_.At(row_, kCaseNumber);
    const bool other = cell.Kind != CellKind::kEmpty && cell.Kind != CellKind::kNumber &&
                       !(cell.Kind == CellKind::kText && WholeNumber(cell.Text));
    return other ? Text(kCaseNumber) : Format(Number(kCaseNumber), "000");
  }

 private:
  // Keeps such a cell in mind, which counts as empty until the row is read.
  bool IsUncalculated(int column) const {
    const bool is = sheet_.At(row_, column).Kind == CellKind::kNoValue;
    if (is) {
      uncalculated_.insert(column);
    }
    return is;
  }

  const Sheet& sheet_;
  int row_;
  mutable std::set<int> uncalculated_;
};

std::string DescriptionOf(const CaseReader& cells, int row) {
  return fmt::format(
      "Data Import from KORVA Database Excel file, row: {}\r\n"
      "Mine Name: {}, Case Name: {}\r\n"
      "Seam: {}, State/County: {}/{}\r\n"
      "MSHA ID:{}",
      row, cells.Text(kMineName), cells.Text(kCaseName), cells.Text(kSeam), cells.Text(kState),
      cells.Text(kCounty), cells.Text(kMshaId));
}

void ReadEntries(const CaseReader& cells, Project& p) {
  const int entries = cells.Integer(kNumberEntries);
  if (entries > kMaxEntries) {
    cells.Fail(ErrorNumber::kSubscript, kNumberEntries,
               fmt::format("{} entries, of at most {}", entries, kMaxEntries));
  }
  p.NumberEntries = entries == 0 ? 1 : entries;
  for (int i = 1; i < p.NumberEntries; ++i) {
    p.XcutCenters[i] = cells.Number(kFirstSpacing + i - 1);
  }
}

void ReadLoadingCondition(const CaseReader& cells, Project& p) {
  const double code = cells.Number(kLoadingCode);
  for (int known = 1; known <= kLoadingCodes; ++known) {
    if (code == known) {
      p.LoadingCondition = static_cast<PanelLoading>(known - 1);
    }
  }
}

void ReadNumbers(const CaseReader& cells, Project& p) {
  p.EntryHeight = cells.Number(kEntryHeight);
  p.DepthCover = cells.Number(kDepthCover);
  p.XcutAngle = cells.Number(kXcutAngle);
  p.EntryWidth = cells.Number(kEntryWidth);
  p.XcutSpacing = cells.Number(kXcutSpacing);
  ReadEntries(cells, p);
  p.CoalStrength = cells.Number(kCoalStrength);
  p.UnitWeight = cells.Number(kUnitWeight);
  p.BreadthAMZ = cells.Number(kBreadthAMZ);
  p.AMZAuto = 1;
  ReadLoadingCondition(cells, p);
  p.ArchAuto = 1;
  p.ArchFactor = cells.Arch(p);
  p.ExtentActiveGob = cells.Number(kExtentActiveGob);
  p.AbutmentAngleActiveGob = cells.Number(kAngleActiveGob);
  p.ExtentFirstGob = cells.Number(kExtentFirstGob);
  p.AbutmentAngleFirstGob = cells.Number(kAngleFirstGob);
  p.BarrierFirstGob = cells.Number(kBarrierFirstGob);
  p.SlabcutFirstGob = cells.Number(kSlabcutFirstGob);
  p.ExtentSecondGob = cells.Number(kExtentSecondGob);
  p.AbutmentAngleSecondGob = cells.Number(kAngleSecondGob);
  p.BarrierSecondGob = cells.Number(kBarrierSecondGob);
  p.SlabcutSecondGob = cells.Number(kSlabcutSecondGob);
}

}  // namespace

bool HoldsCase(const Sheet& sheet, int row) {
  for (int column = kCaseNumber; column <= kCounty; ++column) {
    if (sheet.At(row, column).Kind != CellKind::kEmpty) {
      return true;
    }
  }
  return false;
}

CaseProject ReadCase(const Sheet& sheet, int row, const StoredProject& empty) {
  const CaseReader cells(sheet, row);
  CaseProject read{empty, {}};
  read.Stored.ProjectTitle = cells.Text(kMineName);
  read.Stored.ProjectDescription = DescriptionOf(cells, row);
  ReadNumbers(cells, read.Stored.ProjectInput);
  read.Number = cells.CaseNumber();
  cells.RequireCalculated();
  return read;
}

}  // namespace korva
