#include <fmt/format.h>

#include "model/KORVAmodel.h"

namespace korva {

namespace {

struct Check {
  bool failed;
  const char* message;
};

bool IsAngle(double degrees) {
  return degrees >= 0 && degrees <= 90;
}

}  // namespace

std::optional<std::string> CheckProject(const Project& p) {
  const bool first = HasFirstSideGob(p);
  const bool second = HasSecondSideGob(p);

  // The upper bounds of angles and slab cuts hold even when a gob plays no part, and the slab cut against a
  // left row is refused on both sides from the first side gob on.
  const Check checks[] = {
      {!(p.EntryHeight > 0), "Invalid entry height"},
      {!(p.DepthCover > 0), "Invalid depth of cover"},
      {!IsAngle(p.XcutAngle), "Invalid crosscut angle"},
      {!(p.EntryWidth > 0), "Invalid entry width"},
      {!(p.XcutSpacing > 0), "Invalid crosscut spacing"},
      {!(p.CoalStrength > 0), "Invalid coal strength"},
      {!(p.BreadthAMZ > 0), "Invalid breadth of AMZ"},
      {!(p.UnitWeight > 0), "Invalid unit weight"},
      {p.ArchFactor < 0 || p.ArchFactor > 1, "Invalid Arch Percent"},
      {p.RowC == 1 && !(p.WidthRowC > 0), "Invalid Pillar Width for Row C"},
      {p.RowD == 1 && !(p.WidthRowD > 0), "Invalid Pillar Width for Row D"},
      {first && p.RowA == 1 && p.SlabcutFirstGob > 0,
       "Cannot take slab cut from first side barrier when Row A pillars are left"},
      {first && p.RowB == 1 && p.SlabcutSecondGob > 0,
       "Cannot take slab cut from second side barrier when Row B pillars are left"},
      {p.ExtentActiveGob < 0, "Invalid extent of active gob"},
      {!IsAngle(p.AbutmentAngleActiveGob), "Invalid abutment angle of active gob"},
      {first && p.ExtentFirstGob < 0, "Invalid extent of first gob"},
      {(first && p.AbutmentAngleFirstGob < 0) || p.AbutmentAngleFirstGob > 90,
       "Invalid abutment angle of first gob"},
      {first && p.BarrierFirstGob < 0, "Invalid extent of barrier of first gob"},
      {(first && p.SlabcutFirstGob < 0) || p.SlabcutFirstGob > p.BarrierFirstGob,
       "Invalid extent of slab cut in barrier of first gob"},
      {second && p.ExtentSecondGob < 0, "Invalid extent of second gob"},
      {(second && p.AbutmentAngleSecondGob < 0) || p.AbutmentAngleSecondGob > 90,
       "Invalid abutment angle of second gob"},
      {second && p.BarrierSecondGob < 0, "Invalid extent of barrier of second gob"},
      {(second && p.SlabcutSecondGob < 0) || p.SlabcutSecondGob > p.BarrierSecondGob,
       "Invalid extent of slab cut in barrier of second gob"},
  };
  for (const Check& check : checks) {
    if (check.failed) {
      return check.message;
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
