// One run of the traditional loading model: its working values and its results.
#pragma once

#include <algorithm>
#include <cstddef>

#include "core/IndexRange.h"
#include "core/IndexedArray.h"
#include "core/Project.h"

namespace korva {

// Index ranges: pillar row i 1 to 9; case 1 Development, 2 Retreat; side k 3 first, 4 second side gob; stage
// j 1 tributary, 2 front abutment, 3 first side, 4 second side abutment.
inline constexpr int kDevelopment = 1;
inline constexpr int kRetreat = 2;
inline constexpr int kTributary = 1;
inline constexpr int kFront = 2;
inline constexpr int kFirstSide = 3;
inline constexpr int kSecondSide = 4;
inline constexpr int kRowA = 1;
inline constexpr int kRowB = 2;
inline constexpr int kSideStressRows = 3;  // over which the load of a side is shared

template <class T>
using ByRow = IndexedArray<T, 1, kMaxRows>;
template <class T>
using ByCase = IndexedArray<T, kDevelopment, kRetreat>;
template <class T>
using BySide = IndexedArray<T, kFirstSide, kSecondSide>;
template <class T>
using BySideRow = IndexedArray<T, 1, kSideStressRows>;
template <class T>
using ByStage = IndexedArray<T, kTributary, kSecondSide>;
template <class T>
using ByGob = IndexedArray<T, kFront, kSecondSide>;

// The places of case c and side k in tables of two.
constexpr std::size_t StageIndex(int c) {
  return static_cast<std::size_t>(c - kDevelopment);
}
constexpr std::size_t SideIndex(int k) {
  return static_cast<std::size_t>(k - kFirstSide);
}

// The loading condition as a run takes it: the last stage j whose load it adds up. Each one adds to those
// before it.
enum class RunLoading : int {
  kUnknown = 0,     // of a record whose condition the model does not know
  kNoGob = 1,       // development load
  kActiveGob = 2,   // one active retreat section
  kOneSideGob = 3,  // and one side gob
  kTwoSideGobs = 4  // and two side gobs
};
using enum RunLoading;

RunLoading RunLoadingOf(PanelLoading loading);

constexpr int LastStage(RunLoading loading) {
  return static_cast<int>(loading);
}

// How many side gobs take part, and their sides k.
constexpr int SideGobCount(RunLoading loading) {
  return std::max(0, LastStage(loading) - kFront);
}
constexpr IndexRange SideGobs(RunLoading loading) {
  return {kFirstSide, LastStage(loading)};
}

// The angle that an abutment angle of 90 degrees or more is calculated with, 89.9 degrees in radians.
inline constexpr double kSteepestGobAngle = 1.5690509975429008;

// What the formulas read, derived from the project record. Lengths in ft or m, unit weight in pcf or kN/m3,
// CoalStress in psf or kPa, angles in radians.
struct WorkValues {
  UnitSystem Units = kEnglish;
  double EntryHeight = 0;
  double DepthCover = 0;
  double EntryWidth = 0;
  double XcutSpacing = 0;
  double XcutAngleRadians = 0;
  double CoalStress = 0;
  double UnitWt = 0;
  double AMZBreadth = 0;
  double XcutClear = 0;
  int NumRows = 0;
  double PanelWidth = 0;
  ByRow<double> EntryCenters;
  ByRow<double> PillarWidth;
  ByGob<double> GobExtent;  // that of the active gob is 0 in the development case
  ByGob<double> GobAngle;
  ByGob<double> GobTangent;  // of that angle
  BySide<double> BarrierWidth;
  BySide<double> SlabDepth;  // 0 in the development case
  ByStage<bool> LeaveRow;    // rows A to D
  BySide<double> LeaveRowWidth;
  bool ArchAuto = true;
  float ArchFactor = 1;
  RunLoading LoadCond = kUnknown;

