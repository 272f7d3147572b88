#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/Tables.h"
#include "plan/KORVAgraf.h"
#include "plan/PlanBox.h"
#include "plan/PlanFrame.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

constexpr int kFrameTurns = 8;
constexpr double kFrameSettled = 1e-4;

// All that belongs to the panel, in its own coordinates; `side` is the width of the world around it. Texts
// and ticks are smaller by `zoom`.
Drawing PanelRecords(const PlanRequest& request, const PlanGeometry& geometry, double side, double zoom = 1) {
  PlanPen pen(side / zoom, side / zoom * request.TextShare);
  AddOutlines(pen, request, geometry);
  if (request.Full) {
    AddDimensions(pen, request, geometry);
    AddGobTexts(pen, request, geometry);
    AddPillarTexts(pen, request, geometry);
    AddNumbers(pen, request, geometry);
    pen.AddBackgrounds(geometry.ActiveMiningZone);
  }
  return pen.Take();
}

// The side of the least square that holds the drawing with all that belongs to it: texts have a share of
// that side, so it is found in turns, from the extent of the panel without texts on.
double SideOf(const PlanRequest& request, const PlanGeometry& geometry, const DrawBox& panel) {
  const double margins = 2 * request.ProjectCalc.EntryWidth;
  double side = panel.Height() + margins;
  for (int turn = 0; turn < kFrameTurns; ++turn) {
    const Drawing drawing = PanelRecords(request, geometry, side);
    const DrawBox box = BoxOf(drawing, side * request.TextShare);
    const PlanFrame frame(request, geometry, drawing, side);
    const double needed = margins + std::max(box.Width(), box.Height() + frame.Above() + frame.Below());
    if (std::abs(needed - side) <= kFrameSettled * side) {
      break;
    }
    side = needed;
  }
  return side;
}

PlanPoint Moved(const PlanPoint& point, DrawPoint by) {
  return {static_cast<float>(static_cast<double>(point.X) + by.X),
          static_cast<float>(static_cast<double>(point.Y) + by.Y)};
}

template <class Points>
Points AllMoved(Points points, DrawPoint by) {
  for (PlanPoint& point : points) {
    point = Moved(point, by);
  }
  return points;
}

void AddMoved(Plan& plan, const PlanGeometry& geometry, int lines, DrawPoint by) {
  for (int i = 1; i <= lines; ++i) {
    for (int j = 1; j <= kLastRow; ++j) {
      if (geometry.PillarDrawn[i][j]) {
        plan.Pillars.push_back({i, j, AllMoved(geometry.Pillars[i][j], by)});
      }
    }
  }
  for (const PlanBleeder& bleeder : geometry.Bleeders) {
    plan.Bleeders.push_back({bleeder.Side, bleeder.Row, AllMoved(bleeder.Corners, by)});
  }
  for (const PlanGobIndex gob : {kFirstGob, kFirstBarrier, kSecondBarrier, kSecondGob}) {
    if (geometry.GobDrawn[gob]) {
      plan.Gobs.push_back({gob, AllMoved(geometry.Gobs[gob], by)});
    }
  }
  plan.ActiveGob = AllMoved(geometry.ActiveGob, by);
  plan.ActiveMiningZone = AllMoved(geometry.ActiveMiningZone, by);
}

}  // namespace

PillarSize PillarSizeOf(const PlanRequest& request, int i) {
  const Project& p = request.ProjectCalc;
  const double across = p.XcutCenters[i] - p.EntryWidth;
  if (p.XcutAngle == 90) {
    return {across, p.XcutSpacing - p.EntryWidth};
  }
  const double sine = CrosscutSine(p);
  const auto spacing = static_cast<double>(request.Geometry.PlotXcutSpacing[i]);
  const double along = spacing - p.EntryWidth / sine;
  if (across <= along) {
    return {across, along};
  }
  return {sine * spacing - p.EntryWidth, across / sine};
}

PillarSize StrengthSizeOf(const Project& project, int i) {
  const double sine = CrosscutSine(project);
  const double across = project.XcutCenters[i] - project.EntryWidth;
  const double length = (project.XcutSpacing - project.EntryWidth / sine) * sine;
  return length > across ? PillarSize{across, length / sine} : PillarSize{length, across / sine};
}

bool HasOtherStrengthSize(const PlanRequest& request, int i) {
  constexpr double kSame = 1e-3;  // the plan's lengths are held in 32 bits
  const PillarSize shown = PillarSizeOf(request, i);
  const PillarSize taken = StrengthSizeOf(request.ProjectCalc, i);
  return std::abs(std::min(shown.Width, shown.Length) - taken.Width) > kSame ||
         std::abs(std::max(shown.Width, shown.Length) - taken.Length) > kSame;
}

std::string PlanCaption(const PlanRequest& request) {
  const PlanValues values = request.Values.value_or(PlanValues{});
  std::string text;
  switch (request.PlotType) {
    case kPlotDimensions:
      text = fmt::format("Actual Pillar Dimensions (width*length, {})",
                         BareUnit(UnitLabel(UnitKind::kLength, request.Units)));
      break;
    case kPlotStrength:
      text = std::string(kStrengthPlot) + values.StressLabel;
      break;
    case kPlotCapacity:
      text = std::string(kCapacityPlot) + values.LoadLabel;
      break;
    case kPlotSideStress:
      text = "Individual Pillar Stresses - Abutment" + values.StressLabel;
      break;
    case kPlotTotalStress:
      text = "Individual Pillar Stresses - Total" + values.StressLabel;
      break;
  }
  return fmt::format("{}: {}.  Entries shown from left to right.",
                     UsesLaminated(request.ProjectCalc.CalcMode) ? "KORVA-STROND" : "KORVA", text);
}

std::optional<Plan> DrawPlan(const PlanRequest& request) {
  const PlanGeometry geometry = ComputePlan(request.ProjectCalc, request.Geometry);
  const DrawBox panel = BoxOf(PanelRecords(request, geometry, 0), 0);
  if (!(panel.Width() > 0) && !(panel.Height() > 0)) {
    return std::nullopt;
  }
  const double side = SideOf(request, geometry, panel);
  Plan plan;
  plan.PlanWidth = plan.PlanHeight = static_cast<float>(side);
  plan.Panel = PanelRecords(request, geometry, side);
  const DrawBox box = BoxOf(plan.Panel, side * request.TextShare);
  const PlanFrame frame(request, geometry, plan.Panel, side);
  plan.PanelLow = frame.Below();
  plan.PanelHigh = side - frame.Above();
  const DrawPoint by = {side / 2 - (box.Low.X + box.High.X) / 2,
                        (plan.PanelLow + plan.PanelHigh) / 2 - (box.Low.Y + box.High.Y) / 2};
  plan.Frame = frame.Records();
  if (request.Zoom != 1) {
    plan.Panel = PanelRecords(request, geometry, side, request.Zoom);
  }
  Move(plan.Panel, by);
  plan.Panel.High = {side, side};
  AddMoved(plan, geometry, request.ProjectCalc.NumberEntries - 1, by);
  return plan;
}

Drawing PictureOf(const Plan& plan) {
  Drawing picture = plan.Panel;
  const auto append = [](auto& to, const auto& from) { to.insert(to.end(), from.begin(), from.end()); };
  append(picture.Polygons, plan.Frame.Polygons);
  append(picture.Lines, plan.Frame.Lines);
  append(picture.Texts, plan.Frame.Texts);
  return picture;
}

}  // namespace korva
