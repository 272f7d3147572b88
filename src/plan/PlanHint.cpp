#include <fmt/format.h>

#include "core/Format.h"
#include "core/Tables.h"
#include "plan/PlanRecords.h"

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

std::string SizeText(double width, double length, UnitSystem units) {
  return fmt::format("{} x {}", Exact(width), LengthText(length, units));
}

// A number with what a label such as " (psi)" holds.
std::string WithUnit(const std::string& number, const std::string& label) {
  return label.empty() ? number : fmt::format("{} {}", number, BareUnit(label));
}

// `of` tells the size that it comes from, if that is not the one shown.
std::string StrengthText(const PlanValues& values, double strength, const std::string& of) {
  return "\nStrength " + WithUnit(Format(strength, "##0.0"), values.StressLabel) + of;
}

std::string CapacityText(const PlanValues& values, double capacity) {
  return "\nLoad bearing capacity " + WithUnit(Format(capacity, "#0"), values.LoadLabel);
}

std::string PillarHint(const PlanRequest& request, const PlanPillar& pillar) {
  const Project& p = request.ProjectCalc;
  const PillarSize size = PillarSizeOf(request, pillar.Line);
  std::string text = fmt::format("Pillar {}, row {}", pillar.Line, pillar.Row);
  if (pillar.Row > kRetreatRow) {
    text += pillar.Line == 1 && IsSet(p.RowA) ? ", left as row A" : ", left as row B";
  }
  text += "\n" + SizeText(size.Width, size.Length, request.Units);
  std::string of;
  if (HasOtherStrengthSize(request, pillar.Line)) {
    const PillarSize taken = StrengthSizeOf(p, pillar.Line);
    text += ", across and along the entries";
    of = ", of " + SizeText(taken.Width, taken.Length, request.Units) + " (page 3)";
  }
  if (request.Values && request.Values->HasStrength) {
    text += StrengthText(*request.Values, request.Values->Strength[pillar.Line], of);
  }
  if (request.Values && request.Values->HasTraditional) {
    text += CapacityText(*request.Values, request.Values->Capacity[pillar.Line]);
  }
  return text;
}

std::string BleederHint(const PlanRequest& request, const PlanBleeder& bleeder) {
  const Project& p = request.ProjectCalc;
  const int side = bleeder.Side;
  std::string text = fmt::format("Bleeder pillar, row {}", RowLetters.at(static_cast<std::size_t>(side)));
  text += "\n" + SizeText(BleederWidth(p, side), p.XcutSpacing - p.EntryWidth, request.Units);
  if (request.Values && request.Values->HasRowStrength) {
    text += StrengthText(*request.Values, request.Values->RowStrength[side], {});
  }
  if (request.Values && request.Values->HasTraditional) {
    text += CapacityText(*request.Values, request.Values->RowCapacity[side]);
  }
  return text;
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
      return fmt::format("{}\n{}", NameOf(gob.Index),
                         LengthText(WidthOf(gob.Index, request.ProjectCalc), request.Units));
    }
  }
  if (!plan.ActiveGob.empty() && IsInside(plan.ActiveGob, point)) {
    return "Active gob\n" + LengthText(request.ProjectCalc.ExtentActiveGob, request.Units);
  }
  return {};
}

}  // namespace korva
