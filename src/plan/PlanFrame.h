// What stands around the panel in the square world of a plan: caption above; legend, notes, scale and title
// block below.
#pragma once

#include <string>
#include <vector>

#include "plan/KORVAgraf.h"

namespace korva {

class PlanFrame {
 public:
  // Of a world of the width `side` around what is drawn of the panel, whose kinds the legend names. Its texts
  // are smaller than the panel's where they would take the panel's room.
  PlanFrame(const PlanRequest& request, const PlanGeometry& geometry, const Drawing& panel, double side);

  // What it takes of the world's height.
  double Above() const;
  double Below() const;

  Drawing Records() const;

 private:
  static double Length(const LegendEntry& entry);
  void AddText(Drawing& drawing, DrawPoint at, const std::string& text, double room = 0) const;
  std::string LeaveRowName() const;
  std::string ZoneName() const;
  std::vector<LegendEntry> Kinds(const Drawing& panel) const;
  std::vector<std::vector<LegendEntry>> Legend() const;
  std::vector<std::string> NoteLines() const;
  double BlockHeight() const;
  void AddLegendRow(Drawing& drawing, const std::vector<LegendEntry>& row, double y) const;
  void AddScale(Drawing& drawing, double y) const;
  void AddBlock(Drawing& drawing) const;
  void AddCell(Drawing& drawing, double left, double right, double y, const std::string& text) const;

  const PlanRequest& r_;
  double side_;
  double textHeight_;  // of the panel
  double height_;      // of the frame's texts
  double margin_;
  bool zoneCutOff_;
  std::vector<LegendEntry> kinds_;
};

}  // namespace korva
