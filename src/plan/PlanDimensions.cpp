#include <fmt/format.h>

#include <algorithm>

#include "core/Tables.h"
#include "plan/PlanBox.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

constexpr double kLeastGob = 1.2;  // text heights that a gob is wide to be named
constexpr std::string_view kActiveGob = "Active gob";

class Dimensions {
 public:
  Dimensions(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry)
      : pen_(pen), r_(request), p_(request.ProjectCalc), g_(geometry) {}

  void Add() {
    AddEntryDimensions();
    AddCrosscutDimensions();
    AddGobDimensions();
    AddActiveGobDimension();
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }
  double W() const { return p_.EntryWidth; }
  double S() const { return p_.XcutSpacing; }

  void AddEntryDimensions() {
    if (r_.Options.PlotEntryDims != 1) {
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      const DrawPoint left = At(g_.Pillars[i][1][0]);
      const DrawPoint right = At(g_.Pillars[i][1][1]);
      const bool above = S() / 2 > 2 * kBesideLine * pen_.Height();  // there is room below the pillar
      pen_.Across(left.X - W() / 2, right.X + W() / 2, std::min(left.Y, right.Y) - S() / 2,
                  Whole(p_.XcutCenters[i]), false, above);
    }
  }

  double LeftEdge() const {
    return g_.GobDrawn[kFirstGob] == 1 ? At(g_.Gobs[kFirstGob][0]).X : At(g_.Pillars[1][1][0]).X;
  }

  // Each line has a strip of one entry width.
  void AddCrosscutDimensions() {
    if (r_.Options.PlotXcutDims != 1) {
      return;
    }
    const bool once = r_.Options.PlotSingleXcutDims == 1;
    const double crosscut = W() / CrosscutSine(p_);
    const double edge = LeftEdge();
    for (int i = 1; i <= (once ? 1 : Lines()); ++i) {
      const double x = edge - (once ? 1 : p_.NumberEntries - i) * W();
      const double near = At(g_.Pillars[i][1][0]).Y;
      const double far = At(g_.Pillars[i][1][3]).Y;
      pen_.Upward(near - crosscut / 2, far + crosscut / 2, x, Whole(S()), false);
      pen_.Fit(S(), once ? pen_.Height() : kFitting * W());
      pen_.Last().At.X = x - kBesideLine * pen_.Height() * pen_.Last().Scale;
    }
  }

  void AddGobDimensions() {
    if (r_.Options.PlotGobDims == 1) {
      const double y = S() / 2;
      const auto across = [&](PlanGobIndex gob, double width) {
        if (g_.GobDrawn[gob] == 1 && width > 0) {
          const auto [left, right] = std::minmax({At(g_.Gobs[gob][0]).X, At(g_.Gobs[gob][1]).X});
          pen_.Across(left, right, y, Whole(width), true);
        }
      };
      across(kFirstBarrier, p_.BarrierFirstGob);
      across(kSecondBarrier, p_.BarrierSecondGob);
      if (!r_.Geometry.SchematicGobs) {
        across(kFirstGob, p_.ExtentFirstGob);
        across(kSecondGob, p_.ExtentSecondGob);
      }
      AddSlabCut(kFirstBarrier, p_.SlabcutFirstGob);
      AddSlabCut(kSecondBarrier, p_.SlabcutSecondGob);
      AddBleederWidths(y);
    }
    AddGobName(kFirstGob, p_.ExtentFirstGob);
    AddGobName(kSecondGob, p_.ExtentSecondGob);
  }

  // One entry width above the step.
  void AddSlabCut(PlanGobIndex barrier, double width) {
    const std::vector<PlanPoint>& outline = g_.Gobs[barrier];
    if (g_.GobDrawn[barrier] != 1 || !(width > 0)) {
      return;
    }
    const double edge = At(outline[1]).X;
    const double inner = edge + (At(outline[0]).X < edge ? -width : width);
    const double step = At(outline[2]).Y + width / CrosscutSine(p_);
    const double above = std::min(step, static_cast<double>(g_.GobTop)) + W();
    pen_.Across(std::min(edge, inner), std::max(edge, inner), above, Whole(width), true);
  }

  void AddBleederWidths(double y) {
    for (const int side : {kFirstSideLine, kSecondSideLine}) {
      const auto found = std::find_if(g_.Bleeders.begin(), g_.Bleeders.end(),
                                      [side](const PlanBleeder& bleeder) { return bleeder.Side == side; });
      if (found != g_.Bleeders.end()) {
        const DrawPoint near = At(found->Corners[0]);
        const double clear = near.Y - 2 * kBesideLine * pen_.Height();  // the text stands below the pillar
        pen_.Across(near.X, At(found->Corners[1]).X, std::min(y, clear), Whole(BleederWidth(p_, side)),
                    false);
      }
    }
  }

  void AddGobName(PlanGobIndex gob, double extent) {
    if (g_.GobDrawn[gob] != 1) {
      return;
    }
    const DrawPoint low = At(g_.Gobs[gob][0]);
    const DrawPoint high = At(g_.Gobs[gob][2]);
    if (high.X - low.X < kLeastGob * pen_.Height()) {
      return;
    }
    std::string name(kGobNames[static_cast<std::size_t>(gob - kFirstGob)]);
    if (r_.Geometry.SchematicGobs) {
      name += fmt::format(", {} {}, not to scale", Whole(extent),
                          BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
    }
    pen_.Text({(low.X + high.X) / 2, (low.Y + high.Y) / 2}, name, true, 0.5, true);
    pen_.Fit(kFitting * (high.Y - low.Y), pen_.Height());
  }

  // In the entry left of the middle line, the text on the side that has room for it.
  void AddActiveGobDimension() {
    if (g_.ActiveGob.empty()) {
      return;
    }
    const int line = std::min(MiddleLine(p_), Lines());
    const DrawPoint corner = At(g_.Pillars[line][kLastRow][3]);
    const double x = corner.X - W() / 2;
    const auto top = static_cast<double>(g_.GobTop);
    const std::string extent = Whole(p_.ExtentActiveGob);
    pen_.Upward(corner.Y, top, x, extent, true);
    const bool roomLeft = x > 2 * kBesideLine * pen_.Height();
    DrawPoint& at = pen_.Last().At;
    at = {x + (roomLeft ? -1 : 1) * kBesideLine * pen_.Height(),
          top - (0.2 + 0.5) * TextLength(extent) * pen_.Height() - pen_.Tick()};
    const double from = roomLeft ? x : x + 2 * kBesideLine * pen_.Height();
    const double right = At(g_.Pillars[Lines()][1][1]).X + W();
    if (TextLength(kActiveGob) * pen_.Height() < kFitting * (right - from)) {
      pen_.Text({(from + right) / 2, (static_cast<double>(g_.RowTop) + top) / 2}, std::string(kActiveGob),
                false, 0.5, true);
    }
  }

  PlanPen& pen_;
  const PlanRequest& r_;
  const Project& p_;
  const PlanGeometry& g_;
};

}  // namespace

void AddDimensions(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry) {
  Dimensions(pen, request, geometry).Add();
}

}  // namespace korva
