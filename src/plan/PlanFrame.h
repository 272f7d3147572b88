// What stands around the panel in the square world of a plan: caption above; legend, notes, scale and title
// block below.
#pragma once

#include <string>
#include <vector>

#include "plan/KORVAgraf.h"

namespace korva {

class PlanFrame {
 public:
  // Of a world of the width `side`.
  PlanFrame(const PlanRequest& request, const PlanGeometry& geometry, double side);

  // What it takes of the world's height; the legend depends on what is drawn.
  double Above() const;
  double Below(const Drawing& panel) const;

  // The frame of a panel that has its place in the world.
  Drawing Around(const Drawing& panel) const;

 private:
  struct Entry {
    DrawLayer Layer;
    std::string Text;
  };

  static double Length(const Entry& entry);
  std::string LeaveRowName() const;
  std::string ZoneName() const;
  std::vector<std::vector<Entry>> Legend(const Drawing& panel) const;
  std::vector<std::string> NoteLines() const;
  double BlockHeight() const;
  void AddLegendRow(Drawing& drawing, const std::vector<Entry>& row, double y) const;
  void AddScale(Drawing& drawing, double y) const;
  void AddBlock(Drawing& drawing) const;
  void AddCell(Drawing& drawing, double left, double right, double y, const std::string& text) const;

  const PlanRequest& r_;
  double side_;
  double height_;
  double margin_;
  bool zoneCutOff_;
};

}  // namespace korva
