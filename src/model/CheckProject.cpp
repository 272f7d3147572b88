#include <fmt/format.h>

#include "core/Limits.h"
#include "core/Refusals.h"
#include "model/KORVAmodel.h"

namespace korva {

namespace {

struct Check {
  bool failed;
  std::string_view message;
};

bool IsAngle(double degrees) {
  return degrees >= 0 && degrees <= kGreatestAngle;
}

}  // namespace

std::optional<std::string> CheckProject(const Project& p) {
  const bool first = HasFirstSideGob(p);
  const bool second = p.LoadingCondition >= PanelLoading::kWithBothSideGobs;

  // The upper bounds of angles and slab cuts hold even when a gob plays no part, the slab cut against a left
  // row is refused on both sides from the first side gob on, and a sibling's condition is held to the bounds
  // of the second side gob, too.
  const Check checks[] = {
      {!(p.EntryHeight > 0), kInvalidEntryHeight},
      {!(p.DepthCover > 0), kInvalidDepthCover},
      {!IsAngle(p.XcutAngle), kInvalidXcutAngle},
      {!(p.EntryWidth > 0), kInvalidEntryWidth},
      {!(p.XcutSpacing > 0), kInvalidXcutSpacing},
      {!(p.CoalStrength > 0), kInvalidCoalStrength},
      {!(p.BreadthAMZ > 0), kInvalidBreadthAMZ},
      {!(p.UnitWeight > 0), kInvalidUnitWeight},
      {p.ArchFactor < 0 || p.ArchFactor > kGreatestArchFactor, kInvalidArchPercent},
      {IsSet(p.RowC) && !(p.WidthRowC > 0), kInvalidWidthRowC},
      {IsSet(p.RowD) && !(p.WidthRowD > 0), kInvalidWidthRowD},
      {first && IsSet(p.RowA) && p.SlabcutFirstGob > 0, kSlabCutAtRowA},
      {first && IsSet(p.RowB) && p.SlabcutSecondGob > 0, kSlabCutAtRowB},
      {p.ExtentActiveGob < 0, kInvalidExtentActiveGob},
      {!IsAngle(p.AbutmentAngleActiveGob), kInvalidAngleActiveGob},
      {first && p.ExtentFirstGob < 0, kInvalidExtentFirstGob},
      {(first && p.AbutmentAngleFirstGob < 0) || p.AbutmentAngleFirstGob > kGreatestAngle,
       kInvalidAngleFirstGob},
      {first && p.BarrierFirstGob < 0, kInvalidBarrierFirstGob},
      {(first && p.SlabcutFirstGob < 0) || p.SlabcutFirstGob > p.BarrierFirstGob, kInvalidSlabcutFirstGob},
      {second && p.ExtentSecondGob < 0, kInvalidExtentSecondGob},
      {(second && p.AbutmentAngleSecondGob < 0) || p.AbutmentAngleSecondGob > kGreatestAngle,
       kInvalidAngleSecondGob},
      {second && p.BarrierSecondGob < 0, kInvalidBarrierSecondGob},
      {(second && p.SlabcutSecondGob < 0) || p.SlabcutSecondGob > p.BarrierSecondGob,
       kInvalidSlabcutSecondGob},
  };
  for (const Check& check : checks) {
    if (check.failed) {
      return std::string(check.message);
    }
  }
  for (int i = 1; i <= PillarRows(p); ++i) {
    if (!(p.XcutCenters[i] > 0)) {
      return fmt::format("Invalid center-to-center distance #{}", i);
    }
  }
  return std::nullopt;
}

}  // namespace korva
