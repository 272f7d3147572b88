// What a parametric sweep yields, by the names that the whole program knows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/FormNotice.h"
#include "core/IndexedArray.h"

namespace korva {

// The parametric graphs, by the index of their command.
enum GraphKind : int {
  kEntryHeightGraph = 0,
  kDepthGraph,
  kXcutAngleGraph,
  kXcutSpacingGraph,
  kFirstBarrierGraph,
  kSecondBarrierGraph,
  kBarrierDepthGraph
};
inline constexpr int kGraphs = 7;

// Whether a graph shows the factors of barriers.
constexpr bool IsBarrierGraph(GraphKind graph) {
  return graph >= kFirstBarrierGraph;
}

// Whether the factors of one of the models in a graph of barriers are those of the second one. Over depth the
// laminated ones are, and keep being so.
constexpr bool IsOfSecondBarrier(GraphKind graph, bool laminated) {
  return graph == kSecondBarrierGraph || (graph == kBarrierDepthGraph && laminated);
}

// Development and retreat: of the traditional model, then of the laminated one.
inline constexpr int kTraditionalCurves = 2;
inline constexpr int kMostCurves = 4;

constexpr bool IsLaminatedCurve(int curve) {
  return curve > kTraditionalCurves;
}

struct SweepData {
  GraphKind GraphIndex = kEntryHeightGraph;
  int CurveCount = kTraditionalCurves;  // or kMostCurves with the laminated model
  std::int32_t PointCount = 0;          // that are filled
  std::int32_t PointCapacity = 0;       // at least one more than points are filled
  // Column 0 the swept values (degrees for the crosscut angle), the curves from 1 on; points from 0 on.
  IndexedArray<std::vector<float>, 0, kMostCurves> GraphData;
  // Points of the laminated curves; fewer than PointCount where the laminated model did not come to the end.
  std::int32_t LaminatedCount = 0;
  // What the input form would refuse of the panel at each point; as many as PointCount, or none if nobody
  // asked.
  std::vector<std::vector<FormNotice>> Notices;
  // Why points are missing at the end; empty for a whole sweep.
  std::string Partial;

  std::int32_t PointsOf(int curve) const { return IsLaminatedCurve(curve) ? LaminatedCount : PointCount; }
};

}  // namespace korva
