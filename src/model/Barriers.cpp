// Leave rows, barrier and remnant pillars: what they carry, and what they throw back on the active mining
// zone.
#include <algorithm>

#include "model/Steps.h"

namespace korva {

namespace {

// A barrier or remnant whose factor is below this sends load back.
constexpr double kSoundFactor = 1.5;
constexpr double kTransferRate = 0.67;
constexpr double kFullTransferFactor = 0.5;
constexpr double kLeastExcess = 0.01;
constexpr double kLargestShownShare = 0.999;

void RemnantTransfer(const WorkValues& w, Results& r, int c, int k) {
  if (r.RemnantWidth[k] > 0) {
    if (!(r.RemnantSF[k] > kSoundFactor)) {
      r.LTRANSREM[c][k] += (kSoundFactor - r.RemnantSF[k]) * kTransferRate * r.LFBAR[c][k];
    }
    r.LTRANSREM[c][k] = std::min(r.LTRANSREM[c][k], r.LFBAR[c][k]);
  } else {
    r.LTRANSREM[c][k] = r.LFBAR[c][k];
    r.RemnantSF[k] = 0;
  }
  const double front =
      w.BarrierWidth[k] == 0
          ? 0
          : (w.EntryWidth / 2 + w.BarrierWidth[k]) * r.AbutLoad[kFront] * r.RFront - r.SlabLoad[c][k];
  r.BarFrontLoad[c][k] =
      r.RemnantSF[k] < kSoundFactor ? (kSoundFactor - r.RemnantSF[k]) * kTransferRate * front : 0;
}

// Shares of side `k`'s load over the first three rows, as stresses.
void DistributeSideLoad(const WorkValues& w, Results& r, int c, int k,
                        IndexedArray<double, 1, kSideStressRows>& stress, const ArithmeticWatch& watch) {
  if (r.RSide[k] == 1) {
    r.RSide[k] = kLargestShownShare;  // kept, and shown on the AMZ page
  }
  double x = w.BarrierWidth[k];
  double before = w.BarrierWidth[k] > 0 ? r.RSide[k] : 0;
  for (int i = 1; i <= std::min(kSideStressRows, w.NumRows); ++i) {
    x += w.EntryCenters[i];
    const double share = ShareWithin(r.AbutExtent, x);
    stress[i] = (r.LTRANSBAR[c][k] + r.AMZLoad[c][k]) / w.AMZBreadth * ((share - before) / (1 - r.RSide[k])) *
                w.XcutSpacing / r.PillarArea[i];
    watch.Step("SideStress", i);
    before = share;
  }
}

}  // namespace

void LeaveRows(const WorkValues& w, Results& r, const ArithmeticWatch& watch) {
  for (int j = kFirstSide; j <= kSecondSide; ++j) {
    if (w.LeaveRow[j]) {
      const double width = w.LeaveRowWidth[j];
      r.RowStrength[j] = PillarStrengthOf(width, w.XcutClear, w.EntryHeight, w.CoalStress);
      r.RowCapacity[j] = width * r.RowStrength[j] * w.XcutClear;
      r.RowTribLoad[j] = (w.EntryWidth + width) * w.XcutSpacing * w.DepthCover * w.UnitWt;
    }
    const double excess = (r.RowCapacity[j] - r.RowTribLoad[j]) * (w.AMZBreadth / w.XcutSpacing);
    r.RowExcess[j] = excess < kLeastExcess ? 0 : excess;
    watch.Step("RowExcess", j);
  }
}

void BarrierStrengths(const WorkValues& w, Results& r, const ArithmeticWatch& watch) {
  for (int k = kFirstSide; k <= kSecondSide; ++k) {
    r.BarrierStrength[k] = LongPillarStrengthOf(w.BarrierWidth[k], w.EntryHeight, w.CoalStress);
    r.BarrierCapacity[k] = w.BarrierWidth[k] * r.BarrierStrength[k] * w.AMZBreadth;
    r.BarrierCapacity[k] += r.RowExcess[k];
    watch.Step("BarrierCapacity", k);
  }
}

void Remnants(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  for (const int k : SideGobs(w.LoadCond)) {
    r.RemnantWidth[k] = w.BarrierWidth[k] - w.SlabDepth[k];
    if (r.RemnantLength != 0 && r.RemnantWidth[k] != 0) {
      r.RemnantLoad[c][k] = r.RemnantLength * r.AbutLoad[k] + r.LFBAR[c][k] +
                            w.UnitWt * w.DepthCover * r.RemnantWidth[k] * r.RemnantLength;
    }
    r.RemnantStrength[k] = LongPillarStrengthOf(r.RemnantWidth[k], w.EntryHeight, w.CoalStress);
    r.RemnantOwnCapacity[k] = r.RemnantLength * r.RemnantStrength[k] * r.RemnantWidth[k];
    r.RemnantCapacity[k] = r.RemnantLength * r.RowExcess[k] / w.XcutSpacing + r.RemnantOwnCapacity[k];
    watch.Step("RemnantCapacity", k);
    if (r.RemnantLoad[c][k] != 0) {
      r.RemnantSF[k] = r.RemnantCapacity[k] / r.RemnantLoad[c][k];
    }
    RemnantTransfer(w, r, c, k);
    watch.Step("RemnantSF", k);
  }
}

void BarrierLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  const double off = 1 - static_cast<double>(r.Fpa);  // what the pressure arch takes off the AMZ
  for (const int k : SideGobs(w.LoadCond)) {
    r.BarArchLoad[c][k] =
        (r.DevLoad + r.AMZLoad[c][kFront]) * (off / 2) + (r.LTRANSREM[c][k] + r.AMZLoad[c][k]) * off;
    watch.Step("BarArchLoad", k);
    if (w.BarrierWidth[k] == 0) {
      continue;
    }
    r.BarTribLoad[c][k] = (w.EntryWidth / 2 + w.BarrierWidth[k]) * (w.UnitWt * w.DepthCover) * w.AMZBreadth;
    r.BarSideLoad[c][k] = r.AbutLoad[k] * r.RSide[k] * w.AMZBreadth;
    r.BarTotalLoad[c][k] = r.BarTribLoad[c][k] + r.BarFrontLoad[c][k] + r.BarSideLoad[c][k] +
                           r.BarArchLoad[c][k] + r.SlabLoad[c][k];
    watch.Step("BarTotalLoad", k);
  }
}

