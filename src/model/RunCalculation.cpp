#include <fmt/format.h>

#include <cmath>

#include "core/Limits.h"
#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "model/KORVAmodel.h"
#include "model/Steps.h"

namespace korva {

namespace {

void EvaluateCase(WorkValues& w, Results& r, int c, const ArithmeticWatch& watch) {
  const bool retreat = c == kRetreat;
  w.GobExtent[kFront] = retreat ? w.ExtentActiveGob : 0;
  for (int k = kFirstSide; k <= kSecondSide; ++k) {
    w.SlabDepth[k] = retreat ? w.SlabCut[k] : 0;
  }
  CaseLoads(w, r, c, watch);
  BarrierStresses(w, r, c, watch);
  SideStresses(w, r, c, watch);
}

void Evaluate(Calculation& calculation, const ArithmeticWatch& watch) {
  WorkValues& w = calculation.Work;
  Results& r = calculation.Out;
  r = Results{};
  r.Fpa = CalcArchFactor(w);
  watch.Step("Fpa");
  const double s = std::sin(w.XcutAngleRadians);
  PanelGeometry(w, s, r, watch);
  RowStrengths(w, s, r, watch);
  NetPanel(w, r, watch);
  LeaveRows(w, r, watch);
  BarrierStrengths(w, r, watch);
  EvaluateCase(w, r, kDevelopment, watch);
  EvaluateCase(w, r, kRetreat, watch);
}

// True if the arithmetic went wrong anywhere.
bool Fails(Calculation& calculation) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kWhole);
  try {
    Evaluate(calculation, watch);
  } catch (const RuntimeError&) {
    return true;  // an earlier fault may have led there
  }
  return watch.Raised();
}

}  // namespace

float CalcArchFactor(const WorkValues& w) {
  if (!w.ArchAuto) {
    return w.ArchFactor;
  }
  float width = 0;
  for (int i = 1; i <= w.NumRows; ++i) {
    width = static_cast<float>(static_cast<double>(width) + w.EntryCenters[i]);
  }
  if (!std::isfinite(width)) {
    throw RuntimeError(ErrorNumber::kOverflow, "in the calculation of Fpa");
  }
  if (width == 0) {
    return 1;
  }
  const auto panelWidth = static_cast<double>(width);
  float factor = 0;
  if (w.DepthCover > kLeastArchDepth) {
    factor = static_cast<float>(1 - kArchSlope * NaturalLog(w.DepthCover / panelWidth, "Fpa"));
  }
  if (w.DepthCover - kWidePanelDepth < panelWidth) {
    factor = 1;
  }
  if (factor < kLeastArchFactorSingle) {
    factor = kLeastArchFactorSingle;
  }
  return static_cast<float>(RoundHalfEven(static_cast<double>(factor), 2));
}

void RunCalculation(Calculation& calculation) {
  if (calculation.Work.LoadCond < kNoGob || calculation.Work.LoadCond > kTwoSideGobs) {
    throw RuntimeError(ErrorNumber::kSubscript, "the loading condition is not one of 0 to 4");
  }
  if (Fails(calculation)) {
    Evaluate(calculation, ArithmeticWatch(ArithmeticWatch::Mode::kStepwise));
    throw RuntimeError(ErrorNumber::kOverflow, "the calculation");
  }
}

}  // namespace korva
