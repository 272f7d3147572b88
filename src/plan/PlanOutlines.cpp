#include "plan/PlanRecords.h"

namespace korva {

void AddOutlines(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry) {
  if (!geometry.ActiveGob.empty()) {
    pen.Polygon(DrawLayer::kGob, geometry.ActiveGob);
  }
  for (const PlanGobIndex gob : {kFirstGob, kFirstBarrier, kSecondBarrier, kSecondGob}) {
    if (geometry.GobDrawn[gob]) {
      const bool barrier = gob == kFirstBarrier || gob == kSecondBarrier;
      pen.Polygon(barrier ? DrawLayer::kBarrier : DrawLayer::kGob, geometry.Gobs[gob]);
    }
  }
  for (int i = 1; i < request.ProjectCalc.NumberEntries; ++i) {
    for (int j = 1; j <= kLastRow; ++j) {
      if (geometry.PillarDrawn[i][j]) {
        pen.Polygon(j > kRetreatRow ? DrawLayer::kLeaveRow : DrawLayer::kPillar, geometry.Pillars[i][j]);
      }
    }
  }
  for (const PlanBleeder& bleeder : geometry.Bleeders) {
    pen.Polygon(DrawLayer::kLeaveRow, bleeder.Corners);
  }
  if (request.Full && !geometry.ActiveMiningZone.empty()) {
    pen.Polygon(DrawLayer::kActiveMiningZone, geometry.ActiveMiningZone);
  }
}

}  // namespace korva
