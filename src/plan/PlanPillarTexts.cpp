#include <algorithm>
#include <cmath>

#include "plan/PlanBox.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

constexpr double kValueInset = 0.15;  // of a pillar's width, for stresses

class PillarTexts {
 public:
  PillarTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry)
      : pen_(pen),
        r_(request),
        p_(request.ProjectCalc),
        g_(geometry),
        values_(request.Values.value_or(PlanValues{})) {}

  void Add() {
    if (r_.PlotType == kPlotSideStress || r_.PlotType == kPlotTotalStress) {
      AddStresses();
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      for (int j = 1; j <= kLastRow; ++j) {
        if (ShowsValue(i, j)) {
          AddValue(g_.Pillars[i][j], PillarText(i));
        }
      }
    }
    for (const PlanBleeder& bleeder : g_.Bleeders) {
      if (bleeder.Row == kRetreatRow) {
        AddValue(bleeder.Corners, BleederText(bleeder.Side));
      }
    }
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }

  // Values stand in the last row in front of the active gob, and in the last one of a line that is left.
  bool ShowsValue(int i, int j) const { return j == kRetreatRow || (j == kLastRow && g_.PillarDrawn[i][j]); }

  void AddValue(const PlanCorners& corners, const std::string& text) {
    if (!text.empty()) {
      const DrawPoint a = At(corners[0]);
      const DrawPoint b = At(corners[2]);
      pen_.Text({(a.X + b.X) / 2, (a.Y + b.Y) / 2}, text, true);
      // In a slanted pillar the height of the text takes of its length.
      const double across = b.X > a.X ? b.X - a.X : p_.EntryWidth;
      const double slope = std::abs(At(corners[1]).Y - a.Y) / across;
      const double length = TextLength(text);
      pen_.Fit(kFitting * (At(corners[3]).Y - a.Y) * length / (length + slope), kFitting * across);
    }
  }

  static std::string Shown(bool known, double value) { return known ? Whole(value) : std::string(); }

  std::string PillarText(int i) const {
    if (r_.PlotType == kPlotDimensions) {
      const PillarSize size = PillarSizeOf(r_, i);
      return Whole(size.Width) + "x" + Whole(size.Length);
    }
    return r_.PlotType == kPlotStrength ? Shown(values_.HasStrength, values_.Strength[i])
                                        : Shown(values_.HasTraditional, values_.Capacity[i]);
  }

  std::string BleederText(int side) const {
    if (r_.PlotType == kPlotDimensions) {
      return Whole(BleederWidth(p_, side)) + "x" + Whole(p_.XcutSpacing - p_.EntryWidth);
    }
    return r_.PlotType == kPlotStrength ? Shown(values_.HasRowStrength, values_.RowStrength[side])
                                        : Shown(values_.HasTraditional, values_.RowCapacity[side]);
  }

  // On a pillar's far side, from its left edge in the left wing, else up to its right edge.
  void AddStress(const PlanCorners& corners, const std::string& text, bool leftWing) {
    const DrawPoint left = At(corners[3]);
    const DrawPoint right = At(corners[2]);
    if (!(right.X > left.X)) {
      return;  // no pillar is left there
    }
    const double inset = kValueInset * (right.X - left.X);
    pen_.Text({leftWing ? left.X + inset : right.X - inset, 0}, text, false, leftWing ? 0 : 1);
    const double slope = (leftWing ? 1 : -1) * (right.Y - left.Y) / (right.X - left.X);
    const double along = left.Y - At(corners[0]).Y;
    pen_.Fit(kFitting * (right.X - left.X - inset),
             kFitting * along / (1 + std::abs(slope) * TextLength(text)));
    DrawText& made = pen_.Last();
    // One text below the edge above it, but no nearer to the edge beneath it than to that.
    const double height = pen_.Height() * made.Scale;
    const auto [low, high] = std::minmax({slope * inset, slope * (inset + TextLength(text) * height)});
    made.At.Y = (leftWing ? left.Y : right.Y) + std::max(low - height, (low + high - along) / 2);
  }

  void AddStresses() {
    const int middle = MiddleLine(p_);
    for (int i = 1; i <= Lines(); ++i) {
      const double tributary = r_.PlotType == kPlotTotalStress ? values_.TribStress : 0;
      const std::string text = Whole(values_.SideStress[i] + tributary);
      for (int j = 1; j <= kLastRow && values_.HasSideStress[i]; ++j) {
        if (g_.PillarDrawn[i][j]) {
          AddStress(g_.Pillars[i][j], text, i < middle);
        }
      }
    }
  }

  PlanPen& pen_;
  const PlanRequest& r_;
  const Project& p_;
  const PlanGeometry& g_;
  PlanValues values_;  // of the last run, or none
};

}  // namespace

double BleederWidth(const Project& project, int side) {
  return static_cast<double>(side == kFirstSideLine ? project.WidthRowC : project.WidthRowD);
}

void AddPillarTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry) {
  PillarTexts(pen, request, geometry).Add();
}

}  // namespace korva
