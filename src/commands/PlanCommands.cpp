#include "commands/PlanCommands.h"

#include <fmt/format.h>

#include <ctime>

#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "core/Tables.h"
#include "services/PagePrinter.h"

namespace korva {

namespace {

PlanTitleBlock TitleBlockOf(const Korva& korva) {
  const std::tm now = LocalTimeNow();
  return {FileBaseName(korva.ProjectFileName, false), korva.Stored.ProjectTitle,
          std::string(ModelName(korva.ProjectCalc.CalcMode)),
          fmt::format("{:04}-{:02}-{:02}", now.tm_year + 1900, now.tm_mon + 1, now.tm_mday)};
}

}  // namespace

PlanRequest PlanRequestOf(const Korva& korva, PlanOpener caller, bool full) {
  PlanRequest request;
  request.ProjectCalc = korva.ProjectCalc;
  request.Units = korva.Stored.ProjectUnits;
  request.Options = korva.Preferences.Options;
  request.Geometry = {korva.PlotXcutSpacing, request.Options.PlotGobExtLoose};
  request.PlotCaller = caller;
  request.Full = full;
  if (full) {
    request.Title = TitleBlockOf(korva);
  }
  if (caller == kPlanFromResults) {
    request.Values = korva.PillarValues;
  }
  return request;
}

std::optional<PlanRequest> PreviewRequest(const Korva& korva, const Project& draft) {
  PlanRequest request = PlanRequestOf(korva, kPlanFromForm, false);
  request.ProjectCalc = draft;
  for (float& spacing : request.Geometry.PlotXcutSpacing) {
    spacing = static_cast<float>(draft.XcutSpacing);
  }
  try {
    return DrawPlan(request) ? std::optional(request) : std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace korva
