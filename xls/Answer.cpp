#include "xls/Answer.h"

#include <array>
#include <charconv>
#include <cstdio>

#include "workbook/XlsLines.h"

namespace korva {

namespace {

// The fewest digits that bring back its bits.
std::string Digits(double number) {
  std::array<char, 32> room{};
  const auto end = std::to_chars(room.data(), room.data() + room.size(), number).ptr;
  return {room.data(), end};
}

char LetterOf(CellKind kind) {
  switch (kind) {
    case CellKind::kNumber:
      return 'n';
    case CellKind::kDate:
      return 'd';
    case CellKind::kText:
      return 't';
    case CellKind::kBoolean:
      return 'b';
    case CellKind::kError:
      return 'e';
    case CellKind::kEmpty:
    case CellKind::kNoValue:
      break;
  }
  return 'v';
}

}  // namespace

Answer::Answer() {
  text_ += kXlsFirstLine;
  text_ += '\n';
}

void Answer::AddCell(int row, int column, const Cell& cell) {
  text_ += LetterOf(cell.Kind);
  text_ += ' ' + std::to_string(row + 1) + ' ' + std::to_string(column + 1) + ' ';
  if (cell.Kind == CellKind::kNumber) {
    text_ += Digits(cell.Number);
  } else if (cell.Kind == CellKind::kDate) {
    text_ += Digits(cell.Number) + ' ';
  }
  if (cell.Kind == CellKind::kBoolean) {
    text_ += cell.Text == "TRUE" ? '1' : '0';
  } else {
    AddEscaped(cell.Text);
  }
  text_ += '\n';
  ++lines_;
}

void Answer::AddSheet(std::string_view name) {
  text_ += "s ";
  AddEscaped(name);
  text_ += '\n';
  ++lines_;
}

bool Answer::Print() {
  text_ += "end " + std::to_string(lines_) + '\n';
  return std::fwrite(text_.data(), 1, text_.size(), stdout) == text_.size() && std::fflush(stdout) == 0;
}

void Answer::AddEscaped(std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '\n':
        text_ += "\\n";
        break;
      case '\r':
        text_ += "\\r";
        break;
      case '\\':
        text_ += "\\\\";
        break;
      default:
        text_ += c;
    }
  }
}

}  // namespace korva
