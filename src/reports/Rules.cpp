#include "reports/Rules.h"

#include <algorithm>

#include "core/ArithmeticWatch.h"
#include "core/Limits.h"
#include "reports/RoundSF.h"

namespace korva {

namespace {

// In the 32 bits in which they are compared.
constexpr float kDeepNarrowSF = 1.3F;
constexpr float kSlenderSF = 2.0F;
constexpr float kSlenderRatio = 4.0F;

RuleFacts CollectFacts(const Project& project, const Calculation& calculation, FactorRounding roundKORVASF) {
  const WorkValues& w = calculation.Work;
  const Results& r = calculation.Out;
  RuleFacts facts;
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise, &facts);
  const double feet = w.Units == kMetric ? kFeetPerMeter : 1;
  facts.Depth = static_cast<float>(w.DepthCover * feet);
  watch.Step("the depth of cover in feet");
  facts.PanelWidth = static_cast<float>(w.PanelWidth * feet);
  watch.Step("the panel width in feet");
  facts.MeanRatio =
      static_cast<float>((w.PanelWidth - w.NumRows * w.EntryWidth) / (w.NumRows * w.EntryHeight));
  watch.Step("the mean width-to-height ratio");
  constexpr auto kModerate = static_cast<double>(kModerateLimit.Feet);
  constexpr double kSpan = static_cast<double>(kDeepLimit.Feet) - kModerate;
  facts.CritSF =
      static_cast<float>(kRequiredSF - (static_cast<double>(facts.Depth) - kModerate) * 0.2 / kSpan);
  for (int c = kDevelopment; c <= kRetreat; ++c) {
    facts.SF[c] = RoundSF(r.SFKorva[c], roundKORVASF);
  }
  for (int c = kDevelopment; c <= LastCaseShown(project, w); ++c) {
    for (const int k : SideGobs(w.LoadCond)) {
      facts.MinBarrierSF = std::min(facts.MinBarrierSF, static_cast<float>(r.BarrierSF[c][k]));
    }
  }
  watch.Step("the smallest barrier factor");
  return facts;
}

class RuleSet {
 public:
  RuleSet(const Project& project, const Calculation& calculation, FactorRounding roundKORVASF)
      : project_(project), calculation_(calculation), work_(calculation.Work) {
    outcome_.Facts = CollectFacts(project, calculation, roundKORVASF);
    critSF_ = RoundSF(static_cast<double>(outcome_.Facts.CritSF), roundKORVASF);
  }

  RuleOutcome Evaluate() {
    BarrierRule();
    for (int c = kDevelopment; c <= kRetreat; ++c) {
      LowFactorRules(outcome_.Facts.SF[c]);
      DepthRules(outcome_.Facts.SF[c]);
    }
    SettingsRules();
    outcome_.AnyWarning =
        std::any_of(outcome_.RuleFlags.begin(), outcome_.RuleFlags.end(), [](bool set) { return set; });
    return outcome_;
  }

 private:
  bool Differs(double value, const DataBaseValue& usual) const { return value != usual.In(work_.Units); }
  bool HasSideGobs() const { return work_.LoadCond >= kOneSideGob; }
  void SetIf(Rule rule, bool condition) { outcome_.Flag(rule) = outcome_.Holds(rule) || condition; }

  // A printed barrier factor below 1.5, judged by its 64-bit value.
  void BarrierRule() {
    for (int c = kDevelopment; c <= LastCaseShown(project_, work_); ++c) {
      for (const int k : SideGobs(work_.LoadCond)) {
        SetIf(Rule::kLowShownBarrierFactor,
              outcome_.Facts.Depth > kModerateLimit.Feet && calculation_.Out.BarrierSF[c][k] < kRequiredSF);
      }
    }
  }

  void LowFactorRules(float sf) {
    if (!(sf < kRequiredSF)) {
      return;
    }
    const RuleFacts& f = outcome_.Facts;
    const bool narrow =
        f.PanelWidth <= kWideLimit.Feet && (!HasSideGobs() || f.MinBarrierSF >= kRequiredBarrierSF);
    const bool moderate = f.Depth > kModerateLimit.Feet && f.Depth <= kDeepLimit.Feet;
    SetIf(Rule::kLowFactor, f.Depth <= kModerateLimit.Feet);
    SetIf(Rule::kModerateDepth, moderate && !(narrow && sf >= critSF_));
    SetIf(Rule::kDeepCover, f.Depth > kDeepLimit.Feet && !(narrow && sf >= kDeepNarrowSF));
  }

  void DepthRules(float sf) {
    const RuleFacts& f = outcome_.Facts;
    const bool activeGob = project_.ExtentActiveGob > 0;
    SetIf(Rule::kLowBarrierFactor,
          f.Depth > kModerateLimit.Feet && HasSideGobs() && f.MinBarrierSF < kRequiredSF);
    SetIf(Rule::kSlenderPillars, sf < kSlenderSF && f.MeanRatio < kSlenderRatio);
    SetIf(Rule::kExtremeDepth, activeGob && f.Depth > kExtremeLimit.Feet);
    SetIf(Rule::kBurst, activeGob && f.Depth > kDeepLimit.Feet);
  }

  // Inputs that differ from those with which the data base was analyzed.
  void SettingsRules() {
    const Project& p = project_;
    const RunLoading lc = work_.LoadCond;
    SetIf(Rule::kEnteredBreadth, !IsSet(p.AMZAuto));
    SetIf(Rule::kOtherUnitWeight, Differs(p.UnitWeight, kDataBaseUnitWeight));
    SetIf(Rule::kOtherCoalStrength, Differs(p.CoalStrength, kDataBaseStrength));
    SetIf(Rule::kOtherAbutmentAngles,
          (Differs(p.AbutmentAngleActiveGob, kDataBaseAngle) && lc >= kActiveGob) ||
              (Differs(p.AbutmentAngleFirstGob, kDataBaseAngle) && lc >= kOneSideGob) ||
              (Differs(p.AbutmentAngleSecondGob, kDataBaseAngle) && lc == kTwoSideGobs));
    SetIf(Rule::kTwoSideGobsDeep, lc == kTwoSideGobs);
    SetIf(Rule::kEnteredArchFactor, !IsSet(p.ArchAuto));
    SetIf(Rule::kArchInUse, p.ArchFactor < 1);
  }

  const Project& project_;
  const Calculation& calculation_;
  const WorkValues& work_;
  RuleOutcome outcome_;
  float critSF_ = 0;
};

}  // namespace

int LastCaseShown(const Project& project, const WorkValues& work) {
  return project.ExtentActiveGob == 0 || work.LoadCond < kActiveGob ? kDevelopment : kRetreat;
}

RuleOutcome EvaluateRules(const Project& project, const Calculation& calculation,
                          FactorRounding roundKORVASF) {
  return RuleSet(project, calculation, roundKORVASF).Evaluate();
}

}  // namespace korva
