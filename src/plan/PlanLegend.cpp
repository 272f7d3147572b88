#include "plan/PlanLegend.h"

#include <algorithm>

namespace korva {

std::vector<LegendEntry> LegendOf(const Drawing& drawing, std::string zone, std::string leaveRow,
                                  bool (*counts)(const DrawPolygon&)) {
  std::vector<LegendEntry> entries = {{DrawLayer::kPillar, "Pillar"},
                                      {DrawLayer::kLeaveRow, std::move(leaveRow)},
                                      {DrawLayer::kBarrier, "Barrier pillar"},
                                      {DrawLayer::kGob, "Gob"},
                                      {DrawLayer::kActiveMiningZone, std::move(zone)}};
  std::erase_if(entries, [&](const LegendEntry& entry) {
    return std::none_of(drawing.Polygons.begin(), drawing.Polygons.end(), [&](const DrawPolygon& polygon) {
      return polygon.Layer == entry.Layer && counts(polygon);
    });
  });
  return entries;
}

}  // namespace korva
