// The parametric sweep: stability factors over a range of one parameter.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/GraphData.h"
#include "core/Project.h"
#include "core/RuntimeError.h"
#include "core/StrondResults.h"
#include "model/Calculation.h"

namespace korva {

// In percent of the parameter's value.
struct SweepRange {
  float Min = 0;
  float Max = 0;
};

// The steps of a sweep: from Low while no more than High, by Step. Radians for the crosscut angle.
struct SweepSteps {
  float Low = 0;
  float High = 0;
  float Step = 1;
  std::int32_t PointCapacity = 0;
};

// The steps around `base`, the working value of the parameter. `coarse` sweeps (laminated, or the graph of
// barriers over depth) take a fifth of them. Run-time error 6 for a value beyond 32 bits.
SweepSteps SweepStepsFor(GraphKind graph, double base, SweepRange range, bool coarse);

// What a sweep with the laminated model needs of the outside.
struct LaminatedSweep {
  std::function<StrondResults(const Project&)> Solve;
  // Told before each solution: its number from 1 on, and the point capacity. False ends the sweep.
  std::function<bool(int step, int capacity)> MayContinue;
};

// What a person should know of a panel whose numbers are computed all the same.
using PanelNotices = std::function<std::vector<FormNotice>(const Project&)>;

// Data holds the points that were computed before a cancel or a failure, which ends the sweep.
struct SweepOutcome {
  SweepData Data;
  bool Cancelled = false;
  std::optional<RuntimeError> Failure;
};

// Sweeps the traditional model from `prepared` on, which keeps everything else, and with `laminated` that
// model, too, by writing the parameter into `project`. In the end `project` holds the last value. `notices`
// is asked about the panel at each point. The outcome's failure is a run-time error of either model and names
// the value at which it arose. Throws run-time error 9 if the range holds no value at all.
SweepOutcome RunSweep(GraphKind graph, SweepRange range, const Calculation& prepared, Project& project,
                      const LaminatedSweep* laminated, const PanelNotices& notices = {});

}  // namespace korva
