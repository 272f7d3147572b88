#include "plan/PanelOverview.h"

#include <algorithm>

#include "plan/PlanBox.h"
#include "plan/PlanLegend.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

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
  drawing.Legend = LegendOf(drawing, std::string(kZoneName).append(geometry.ZoneCutOff ? kNotToScale : ""));
  const bool gobs = std::any_of(drawing.Legend.begin(), drawing.Legend.end(),
                                [](const LegendEntry& entry) { return entry.Layer == DrawLayer::kGob; });
  if (drawing.Legend.size() <= kKindsWithoutLegend) {
    drawing.Legend.clear();
  }
  if (HasActiveGob(request.ProjectCalc)) {
    drawing.Note = kRetreatNote;
  }
  if (gobs) {
    drawing.Note += "; gobs cut short";
  }
  return drawing;
}

}  // namespace korva
