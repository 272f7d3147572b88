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
enum class DrawLayer { kPillar, kBarrier, kLeaveRow, kGob, kActiveMiningZone };

struct DrawPolygon {
  DrawLayer Layer = DrawLayer::kPillar;
  std::vector<DrawPoint> Corners;
};

struct DrawLine {
  DrawPoint From;
  DrawPoint To;
};

// A text. `At` lies on its middle height, and along it where `Along` says.
struct DrawText {
  DrawPoint At;
  bool Upright = false;  // runs from bottom to top
  std::string Text;
  double Along = 0.5;      // 0: the text begins at `At`, 1: it ends there
  bool Background = true;  // on a background of the paper's colour, where it stands on a pattern
  double Room = 0;         // above 0: breaks into lines of this width below `At`
  double Scale = 1;        // of its letters, where there is little room
};

struct LegendEntry {
  DrawLayer Layer = DrawLayer::kPillar;
  std::string Text;
};

// Polygons are painted first, then lines, then texts, each in their order. All of them lie between `Low` and
// `High`.
struct Drawing {
  DrawPoint Low;
  DrawPoint High;
  std::vector<DrawPolygon> Polygons;
  std::vector<DrawLine> Lines;  // dimensions
  std::vector<DrawText> Texts;
  std::vector<LegendEntry> Legend;  // beside the drawing
  std::string Note;                 // after the legend
};

}  // namespace korva
