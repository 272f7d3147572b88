// Panel geometry, row strengths and capacities, and what rows A and B leave of the panel.
#include "model/Steps.h"

namespace korva {

double PillarStrengthOf(double w, double l, double h, double coal) {
  return (0.54 * w / h - 0.18 * (w * w) / (h * l) + 0.64) * coal;
}

double LongPillarStrengthOf(double w, double h, double coal) {
  return w < h ? 0 : (0.64 + 0.54 * w / h) * coal;
}

void PanelGeometry(const WorkValues& w, double s, Results& r, const ArithmeticWatch& watch) {
  r.AMZArea = w.AMZBreadth * w.PanelWidth;
  watch.Step("AMZArea");
  r.PillarLength = (w.XcutSpacing - w.EntryWidth / s) * s;
  watch.Step("PillarLength");
  double pillarArea = 0;
  for (int i = 1; i <= w.NumRows; ++i) {
    r.PillarSide[i] = (w.EntryCenters[i] - w.EntryWidth) * (1 / s);
    watch.Step("PillarSide", i);
    r.PillarArea[i] = r.PillarLength * r.PillarSide[i];
    watch.Step("PillarArea", i);
    pillarArea += r.PillarArea[i];
  }
  r.AMZPillarArea = pillarArea * w.AMZBreadth / w.XcutSpacing;
  watch.Step("AMZPillarArea");
  r.ExtractionAMZ = (r.AMZArea - r.AMZPillarArea) / r.AMZArea;
  watch.Step("ExtractionAMZ");
}

void RowStrengths(const WorkValues& w, double s, Results& r, const ArithmeticWatch& watch) {
  double capacity = 0;
  for (int i = 1; i <= w.NumRows; ++i) {
    const bool longerThanWide = r.PillarLength > w.PillarWidth[i];
    r.PillarMinDim[i] = longerThanWide ? w.PillarWidth[i] : r.PillarLength;
    r.PillarMaxDim[i] = longerThanWide ? r.PillarLength / s : r.PillarSide[i];
    r.PillarStrength[i] = PillarStrengthOf(r.PillarMinDim[i], r.PillarMaxDim[i], w.EntryHeight, w.CoalStress);
    watch.Step("PillarStrength", i);
    if (r.PillarMinDim[i] == 0) {
      r.PillarStrength[i] = 0;
    }
    r.PillarCapacity[i] = r.PillarStrength[i] * r.PillarArea[i];
    watch.Step("PillarCapacity", i);
    capacity += r.PillarCapacity[i];
  }
  r.AMZCapacity = capacity * w.AMZBreadth / w.XcutSpacing;
  watch.Step("AMZCapacity");
}

void NetPanel(const WorkValues& w, Results& r, const ArithmeticWatch& watch) {
  int firstRow = 1;
  int lastRow = w.NumRows;
  r.NetPanelWidth = w.PanelWidth;
  if (w.LeaveRow[kRowA]) {
    r.NetPanelWidth -= w.EntryCenters[1];
    firstRow = 2;
  }
  if (w.LeaveRow[kRowB]) {
    r.NetPanelWidth -= w.EntryCenters[w.NumRows];
    lastRow = w.NumRows - 1;
  }
  r.NetAMZArea = r.NetPanelWidth * w.AMZBreadth;
  watch.Step("NetAMZArea");
  double capacity = 0;
  for (int i = firstRow; i <= lastRow; ++i) {
    capacity += r.PillarCapacity[i];
  }
  r.NetAMZCapacity = capacity * w.AMZBreadth / w.XcutSpacing;
  watch.Step("NetAMZCapacity");
}

}  // namespace korva
