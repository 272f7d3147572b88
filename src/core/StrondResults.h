// What the laminated overburden model computes, by the names that the whole program knows.
#pragma once

#include "core/IndexedArray.h"

namespace korva {

inline constexpr int kStrondPillars = 9;

// Indices are those of the solver's files, from 0 on. Case: 0 development, 1 retreat. Side: 0 first, 1
// second. Quantity: 0 strength (psi or Pa), 1 area (ft2 or m2), 2 development load, 3 retreat load (lb or N).
struct StrondResults {
  IndexedArray<double, 0, 1> StrondSF;                              // [case]
  IndexedArray<IndexedArray<float, 0, 1>, 0, 1> StrondBarrierSF;    // [case][side]
  IndexedArray<IndexedArray<float, 0, 1>, 0, 1> StrondRemnantSF;    // [case][side]
  IndexedArray<float, 0, kStrondPillars - 1> StrondPillarStrength;  // [pillar]
  IndexedArray<IndexedArray<float, 0, 3>, 0, 1> StrondBarrierData;  // [side][quantity]
  IndexedArray<IndexedArray<float, 0, 3>, 0, 1> StrondRemnantData;  // [side][quantity]
};

// Calls visit(name, array) for every array, by name.
template <class Visit>
void VisitStrondResults(const StrondResults& results, Visit&& visit) {
  visit("StrondSF", results.StrondSF);
  visit("StrondBarrierSF", results.StrondBarrierSF);
  visit("StrondRemnantSF", results.StrondRemnantSF);
  visit("StrondPillarStrength", results.StrondPillarStrength);
  visit("StrondBarrierData", results.StrondBarrierData);
  visit("StrondRemnantData", results.StrondRemnantData);
}

}  // namespace korva
