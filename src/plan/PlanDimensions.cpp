#include <algorithm>

#include "plan/PlanRecords.h"

namespace korva {

namespace {

class Dimensions {
 public:
  Dimensions(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry)
      : pen_(pen), r_(request), p_(request.ProjectCalc), g_(geometry) {}

  void Add() {
    AddEntryDimensions();
    AddCrosscutDimensions();
    AddGobDimensions();
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }
  double W() const { return p_.EntryWidth; }
  double S() const { return p_.XcutSpacing; }
  // Of a slab cut or a bleeder row, which are small: meters keep their decimals.
  std::string Small(double length) const { return r_.Units == kMetric ? Exact(length) : Whole(length); }

  void AddEntryDimensions() {
    if (!r_.Options.PlotEntryDims) {
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      const DrawPoint left = At(g_.Pillars[i][1][0]);
      const DrawPoint right = At(g_.Pillars[i][1][1]);
      const bool above = S() / 2 > 2 * kBesideLine * pen_.Height();  // there is room below the pillar
      pen_.HorizontalDimension(left.X - W() / 2, right.X + W() / 2, std::min(left.Y, right.Y) - S() / 2,
                               Whole(p_.XcutCenters[i]), false, above);
    }
  }

  double LeftEdge() const {
    return g_.GobDrawn[kFirstGob] ? At(g_.Gobs[kFirstGob][0]).X : At(g_.Pillars[1][1][0]).X;
  }

  // Each line has a strip of one entry width.
  void AddCrosscutDimensions() {
    if (!r_.Options.PlotXcutDims) {
      return;
    }
    const bool once = r_.Options.PlotSingleXcutDims;
    const double crosscut = W() / CrosscutSine(p_);
    const double edge = LeftEdge();
    for (int i = 1; i <= (once ? 1 : Lines()); ++i) {
      const double x = edge - (once ? 1 : p_.NumberEntries - i) * W();
      const double near = At(g_.Pillars[i][1][0]).Y;
      const double far = At(g_.Pillars[i][1][3]).Y;
      pen_.VerticalDimension(near - crosscut / 2, far + crosscut / 2, x, Whole(S()), false);
      DrawText& text = pen_.Last();
      if (!once) {
        pen_.Fit(S(), kFitting * W());
        text.At.X = x - kBesideLine * pen_.Height() * text.Scale;
      } else if (TextLength(text.Text) * pen_.Height() > S()) {
        text.At.X -= pen_.Tick() / 2;  // nothing else stands there
      }
    }
  }

  void AddGobDimensions() {
    if (r_.Options.PlotGobDims) {
      const double y = GobDimensionHeight(p_);
      const auto across = [&](PlanGobIndex gob) {
        const double width = WidthOf(gob, p_);
        if (g_.GobDrawn[gob] && width > 0) {
          const auto [left, right] = std::minmax({At(g_.Gobs[gob][0]).X, At(g_.Gobs[gob][1]).X});
          pen_.HorizontalDimension(left, right, y, Whole(width), true);
        }
      };
      across(kFirstBarrier);
      across(kSecondBarrier);
      if (!r_.Geometry.SchematicGobs) {
        across(kFirstGob);
        across(kSecondGob);
      }
      AddSlabCut(kFirstBarrier, p_.SlabcutFirstGob);
      AddSlabCut(kSecondBarrier, p_.SlabcutSecondGob);
      AddBleederWidths(y);
    }
  }

  // One entry width above the step.
  void AddSlabCut(PlanGobIndex barrier, double width) {
    const std::vector<PlanPoint>& outline = g_.Gobs[barrier];
    if (!g_.GobDrawn[barrier] || !(width > 0)) {
      return;
    }
    const double edge = At(outline[1]).X;
    const double inner = edge + (At(outline[0]).X < edge ? -width : width);
    const double step = At(outline[2]).Y + width / CrosscutSine(p_);
    const double above = std::min(step, static_cast<double>(g_.GobTop)) + W();
    pen_.HorizontalDimension(std::min(edge, inner), std::max(edge, inner), above, Small(width), true);
  }

  void AddBleederWidths(double y) {
    for (const int side : {kFirstSideLine, kSecondSideLine}) {
      const auto found = std::find_if(g_.Bleeders.begin(), g_.Bleeders.end(),
                                      [side](const PlanBleeder& bleeder) { return bleeder.Side == side; });
      if (found != g_.Bleeders.end()) {
        const DrawPoint near = At(found->Corners[0]);
        const double clear = near.Y - 2 * kBesideLine * pen_.Height();  // the text stands below the pillar
        pen_.HorizontalDimension(near.X, At(found->Corners[1]).X, std::min(y, clear),
                                 Small(BleederWidth(p_, side)), false);
      }
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
