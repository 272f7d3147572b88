#include "commands/PlanCommands.h"

#include "core/RuntimeError.h"

namespace korva {

PlanRequest PlanRequestOf(const Korva& korva, bool full) {
  PlanRequest request;
  request.ProjectCalc = korva.ProjectCalc;
  request.Units = korva.Stored.ProjectUnits;
  request.Options = korva.Preferences.Options;
  request.Geometry = {korva.PlotXcutSpacing, request.Options.PlotGobExtLoose == 1};
  request.PlotType = korva.PlotType;
  request.Full = full;
  if (korva.PlotCaller == kPlanFromResults) {
    request.Values = korva.PillarValues;
  }
  return request;
}

std::optional<PlanRequest> PreviewRequest(const Korva& korva, const Project& draft) {
  PlanRequest request = PlanRequestOf(korva, false);
  request.ProjectCalc = draft;
  for (float& spacing : request.Geometry.PlotXcutSpacing) {
    spacing = static_cast<float>(draft.XcutSpacing);
  }
  request.PlotType = kPlotDimensions;
  try {
    return DrawPlan(request) ? std::optional(request) : std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace korva
