#include "plan/PanelOverview.h"

#include <algorithm>

#include "plan/PlanBox.h"

namespace korva {

namespace {

constexpr std::size_t kKindsWithoutLegend = 2;

bool Has(const Drawing& drawing, DrawLayer layer) {
  return std::any_of(drawing.Polygons.begin(), drawing.Polygons.end(),
                     [layer](const DrawPolygon& polygon) { return polygon.Layer == layer; });
}

void AddLegend(Drawing& drawing) {
  for (const LegendEntry& entry : {LegendEntry{DrawLayer::kPillar, "Pillar"},
                                   {DrawLayer::kLeaveRow, "Row left"},
                                   {DrawLayer::kBarrier, "Barrier pillar"},
                                   {DrawLayer::kGob, "Gob"},
                                   {DrawLayer::kActiveMiningZone, "Active mining zone"}}) {
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
  for (int i = 1; i < request.ProjectCalc.NumberEntries; ++i) {
    const PillarSize size = PillarSizeOf(request, i);
    if (!(size.Width > 0 && size.Length > 0)) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::optional<Drawing> PanelOverview(PlanRequest request) {
  request.Full = false;
  auto plan = DrawPlan(request);
  if (!plan || !HasPillars(request)) {
    return std::nullopt;
  }
  Drawing drawing = std::move(plan->Panel);
  const DrawBox box = BoxOf(drawing, 0);
  drawing.Low = box.Low;
  drawing.High = box.High;
  AddLegend(drawing);
  if (request.ProjectCalc.LoadingCondition >= 1) {
    drawing.Note = "Retreat from top to bottom";
  }
  if (Has(drawing, DrawLayer::kGob)) {
    drawing.Note += "; gobs cut short";
  }
  return drawing;
}

}  // namespace korva
