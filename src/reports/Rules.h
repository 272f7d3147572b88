// The interpretive rules: how a run's factors are judged against the history of the case data base.
#pragma once

#include <string>
#include <string_view>

#include "core/IndexedArray.h"
#include "core/Project.h"
#include "core/Settings.h"
#include "model/Calculation.h"

namespace korva {

// What the rules compare, all in 32 bits; depth and width in feet whatever the project's units are.
struct RuleFacts {
  float Depth = 0;
  float PanelWidth = 0;
  float MeanRatio = 0;         // mean width-to-height ratio of the pillars
  ByCase<float> SF;            // through RoundSF
  float MinBarrierSF = 10000;  // smallest barrier factor that the page shows
  float CritSF = 0;            // factor asked for at this depth in a narrow panel, not yet rounded
};

// A limit in feet, in the 32 bits in which it is compared, and as the texts name it by unit system.
struct RuleLimit {
  float Feet;
  std::string_view English;
  std::string_view Metric;
};
inline constexpr RuleLimit kWideLimit = {425, "425 ft", "130 m"};
inline constexpr RuleLimit kModerateLimit = {650, "650 ft", "200 m"};
inline constexpr RuleLimit kDeepLimit = {1000, "1000 ft", "300 m"};
inline constexpr RuleLimit kExtremeLimit = {2000, "2000 ft", "600 m"};

// The rules by their numbers in RuleFlags; there is no number 4.
enum class Rule : int {
  kLowFactor = 0,
  kModerateDepth = 1,
  kDeepCover = 2,
  kLowBarrierFactor = 3,
  kSlenderPillars = 5,
  kExtremeDepth = 6,
  kBurst = 7,
  kLowShownBarrierFactor = 8,  // has no text
  kEnteredBreadth = 9,
  kOtherUnitWeight = 10,
  kOtherCoalStrength = 11,
  kOtherAbutmentAngles = 12,
  kTwoSideGobsDeep = 13,
  kEnteredArchFactor = 14,
  kArchInUse = 15
};

struct RuleOutcome {
  RuleFacts Facts;
  IndexedArray<bool, 0, static_cast<int>(Rule::kArchInUse)> RuleFlags;
  bool AnyWarning = false;

  bool& Flag(Rule rule) { return RuleFlags[static_cast<int>(rule)]; }
  bool Holds(Rule rule) const { return RuleFlags[static_cast<int>(rule)]; }
};

// The last case that the reports show: the development case alone without an active gob.
int LastCaseShown(const Project& project, const WorkValues& work);

// Run-time error 6 for a value without a 32-bit form.
RuleOutcome EvaluateRules(const Project& project, const Calculation& calculation,
                          FactorRounding roundKORVASF);

// The texts of the set flags, in their order: for the page, wrapped, and for the warnings popup.
struct WarningTexts {
  std::string Page;
  std::string Popup;
};
WarningTexts ComposeWarnings(const RuleOutcome& outcome, const Project& project, UnitSystem units);

}  // namespace korva
