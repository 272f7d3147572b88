#include "commands/PlanCommands.h"

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

}  // namespace korva
