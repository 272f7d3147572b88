// Where a printed text may go over to the next sheet.
#pragma once

#include <string_view>
#include <vector>

namespace korva {

// A part of a text, whole lines. `Kept` is its front that belongs on one sheet: a heading with what it heads,
// a table with its head, a paragraph; of what is very long only its beginning.
struct TextPiece {
  std::string_view Text;
  std::string_view Kept;
};

// The pieces in their order; together they are the text.
std::vector<TextPiece> PiecesOf(std::string_view text);

}  // namespace korva