  // What the retreat case takes.
  double ExtentActiveGob = 0;
  BySide<double> SlabCut;
};

// Loads and capacities in lb or kN, stresses and strengths in psf or kPa, lengths and areas in ft or m.
// Arrays without a case hold what the retreat case left. What a run does not write is 0.
#define KORVA_RESULTS(X)                                                                     \
  X(ByCase<double>, SFKorva)                                                                 \
  X(ByCase<BySide<double>>, BarrierSF)                                                       \
  X(BySide<double>, RemnantSF)                                                               \
  X(ByRow<double>, PillarArea)                                                               \
  X(ByRow<double>, PillarMinDim)                                                             \
  X(ByRow<double>, PillarMaxDim)                                                             \
  X(ByRow<double>, PillarSide)                                                               \
  X(ByRow<double>, PillarStrength)                                                           \
  X(ByRow<double>, PillarCapacity)                                                           \
  X(BySide<double>, BarrierStrength)                                                         \
  X(BySide<double>, BarrierCapacity) /* within the AMZ */                                    \
  X(ByGob<double>, AbutLoad)         /* per unit length of gob edge */                       \
  X(BySide<double>, RSide)           /* share of a side abutment that the barrier carries */ \
  X(ByCase<ByStage<double>>, AMZLoad)                                                        \
  X(ByCase<ByStage<double>>, LTRANSBAR)                                                      \
  X(ByCase<ByStage<double>>, LTRANSREM)                                                      \
  X(ByCase<ByStage<double>>, AMZTotalLoad) /* cumulative, through the stage */               \
  X(ByCase<BySide<double>>, BarTribLoad)                                                     \
  X(ByCase<BySide<double>>, BarFrontLoad)                                                    \
  X(ByCase<BySide<double>>, BarSideLoad)                                                     \
  X(ByCase<BySide<double>>, BarArchLoad)                                                     \
  X(ByCase<BySide<double>>, BarTotalLoad)                                                    \
  X(ByCase<BySide<double>>, SlabLoad)                                                        \
  X(ByCase<BySide<double>>, LFBAR)                                                           \
  X(ByCase<BySide<double>>, RemnantLoad)                                                     \
  X(BySide<double>, RemnantWidth)                                                            \
  X(BySide<double>, RemnantStrength)                                                         \
  X(BySide<double>, RemnantOwnCapacity)                                                      \
  X(BySide<double>, RemnantCapacity)                                                         \
  X(BySide<double>, RowStrength) /* leave rows C and D */                                    \
  X(BySide<double>, RowCapacity)                                                             \
  X(BySide<double>, RowTribLoad)                                                             \
  X(BySide<double>, RowExcess)                                                               \
  X(BySide<double>, BarTribStress)                                                           \
  X(BySide<double>, BarFrontStress)                                                          \
  X(BySide<double>, BarSideStress)                                                           \
  X(BySide<double>, BarTotalStress)                                                          \
  X(BySideRow<double>, SideStressFirst)                                                      \
  X(BySideRow<double>, SideStressSecond)                                                     \
  X(double, AMZArea)                                                                         \
  X(double, AMZPillarArea)                                                                   \
  X(double, ExtractionAMZ)                                                                   \
  X(double, PillarLength)                                                                    \
  X(double, AMZCapacity)                                                                     \
  X(double, NetPanelWidth)                                                                   \
  X(double, NetAMZArea)                                                                      \
  X(double, NetAMZCapacity)                                                                  \
  X(double, DevLoad)                                                                         \
  X(double, AbutExtent)                                                                      \
  X(double, RFront)                                                                          \
  X(double, TanAbut)                                                                         \
  X(double, CritHalf)                                                                        \
  X(double, FrontWidth)                                                                      \
  X(double, RemnantLength)                                                                   \
  X(float, Fpa)                                                                              \
  X(float, TribStress)

struct Results {
#define KORVA_MEMBER(type, name) type name{};
  KORVA_RESULTS(KORVA_MEMBER)
#undef KORVA_MEMBER
};

// Calls visit(name, member) for every result, in the order above.
template <class ResultsRecord, class Visitor>
void VisitResults(ResultsRecord& r, Visitor&& visit) {
#define KORVA_VISIT(type, name) visit(#name, r.name);
  KORVA_RESULTS(KORVA_VISIT)
#undef KORVA_VISIT
}

// One object a run: two runs may go on two threads.
struct Calculation {
  WorkValues Work;
  Results Out;
};

}  // namespace korva
