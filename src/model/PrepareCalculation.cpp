#include <algorithm>
#include <cmath>

#include "core/ArithmeticWatch.h"
#include "model/KORVAmodel.h"

namespace korva {

namespace {

constexpr double kKPaPerMPa = 1000;

double GobAngleRadians(double degrees) {
  return degrees < 90 ? degrees * kRadiansPerDegree : kSteepestGobAngle;
}

void FillGobs(const Project& p, WorkValues& w) {
  w.ExtentActiveGob = p.ExtentActiveGob;
  w.GobExtent[kFront] = p.ExtentActiveGob;
  w.GobExtent[kFirstSide] = p.ExtentFirstGob;
  w.GobExtent[kSecondSide] = p.ExtentSecondGob;
  w.GobAngle[kFront] = GobAngleRadians(p.AbutmentAngleActiveGob);
  w.GobAngle[kFirstSide] = GobAngleRadians(p.AbutmentAngleFirstGob);
  w.GobAngle[kSecondSide] = GobAngleRadians(p.AbutmentAngleSecondGob);
  std::transform(w.GobAngle.begin(), w.GobAngle.end(), w.GobTangent.begin(),
                 [](double angle) { return std::tan(angle); });
  w.BarrierWidth[kFirstSide] = p.BarrierFirstGob;
  w.BarrierWidth[kSecondSide] = p.BarrierSecondGob;
  w.SlabCut[kFirstSide] = p.SlabcutFirstGob;
  w.SlabCut[kSecondSide] = p.SlabcutSecondGob;
  w.SlabDepth = w.SlabCut;
}

void FillLeaveRows(const Project& p, WorkValues& w) {
  w.LeaveRow[kRowA] = IsSet(p.RowA);
  w.LeaveRow[kRowB] = IsSet(p.RowB);
  w.LeaveRow[kFirstSide] = IsSet(p.RowC);
  w.LeaveRow[kSecondSide] = IsSet(p.RowD);
  w.LeaveRowWidth[kFirstSide] = static_cast<double>(p.WidthRowC);
  w.LeaveRowWidth[kSecondSide] = static_cast<double>(p.WidthRowD);
}

}  // namespace

RunLoading RunLoadingOf(PanelLoading loading) {
  switch (loading) {
    case PanelLoading::kDevelopmentLoad:
      return kNoGob;
    case PanelLoading::kActiveSection:
      return kActiveGob;
    case PanelLoading::kWithFirstSideGob:
    case PanelLoading::kVoskFirstSideGob:
      return kOneSideGob;
    case PanelLoading::kWithBothSideGobs:
      return kTwoSideGobs;
  }
  return kUnknown;
}

Prepared PrepareCalculation(const Project& p, UnitSystem units) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  Prepared prepared;
  WorkValues& w = prepared.Run.Work;
  w.Units = units;
  w.EntryHeight = p.EntryHeight;
  w.DepthCover = p.DepthCover;
  w.EntryWidth = p.EntryWidth;
  w.XcutSpacing = p.XcutSpacing;
  w.CoalStress = p.CoalStrength * (units == kMetric ? kKPaPerMPa : kSquareInchesPerSquareFoot);
  watch.Step("CoalStress");
  w.UnitWt = p.UnitWeight;
  w.AMZBreadth = p.BreadthAMZ;
  w.XcutClear = p.XcutSpacing - p.EntryWidth;
  w.XcutAngleRadians = p.XcutAngle * kRadiansPerDegree;
  watch.Step("XcutClear");

  w.NumRows = PillarRows(p);
  for (int i = 1; i <= w.NumRows; ++i) {
    w.EntryCenters[i] = p.XcutCenters[i];
    w.PillarWidth[i] = p.XcutCenters[i] - p.EntryWidth;
    w.PanelWidth += p.XcutCenters[i];
  }
  watch.Step("PanelWidth");
  FillGobs(p, w);
  FillLeaveRows(p, w);
  w.ArchAuto = ComputesArch(p);
  w.ArchFactor = p.ArchFactor;
  prepared.Run.Out.Fpa = p.ArchFactor;
  w.LoadCond = RunLoadingOf(p.LoadingCondition);

  prepared.Refusal = CheckProject(p);
  return prepared;
}

}  // namespace korva
