// One run of the traditional loading model: its working values and its results.
#pragma once

#include <algorithm>

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
using ByStage = IndexedArray<T, kTributary, kSecondSide>;
template <class T>
using ByGob = IndexedArray<T, kFront, kSecondSide>;

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
struct Results {
  ByCase<double> SFKorva;
  ByCase<BySide<double>> BarrierSF;
  BySide<double> RemnantSF;

  ByRow<double> PillarArea;
  ByRow<double> PillarMinDim;
  ByRow<double> PillarMaxDim;
  ByRow<double> PillarSide;
  ByRow<double> PillarStrength;
  ByRow<double> PillarCapacity;

  BySide<double> BarrierStrength;
  BySide<double> BarrierCapacity;  // within the AMZ
  ByGob<double> AbutLoad;          // per unit length of gob edge
  BySide<double> RSide;            // share of a side abutment that the barrier carries
  ByCase<ByStage<double>> AMZLoad;
  ByCase<ByStage<double>> LTRANSBAR;
  ByCase<ByStage<double>> LTRANSREM;
  ByCase<ByStage<double>> AMZTotalLoad;  // cumulative, through the stage

  ByCase<BySide<double>> BarTribLoad;
  ByCase<BySide<double>> BarFrontLoad;
  ByCase<BySide<double>> BarSideLoad;
  ByCase<BySide<double>> BarArchLoad;
  ByCase<BySide<double>> BarTotalLoad;
  ByCase<BySide<double>> SlabLoad;
  ByCase<BySide<double>> LFBAR;
  ByCase<BySide<double>> RemnantLoad;

  BySide<double> RemnantWidth;
  BySide<double> RemnantStrength;
  BySide<double> RemnantOwnCapacity;
  BySide<double> RemnantCapacity;
  BySide<double> RowStrength;  // leave rows C and D
  BySide<double> RowCapacity;
  BySide<double> RowTribLoad;
  BySide<double> RowExcess;
  BySide<double> BarTribStress;
  BySide<double> BarFrontStress;
  BySide<double> BarSideStress;
  BySide<double> BarTotalStress;
  IndexedArray<double, 1, kSideStressRows> SideStressFirst;
  IndexedArray<double, 1, kSideStressRows> SideStressSecond;

  double AMZArea = 0;
  double AMZPillarArea = 0;
  double ExtractionAMZ = 0;
  double PillarLength = 0;
  double AMZCapacity = 0;
  double NetPanelWidth = 0;
  double NetAMZArea = 0;
  double NetAMZCapacity = 0;
  double DevLoad = 0;
  double AbutExtent = 0;
  double RFront = 0;
  double TanAbut = 0;
  double CritHalf = 0;
  double FrontWidth = 0;
  double RemnantLength = 0;
  float Fpa = 0;
  float TribStress = 0;
};

// Calls visit(name, member) for every result, in the order above.
template <class ResultsRecord, class Visitor>
void VisitResults(ResultsRecord& r, Visitor&& visit) {
#define KORVA_VISIT(name) visit(#name, r.name)
  KORVA_VISIT(SFKorva);
  KORVA_VISIT(BarrierSF);
  KORVA_VISIT(RemnantSF);
  KORVA_VISIT(PillarArea);
  KORVA_VISIT(PillarMinDim);
  KORVA_VISIT(PillarMaxDim);
  KORVA_VISIT(PillarSide);
  KORVA_VISIT(PillarStrength);
  KORVA_VISIT(PillarCapacity);
  KORVA_VISIT(BarrierStrength);
  KORVA_VISIT(BarrierCapacity);
  KORVA_VISIT(AbutLoad);
  KORVA_VISIT(RSide);
  KORVA_VISIT(AMZLoad);
  KORVA_VISIT(LTRANSBAR);
  KORVA_VISIT(LTRANSREM);
  KORVA_VISIT(AMZTotalLoad);
  KORVA_VISIT(BarTribLoad);
  KORVA_VISIT(BarFrontLoad);
  KORVA_VISIT(BarSideLoad);
  KORVA_VISIT(BarArchLoad);
  KORVA_VISIT(BarTotalLoad);
  KORVA_VISIT(SlabLoad);
  KORVA_VISIT(LFBAR);
  KORVA_VISIT(RemnantLoad);
  KORVA_VISIT(RemnantWidth);
  KORVA_VISIT(RemnantStrength);
  KORVA_VISIT(RemnantOwnCapacity);
  KORVA_VISIT(RemnantCapacity);
  KORVA_VISIT(RowStrength);
  KORVA_VISIT(RowCapacity);
  KORVA_VISIT(RowTribLoad);
  KORVA_VISIT(RowExcess);
  KORVA_VISIT(BarTribStress);
  KORVA_VISIT(BarFrontStress);
  KORVA_VISIT(BarSideStress);
  KORVA_VISIT(BarTotalStress);
  KORVA_VISIT(SideStressFirst);
  KORVA_VISIT(SideStressSecond);
  KORVA_VISIT(AMZArea);
  KORVA_VISIT(AMZPillarArea);
  KORVA_VISIT(ExtractionAMZ);
  KORVA_VISIT(PillarLength);
  KORVA_VISIT(AMZCapacity);
  KORVA_VISIT(NetPanelWidth);
  KORVA_VISIT(NetAMZArea);
  KORVA_VISIT(NetAMZCapacity);
  KORVA_VISIT(DevLoad);
  KORVA_VISIT(AbutExtent);
  KORVA_VISIT(RFront);
  KORVA_VISIT(TanAbut);
  KORVA_VISIT(CritHalf);
  KORVA_VISIT(FrontWidth);
  KORVA_VISIT(RemnantLength);
  KORVA_VISIT(Fpa);
  KORVA_VISIT(TribStress);
#undef KORVA_VISIT
}

// One object a run: two runs may go on two threads.
struct Calculation {
  WorkValues Work;
  Results Out;
};

}  // namespace korva
