// A picture as a list of records that carry their own look, in pixels from the upper left corner. Painters
// only paint them, in their order; tests read them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/Drawing.h"

namespace korva {

using Rgb = std::uint32_t;  // red, green, blue

struct PictureSize {
  double Width = 0;
  double Height = 0;
};

struct PictureBox {
  double Left = 0;
  double Top = 0;
  double Right = 0;
  double Bottom = 0;

  double Width() const { return Right - Left; }
  double Height() const { return Bottom - Top; }
  double CenterX() const { return (Left + Right) / 2; }
  double CenterY() const { return (Top + Bottom) / 2; }
  bool Contains(const DrawPoint& at) const {
    return at.X >= Left && at.X <= Right && at.Y >= Top && at.Y <= Bottom;
  }
  bool Contains(const PictureBox& box) const {
    return Contains(DrawPoint{box.Left, box.Top}) && Contains(DrawPoint{box.Right, box.Bottom});
  }
  bool Meets(const PictureBox& box) const {
    return Left < box.Right && box.Left < Right && Top < box.Bottom && box.Top < Bottom;
  }
  PictureBox Grown(double by) const { return {Left - by, Top - by, Right + by, Bottom + by}; }
};

struct PicturePen {
  Rgb Colour = 0;
  double Width = 0;  // 0: no line
  double Dash = 0;   // the length of dashes and gaps; 0: solid

  bool operator==(const PicturePen&) const = default;
};

// A line through its points, or the outline of an area.
struct PicturePath {
  std::vector<DrawPoint> Points;
  PicturePen Pen;
  bool Closed = false;
  std::optional<Rgb> Fill = {};
  bool Clipped = false;  // painted within the clip alone, as are symbols
};

enum class SymbolShape { kDisc, kSquare, kTriangle, kDiamond, kCross };

struct PictureSymbol {
  SymbolShape Shape = SymbolShape::kDisc;
  DrawPoint At;
  double Radius = 0;
  Rgb Fill = 0;
  PicturePen Pen;
  bool Clipped = false;
};

// `At` lies on its base line, and along it where `Along` says: at 0 the text begins there, at 1 it ends
// there.
struct PictureText {
  std::string Text;
  DrawPoint At;
  double Pixels = 0;  // the size of its font
  double Along = 0;
  bool Upright = false;  // runs from bottom to top
  Rgb Colour = 0;
};

// Pixels that fill a box without smoothing, row by row from its upper left corner.
struct PictureRaster {
  PictureBox Box;
  std::size_t Columns = 0;
  std::vector<std::uint32_t> Pixels;  // kOpaque with a colour, or 0: nothing is painted

  std::size_t Rows() const { return Columns == 0 ? 0 : Pixels.size() / Columns; }
};
inline constexpr std::uint32_t kOpaque = 0xFF000000;

struct Picture {
  PictureSize Size;
  PictureBox Clip;
  std::vector<std::variant<PicturePath, PictureSymbol, PictureText, PictureRaster>> Records;
};

// The width of a text at a size of its font, both in pixels.
using TextMeasure = std::function<double(const std::string& text, double pixels)>;

// The corners of the symbols that have any, around a middle of 0, 0.
inline std::vector<DrawPoint> SymbolCorners(SymbolShape shape, double r) {
  switch (shape) {
    case SymbolShape::kDisc:
      return {};
    case SymbolShape::kSquare:
      return {{-r, -r}, {r, -r}, {r, r}, {-r, r}};
    case SymbolShape::kTriangle:
      return {{0, -r}, {r, r}, {-r, r}};
    case SymbolShape::kDiamond:
      return {{0, -r}, {r, 0}, {0, r}, {-r, 0}};
    case SymbolShape::kCross:
      break;
  }
  const double arm = r / 4;  // half its width
  return {{-arm, -r}, {arm, -r}, {arm, -arm}, {r, -arm}, {r, arm},   {arm, arm},
          {arm, r},   {-arm, r}, {-arm, arm}, {-r, arm}, {-r, -arm}, {-arm, -arm}};
}

}  // namespace korva
