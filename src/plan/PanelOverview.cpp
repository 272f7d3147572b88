#include "plan/PanelOverview.h"

#include <algorithm>

#include "plan/PlanBox.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

constexpr std::size_t kKindsWithoutLegend = 2;

bool Has(const Drawing& drawing, DrawLayer layer) {
  return std::any_of(drawing.Polygons.begin(), drawing.Polygons.end(),
                     [layer](const DrawPolygon& polygon) { return polygon.Layer == layer; });
}

void AddLegend(Drawing& drawing, bool zoneCutOff) {
  const std::string zone = zoneCutOff ? "Active mining zone, not to scale" : "Active mining zone";
  for (const LegendEntry& entry : {LegendEntry{DrawLayer::kPillar, "Pillar"},
                                   {DrawLayer::kLeaveRow, "Row left"},
                                   {DrawLayer::kBarrier, "Barrier pillar"},
                                   {DrawLayer::kGob, "Gob"},
                                   {DrawLayer::kActiveMiningZone, zone}}) {
    if (Has(drawing, entry.Layer)) {
      drawing.Legend.push_back(entry);
    }
  }
  if (drawing.Legend.size() <= kKindsWithoutLegend) {
    drawing.Legend.clear();
  }
}

// A panel whose entries or crosscuts overlap is no panel.
bool HasPillars(const PlanRequest& request) {
  const int lines = request.ProjectCalc.NumberEntries - 1;
  for (int i = 1; i <= lines; ++i) {
    const PillarSize size = PillarSizeOf(request, i);
    if (!(size.Width > 0 && size.Length > 0)) {
      return false;
    }
  }
  return lines > 0;
}

}  // namespace

std::optional<Drawing> PanelOverview(const PlanRequest& request) {
  const PlanGeometry geometry = ComputePlan(request.ProjectCalc, request.Geometry);
  if (!HasPillars(request)) {
    return std::nullopt;
  }
  PlanPen pen(0, 0);  // which draws no text
  AddOutlines(pen, request, geometry);
  Drawing drawing = pen.Take();
  const DrawBox box = BoxOf(drawing, 0);
  drawing.Low = box.Low;
  drawing.High = box.High;
  AddLegend(drawing, geometry.ZoneCutOff);
  if (HasActiveGob(request.ProjectCalc)) {
    drawing.Note = "Retreat from top to bottom";
  }
  if (Has(drawing, DrawLayer::kGob)) {
    drawing.Note += "; gobs cut short";
  }
  return drawing;
}

}  // namespace korva
