// The stability factors of a panel in the laminated model.
#pragma once

#include <array>

#include "Layout.h"
#include "Membrane.h"

namespace korva::laminated {

enum Case : int { kDevelopment = 0, kRetreat = 1 };
inline constexpr int kCases = 2;

// Strength, area and the load of each case on a barrier or remnant: psi or Pa, ft2 or m2, lb or N.
struct Support {
  double Strength = 0;
  double Area = 0;
  std::array<double, kCases> Load{};

  // Strength times area over load; 0 where nothing bears or nothing is borne.
  double Factor(int c, bool metric) const;
};

// How the numbers of one case came about.
struct CaseRun {
  SolveOutcome Outcome;  // of the last solution
  int Iterations = 0;    // of all solutions
  int Solutions = 0;
  Yield Kept;
};

struct Factors {
  std::array<double, kCases> Pillars{};  // of the active mining zone
  std::array<double, kMostRows> PillarStrength{};
  std::array<Support, kSides> Barrier;
  std::array<Support, kSides> Remnant;
  std::array<std::array<double, kSides>, kCases> BarrierFactor{};  // case, side
  std::array<std::array<double, kSides>, kCases> RemnantFactor{};
  Grid Cells;
  std::array<CaseRun, kCases> Runs;
};

struct FactorRule {
  GridRule Cells{};
  SolveRule Solution{};
  bool Yields = true;  // overloaded barriers, remnants and bleeder rows give way
  int MostYieldSteps = 60;
};

// Strength over strength of coal: of a pillar with least and greatest width w and l, and of a long one, both
// of height h. A long pillar that is narrower than high counts for nothing.
double PillarShape(double w, double l, double h);
double LongPillarShape(double w, double h);

// Whether every factor, strength, area and load is a number.
bool AreFinite(const Factors& factors);

// Solves both cases. Failure KORVASTROND_NO_CONVERGENCE and KORVASTROND_NO_YIELD_BALANCE.
Factors ComputeFactors(const Panel& panel, const FactorRule& rule = {});

}  // namespace korva::laminated
