// What stands around the panel in the square world of a plan: caption above, legend and scale below.
#pragma once

#include <string>
#include <vector>

#include "plan/KORVAgraf.h"

namespace korva {

class PlanFrame {
 public:
  // Of a world of the width `side`.
  PlanFrame(const PlanRequest& request, double side);

  // What it takes of the world's height; the legend depends on what is drawn.
  double CaptionHeight() const;
  double LegendHeight(const Drawing& drawing) const;

  // Adds it to a drawing that has its place in the world.
  void Add(Drawing& drawing) const;

 private:
  struct Entry {
    DrawLayer Layer;
    std::string Text;
  };

  static double Length(const Entry& entry);
  std::string LeaveRowName() const;
  std::vector<std::vector<Entry>> Legend(const Drawing& drawing) const;
  void AddLegendRow(Drawing& drawing, const std::vector<Entry>& row, double y) const;
  void AddScale(Drawing& drawing, double y) const;

  const PlanRequest& r_;
  double side_;
  double height_;
  double margin_;
};

}  // namespace korva
