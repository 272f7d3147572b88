// Draws the records of a plan: areas, dimension lines, texts.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "core/Drawing.h"
#include "plan/PlanBox.h"
#include "plan/PlanGeometry.h"

namespace korva {

inline constexpr double kBesideLine = 0.62;  // text heights from a line to the middle of its text
inline constexpr double kFitting = 0.95;     // of the room that there is for a text

inline constexpr double kBreakAt = 0.25;  // of its length, where a broken line has its gap

DrawPoint At(const PlanPoint& point);

// A value as dimension lines and pillars have it, in whole units.
std::string Whole(double value);

// A length with at most two decimals and its unit: "18.3 m".
std::string LengthText(double length, UnitSystem units);
std::string Exact(double value);

class PlanPen {
 public:
  // In a world of the width `side`, with texts of the height `textHeight`.
  PlanPen(double side, double textHeight);

  double Height() const { return height_; }
  double Tick() const { return tick_; }

  template <class Points>
  void Polygon(DrawLayer layer, const Points& points) {
    DrawPolygon polygon{layer, {}};
    std::transform(points.begin(), points.end(), std::back_inserter(polygon.Corners), At);
    drawing_.Polygons.push_back(std::move(polygon));
  }

  void Text(DrawPoint at, std::string text, bool upright, double along = 0.5, bool background = false);
  // The last text.
  DrawText& Last() { return drawing_.Texts.back(); }
  // Makes it smaller to take at most this length and height.
  void Fit(double length, double height);
  // A text of one line or, where there is not the room, of `lines` one below the other or upright, on a
  // background in the middle of the room where it can be largest; of the first one if it has no choice.
  void Name(const std::vector<DrawBox>& rooms, const std::vector<std::string>& lines);
  // Puts texts that the outline `corners` runs through on plates.
  void AddBackgrounds(const std::vector<PlanPoint>& corners);

  // A dimension line from x0 to x1 with its ticks, the text above it, or below.
  void HorizontalDimension(double x0, double x1, double y, const std::string& text, bool background,
                           bool above = true);
  // The same upward, the text left of it. A line that is not to scale has break marks.
  void VerticalDimension(double y0, double y1, double x, const std::string& text, bool background,
                         bool broken = false);

  // The lowest Y of what has been drawn between x0 and x1; `none` if there is nothing.
  double Lowest(double x0, double x1, double none) const;

  Drawing Take() { return std::move(drawing_); }

 private:
  Drawing drawing_;
  double tick_;
  double height_;
};

}  // namespace korva
