// The extent of drawings.
#pragma once

#include <optional>
#include <string_view>

#include "core/Drawing.h"

namespace korva {

// What a text is likely to take, in the units of its height; painters have the real widths.
double TextLength(std::string_view text);

// The least box around all records of `drawing`, with texts of the height `textHeight`.
struct DrawBox {
  DrawPoint Low;
  DrawPoint High;
  double Width() const { return High.X - Low.X; }
  double Height() const { return High.Y - Low.Y; }
};
DrawBox BoxOf(const Drawing& drawing, double textHeight);
DrawBox BoxOf(const DrawText& text, double textHeight);

// The lowest Y of the records of which something stands between x0 and x1, if there are any.
std::optional<double> LowestOf(const Drawing& drawing, double textHeight, double x0, double x1);

// Moves all records of a drawing.
void Move(Drawing& drawing, DrawPoint by);

}  // namespace korva
