// Draws the records of a plan: areas, dimension lines, texts.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "core/Drawing.h"
#include "plan/PlanGeometry.h"

namespace korva {

inline constexpr double kBesideLine = 0.62;  // text heights from a line to the middle of its text
inline constexpr double kFitting = 0.95;     // of the room that there is for a text

DrawPoint At(const PlanPoint& point);

// A value as all texts of the plan have it, in whole units.
std::string Whole(double value);

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

  void Text(DrawPoint at, std::string text, bool upright, double along = 0.5, bool plate = false);
  // The last text.
  DrawText& Last() { return drawing_.Texts.back(); }
  // Makes it smaller, as far as it stays readable, to take at most this length and height.
  void Fit(double length, double height);

  // A dimension line from x0 to x1 with its ticks, the text above it, or below.
  void Across(double x0, double x1, double y, const std::string& text, bool plate, bool above = true);
  // The same upward, the text left of it.
  void Upward(double y0, double y1, double x, const std::string& text, bool plate);

  Drawing Take() { return std::move(drawing_); }

 private:
  Drawing drawing_;
  double tick_;
  double height_;
};

}  // namespace korva
