#include <fmt/format.h>

#include <algorithm>

#include "core/Format.h"
#include "core/Tables.h"
#include "plan/KORVAgraf.h"

namespace korva {

namespace {

// Whether `point` lies in an outline without holes: an odd number of its sides is crossed on the way out.
template <class Points>
bool IsInside(const Points& outline, DrawPoint point) {
  bool inside = false;
  const PlanPoint* before = &outline.back();
  for (const PlanPoint& corner : outline) {
    const auto x0 = static_cast<double>(before->X);
    const auto y0 = static_cast<double>(before->Y);
    const auto x1 = static_cast<double>(corner.X);
    const auto y1 = static_cast<double>(corner.Y);
    if ((y0 > point.Y) != (y1 > point.Y) && point.X < x0 + (point.Y - y0) / (y1 - y0) * (x1 - x0)) {
      inside = !inside;
    }
    before = &corner;
  }
  return inside;
}

std::string Number(double value) {
  return Format(value, "#.##");
}

std::string SizeText(const PlanRequest& request, double width, double length) {
  return fmt::format("\n{} x {} {}", Number(width), Number(length),
                     BareUnit(UnitLabel(UnitKind::kLength, request.Units)));
}

std::string StrengthText(const PlanValues& values, double strength) {
  return fmt::format("\nStrength {}{}", Format(strength, "##0.0"), values.StressLabel);
}

std::string CapacityText(const PlanValues& values, double capacity) {
  return fmt::format("\nLoad bearing capacity {}{}", Format(capacity, "#0"), values.LoadLabel);
}

std::string PillarHint(const PlanRequest& request, const PlanPillar& pillar) {
  const Project& p = request.ProjectCalc;
  const PillarSize size = PillarSizeOf(request, pillar.Line);
  std::string text = fmt::format("Pillar {}, row {}", pillar.Line, pillar.Row);
  if (pillar.Row > kRetreatRow) {
    text += pillar.Line == 1 && p.RowA == 1 ? ", left as row A" : ", left as row B";
  }
  text += SizeText(request, size.Width, size.Length);
  if (request.Values && request.Values->HasStrength) {
    text += StrengthText(*request.Values, request.Values->Strength[pillar.Line]);
  }
  if (request.Values && request.Values->HasTraditional) {
    text += CapacityText(*request.Values, request.Values->Capacity[pillar.Line]);
  }
  return text;
}

std::string BleederHint(const PlanRequest& request, const PlanBleeder& bleeder) {
  const Project& p = request.ProjectCalc;
  const int side = bleeder.Side;
  const auto width = static_cast<double>(side == kFirstSideLine ? p.WidthRowC : p.WidthRowD);
  std::string text = fmt::format("Bleeder pillar, row {}", RowLetters.at(static_cast<std::size_t>(side)));
  text += SizeText(request, width, p.XcutSpacing - p.EntryWidth);
  if (request.Values && request.Values->HasRowStrength) {
    text += StrengthText(*request.Values, request.Values->RowStrength[side]);
  }
  if (request.Values && request.Values->HasTraditional) {
    text += CapacityText(*request.Values, request.Values->RowCapacity[side]);
  }
  return text;
}

std::string AreaHint(const PlanRequest& request, std::string_view name) {
  const Project& p = request.ProjectCalc;
  const bool first = name.starts_with("First");
  const bool barrier = name.ends_with("barrier");
  const double width = barrier ? (first ? p.BarrierFirstGob : p.BarrierSecondGob)
                               : (first ? p.ExtentFirstGob : p.ExtentSecondGob);
  return fmt::format("{}\n{} {}", name, Number(width), BareUnit(UnitLabel(UnitKind::kLength, request.Units)));
}

}  // namespace

std::string PlanHintAt(const PlanRequest& request, const Plan& plan, DrawPoint point) {
  for (const PlanPillar& pillar : plan.Pillars) {
    if (IsInside(pillar.Corners, point)) {
      return PillarHint(request, pillar);
    }
  }
  for (const PlanBleeder& bleeder : plan.Bleeders) {
    if (IsInside(bleeder.Corners, point)) {
      return BleederHint(request, bleeder);
    }
  }
  for (const PlanGob& gob : plan.Gobs) {
    if (IsInside(gob.Outline, point)) {
      return AreaHint(request, gob.Name);
    }
  }
  if (!plan.ActiveGob.empty() && IsInside(plan.ActiveGob, point)) {
    return fmt::format("Active gob\n{} {}", Number(request.ProjectCalc.ExtentActiveGob),
                       BareUnit(UnitLabel(UnitKind::kLength, request.Units)));
  }
  return {};
}

}  // namespace korva
