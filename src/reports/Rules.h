// The interpretive rules: how a run's factors are judged against the history of the case data base.
#pragma once

#include <string>

#include "core/IndexedArray.h"
#include "core/Project.h"
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

struct RuleOutcome {
  RuleFacts Facts;
  IndexedArray<bool, 0, 15> RuleFlags;  // number 4 does not exist, number 8 has no text
  bool AnyWarning = false;
};

// The last case that the reports show: the development case alone without an active gob.
int LastCaseShown(const Project& project, const WorkValues& work);

// Run-time error 6 for a value without a 32-bit form.
RuleOutcome EvaluateRules(const Project& project, const Calculation& calculation, std::int16_t roundKORVASF);

// The texts of the set flags, in their order: for the page, wrapped, and for the warnings popup.
struct WarningTexts {
  std::string Page;
  std::string Popup;
};
WarningTexts ComposeWarnings(const RuleOutcome& outcome, const Project& project, std::int16_t units);

}  // namespace korva
