// The lines that this program answers with; workbook/XlsLines.h says what they are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "workbook/Sheet.h"

namespace korva {

class Answer {
 public:
  Answer();

  // Row and column from 0.
  void AddCell(int row, int column, const Cell& cell);
  void AddSheet(std::string_view name);

  // Writes the answer to the standard output, with its last line; false if that fails.
  bool Print();

 private:
  void AddEscaped(std::string_view text);

  std::string text_;
  std::size_t lines_ = 0;
};

}  // namespace korva
