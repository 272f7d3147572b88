// What a parametric sweep yields, by the names that the whole program knows.
#pragma once

#include <cstdint>
#include <vector>

#include "core/IndexedArray.h"

namespace korva {

// The parametric graphs, by the index of their command.
enum GraphKind : std::int16_t {
  kEntryHeightGraph = 0,
  kDepthGraph,
  kXcutAngleGraph,
  kXcutSpacingGraph,
  kFirstBarrierGraph,
  kSecondBarrierGraph,
  kBarrierDepthGraph
};
inline constexpr int kGraphs = 7;

inline constexpr int kMostCurves = 4;  // development and retreat: traditional, then laminated

struct SweepData {
  std::int16_t GraphIndex = 0;
  std::int16_t CurveCount = 2;     // 2, or 4 with the laminated model
  std::int32_t PointCount = 0;     // that are filled
  std::int32_t PointCapacity = 0;  // at least one more than points are filled
  // Column 0 the swept values (degrees for the crosscut angle), 1 to 4 the curves; points from 0 on.
  IndexedArray<std::vector<float>, 0, kMostCurves> GraphData;
};

}  // namespace korva