void BarrierTransfer(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  for (const int k : SideGobs(w.LoadCond)) {
    const double load = r.BarSideLoad[c][k] + r.BarArchLoad[c][k];
    if (w.BarrierWidth[k] != 0) {
      r.BarrierSF[c][k] = r.BarrierCapacity[k] / r.BarTotalLoad[c][k];
      watch.Step("BarrierSF", k);
      r.LTRANSBAR[c][k] = r.BarrierSF[c][k] > kSoundFactor ? 0 : load * (kSoundFactor - r.BarrierSF[c][k]);
    }
    if (r.BarrierSF[c][k] < kFullTransferFactor) {
      r.LTRANSBAR[c][k] = load;
    }
    watch.Step("LTRANSBAR", k);
  }
}

void BarrierStresses(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  for (const int k : SideGobs(w.LoadCond)) {
    if (!(w.BarrierWidth[k] > 0)) {
      continue;
    }
    const double area = w.AMZBreadth * w.BarrierWidth[k];
    r.BarTribStress[k] = r.BarTribLoad[c][k] / area;
    r.BarFrontStress[k] = r.BarFrontLoad[c][k] / area;
    r.BarSideStress[k] = r.BarSideLoad[c][k] / area;
    r.BarTotalStress[k] = (r.BarTribLoad[c][k] + r.BarFrontLoad[c][k] + r.BarSideLoad[c][k]) / area;
    watch.Step("BarTotalStress", k);
  }
  r.TribStress = static_cast<float>(1 / (1 - r.ExtractionAMZ) * w.UnitWt * w.DepthCover);
  watch.Step("TribStress");
}

void SideStresses(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  if (w.LoadCond >= kOneSideGob) {
    DistributeSideLoad(w, r, c, kFirstSide, r.SideStressFirst, watch);
  }
  if (w.LoadCond == kTwoSideGobs) {
    DistributeSideLoad(w, r, c, kSecondSide, r.SideStressSecond, watch);
  }
}

}  // namespace korva
