// Tributary, front and side abutment loads of a case, and what of them falls on the active mining zone.
#include <algorithm>
#include <cmath>

#include "model/Steps.h"

namespace korva {

namespace {

constexpr double kAbutmentExtent = 9.3;

// Abutment load per unit length of a gob's edge, for the gob's extent and the tangent of its abutment angle.
double AbutmentLoad(const WorkValues& w, double extent, double tangent) {
  const double h = w.DepthCover;
  if (extent / 2 > h * tangent) {  // supercritical
    return h * h * tangent * w.UnitWt / 2;
  }
  return (h * extent / 2 - extent * extent / (8 * tangent)) * w.UnitWt;
}

// The two volumes of overburden over a gob's corner of side `a`, as loads: beneath the abutment line and
// above it.
double CornerLoad(const WorkValues& w, double a, double tangent) {
  const double h = w.DepthCover;
  const double hS = h - a / tangent;
  const double v1 = a * hS * a / 2 * w.UnitWt;
  const double v2 = a * (h - hS) * a / 3 * w.UnitWt;
  return v1 + v2;
}

// Front abutment load on the AMZ and the length of a remnant. Returns whether the panel is narrower than the
// gob, and one of them subcritical.
bool FrontAbutment(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  const double h = w.DepthCover;
  const double g = w.UnitWt;
  const double width = r.FrontWidth;
  const double extent = w.GobExtent[kFront];
  const bool subcritical = width / 2 < r.CritHalf || extent / 2 < r.CritHalf;
  const bool narrow = subcritical && width < extent;
  if (narrow) {
    const double a = width / 2;
    r.AMZLoad[c][kFront] = 2 * CornerLoad(w, a, r.TanAbut) * r.RFront;
    r.RemnantLength = a;
  } else if (subcritical) {
    const double e = extent / 2;
    const double hS = h - e / r.TanAbut;
    const double m = width - extent;
    const double p1 = m * hS * e * g;
    const double p2 = m * (h - hS) * e / 2 * g;
    r.AMZLoad[c][kFront] = (2 * CornerLoad(w, e, r.TanAbut) + p1 + p2) * r.RFront;
    r.RemnantLength = e;
  } else {
    const double d = r.CritHalf;
    const double p = (width - 2 * d) * h * d / 2 * g;
    const double v = d * h * d / 3 * g;
    r.AMZLoad[c][kFront] = (2 * v + p) * r.RFront;
    r.RemnantLength = d;
  }
  watch.Step("AMZLoad", kFront);
  return narrow;
}

void FrontLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  const double h = w.DepthCover;
  r.AbutExtent = w.Units == kMetric
                     ? kAbutmentExtent * SquareRoot(h * kFeetPerMeter, "AbutExtent") / kFeetPerMeter
                     : kAbutmentExtent * SquareRoot(h, "AbutExtent");
  r.RFront = ShareWithin(r.AbutExtent, w.AMZBreadth);
  watch.Step("RFront");
  r.TanAbut = w.GobTangent[kFront];
  r.CritHalf = r.TanAbut * h;
  r.AbutLoad[kFront] = AbutmentLoad(w, w.GobExtent[kFront], r.TanAbut);
  watch.Step("AbutLoad", kFront);

  r.FrontWidth = r.NetPanelWidth;
  if (w.LoadCond > kActiveGob) {
    r.FrontWidth += w.SlabDepth[kFirstSide];
  }
  if (w.LoadCond == kTwoSideGobs) {
    r.FrontWidth += w.SlabDepth[kSecondSide];
  }
  const bool narrow = FrontAbutment(w, r, c, watch);

  for (const int k : SideGobs(w.LoadCond)) {
    r.SlabLoad[c][k] = CornerLoad(w, w.SlabDepth[k] / 2, r.TanAbut) * r.RFront;
    r.AMZLoad[c][kFront] -= r.SlabLoad[c][k];
    watch.Step("SlabLoad", k);
  }
  for (const int k : SideGobs(w.LoadCond)) {
    r.LFBAR[c][k] = narrow ? r.AMZLoad[c][kFront] / 2
                           : w.PanelWidth * r.AbutLoad[kFront] * r.RFront / 2 - r.AMZLoad[c][kFront] / 2;
    watch.Step("LFBAR", k);
  }
}

void SideLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  for (const int k : SideGobs(w.LoadCond)) {
    r.AbutLoad[k] = AbutmentLoad(w, w.GobExtent[k], w.GobTangent[k]);
    watch.Step("AbutLoad", k);
    r.RSide[k] =
        w.BarrierWidth[k] != 0 ? ShareWithin(r.AbutExtent, w.EntryWidth / 2 + w.BarrierWidth[k]) : 0.0;
    r.AMZLoad[c][k] = (1 - r.RSide[k]) * w.AMZBreadth * r.AbutLoad[k];
    watch.Step("AMZLoad", k);
  }
}

// Cumulative load on the AMZ by stage. LTRANSBAR comes in after the pressure arch factor, which does not
// reduce it.
void TotalLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  const auto fpa = static_cast<double>(r.Fpa);
  r.AMZTotalLoad[c][kTributary] = fpa * r.DevLoad;
  if (w.LoadCond >= kActiveGob) {
    r.AMZTotalLoad[c][kFront] = fpa * r.AMZLoad[c][kFront] + r.AMZTotalLoad[c][kTributary];
  }
  for (const int k : SideGobs(w.LoadCond)) {
    r.AMZTotalLoad[c][k] =
        (r.LTRANSREM[c][k] + r.AMZLoad[c][k]) * fpa + r.AMZTotalLoad[c][k - 1] + r.LTRANSBAR[c][k];
  }
  watch.Step("AMZTotalLoad", LastStage(w.LoadCond));
}

}  // namespace

double ShareWithin(double extent, double distance) {
  const double rest = (extent - distance) / extent;
  return std::min(1 - rest * rest * rest, 1.0);
}

void CaseLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  // Rows A and B are taken off the loaded area and the capacity under an active gob alone; with side gobs
  // they only narrow the front.
  const bool netPanel = w.LoadCond == kActiveGob;
  r.DevLoad = w.UnitWt * w.DepthCover * (netPanel ? r.NetAMZArea : r.AMZArea);
  watch.Step("DevLoad");
  if (w.LoadCond >= kActiveGob) {
    FrontLoads(w, r, c, watch);
  }
  if (w.LoadCond >= kOneSideGob) {
    SideLoads(w, r, c, watch);
    Remnants(w, r, c, watch);
    BarrierLoads(w, r, c, watch);
    BarrierTransfer(w, r, c, watch);
  }
  TotalLoads(w, r, c, watch);
  r.SFKorva[c] = (netPanel ? r.NetAMZCapacity : r.AMZCapacity) / r.AMZTotalLoad[c][LastStage(w.LoadCond)];
  watch.Step("SFKorva", c);
}

}  // namespace korva
