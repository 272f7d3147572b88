// A drawing as a list of records in world units, y upward. Painters give it lines and colours; tests read it.
#pragma once

#include <string>
#include <vector>

namespace korva {

struct DrawPoint {
  double X = 0;
  double Y = 0;
};

// What a record stands for; painters choose its look by it.
enum class DrawLayer { kPillar, kBarrier, kLeaveRow, kGob, kActiveMiningZone, kText };

struct DrawPolygon {
  DrawLayer Layer = DrawLayer::kPillar;
  std::vector<DrawPoint> Corners;
};

// A text around its middle.
struct DrawText {
  DrawPoint Middle;
  bool Upright = false;  // runs from bottom to top
  std::string Text;
};

struct LegendEntry {
  DrawLayer Layer = DrawLayer::kPillar;
  std::string Text;
};

// Records are painted in their order, polygons first. All of them lie between `Low` and `High`.
struct Drawing {
  DrawPoint Low;
  DrawPoint High;
  std::vector<DrawPolygon> Polygons;
  std::vector<DrawText> Texts;
  std::vector<LegendEntry> Legend;  // beside the drawing
  std::string Note;                 // behind the legend
};

}  // namespace korva
