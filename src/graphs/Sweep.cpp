#include "graphs/Sweep.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

#include "core/Limits.h"
#include "core/NumberParsing.h"
#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "graphs/GraphTitles.h"
#include "model/KORVAmodel.h"

namespace korva {

namespace {

constexpr double kFineSteps = 50;
constexpr double kCoarseSteps = 10;
constexpr float kRightAngle = 1.570796326794895F;

float Narrowed(double value, std::string_view what) {
  if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max()))) {
    throw RuntimeError(ErrorNumber::kOverflow, fmt::format("{} of the sweep", what));
  }
  return static_cast<float>(value);
}

// Where a graph's parameter stands: in the record, and in the run.
struct Parameter {
  double Project::*InRecord;
  double WorkValues::*InRun = nullptr;  // nullptr: the barrier width of Side
  int Side = 0;
};
constexpr std::array<Parameter, kGraphs> kParameters = {{
    {&Project::EntryHeight, &WorkValues::EntryHeight},
    {&Project::DepthCover, &WorkValues::DepthCover},
    {&Project::XcutAngle, &WorkValues::XcutAngleRadians},
    {&Project::XcutSpacing, &WorkValues::XcutSpacing},
    {&Project::BarrierFirstGob, nullptr, kFirstSide},
    {&Project::BarrierSecondGob, nullptr, kSecondSide},
    {&Project::DepthCover, &WorkValues::DepthCover},
}};

const Parameter& ParameterOf(GraphKind graph) {
  return kParameters.at(static_cast<std::size_t>(graph));
}

double& WorkingValue(WorkValues& work, GraphKind graph) {
  const Parameter& parameter = ParameterOf(graph);
  return parameter.InRun == nullptr ? work.BarrierWidth[parameter.Side] : work.*parameter.InRun;
}

double ShownValue(GraphKind graph, double x) {
  return graph == kXcutAngleGraph ? x / kRadiansPerDegree : x;
}

// Writes `x` as it is shown: in degrees for the crosscut angle.
void WriteField(Project& project, GraphKind graph, double x) {
  project.*ParameterOf(graph).InRecord = graph == kXcutAngleGraph ? std::min(x, kGreatestAngle) : x;
}

double TraditionalFactor(const Results& out, GraphKind graph, int c) {
  return IsBarrierGraph(graph) ? out.BarrierSF[c][IsOfSecondBarrier(graph, false) ? kSecondSide : kFirstSide]
                               : out.SFKorva[c];
}

float LaminatedFactor(const StrondResults& results, GraphKind graph, int stage) {
  return IsBarrierGraph(graph) ? results.StrondBarrierSF[stage][IsOfSecondBarrier(graph, true) ? 1 : 0]
                               : Narrowed(results.StrondSF[stage], "a stability factor");
}

// Calls visit(x) for every step until it gives false. Barrier widths are narrowed at each addition.
template <class Visit>
void VisitSteps(GraphKind graph, const SweepSteps& steps, Visit&& visit) {
  const bool narrow = ParameterOf(graph).InRun == nullptr;
  const double step = static_cast<double>(steps.Step);
  for (double x = static_cast<double>(steps.Low); x <= static_cast<double>(steps.High);
       x = narrow ? static_cast<double>(static_cast<float>(x + step)) : x + step) {
    if (!visit(x)) {
      return;
    }
  }
}

// Runs one step; an error tells the parameter's value.
template <class Step>
void AtValue(GraphKind graph, double x, Step&& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(),
                       fmt::format("{} = {}: {}", ParameterName(graph),
                                   GeneralText(Narrowed(ShownValue(graph, x), "a value")), error.Detail()));
  }
}

// One of the two passes over the steps. `point(x, index)` computes a point; false ends the pass. A step that
// fails ends it, too, and is no point.
template <class Point>
void RunPass(GraphKind graph, const SweepSteps& steps, std::int32_t& count, SweepOutcome& outcome,
             Point&& point) {
  VisitSteps(graph, steps, [&](double x) {
    if (count >= steps.PointCapacity) {  // the steps decide the number of points, the capacity the room
      ThrowSubscript(count + 1, 1, steps.PointCapacity);
    }
    bool done = false;
    try {
      AtValue(graph, x, [&] { done = point(x, static_cast<std::size_t>(count)); });
    } catch (const RuntimeError& error) {
      outcome.Failure = error;
    }
    count += done ? 1 : 0;
    return done;
  });
}

// The panel at a point, with the value as a person reads it, in 32 bits.
Project PanelAt(const Project& project, GraphKind graph, float shown) {
  Project panel = project;
  WriteField(panel, graph, ParseNumberPrefix(GeneralText(shown)).value);
  return panel;
}

SweepData AllocateData(GraphKind graph, const SweepSteps& steps, bool laminated) {
  SweepData data;
  data.GraphIndex = graph;
  data.CurveCount = laminated ? kMostCurves : kTraditionalCurves;
  data.PointCapacity = steps.PointCapacity;
  if (steps.Low > steps.High) {
    throw RuntimeError(ErrorNumber::kSubscript,
                       fmt::format("no {} lies in the range of the sweep", ParameterName(graph)));
  }
  for (int column = 0; column <= data.CurveCount; ++column) {
    data.GraphData[column].resize(static_cast<std::size_t>(steps.PointCapacity));
  }
  return data;
}

// Tells how many of the points that the steps ask for are there, and why no more are.
std::string PartialText(const SweepOutcome& outcome, GraphKind graph, const SweepSteps& steps) {
  if (!outcome.Cancelled && !outcome.Failure) {
    return {};
  }
  int all = 0;
  VisitSteps(graph, steps, [&all](double) { return ++all > 0; });
  const SweepData& data = outcome.Data;
  const std::string why = outcome.Failure ? outcome.Failure->what() : "cancelled";
  return data.PointCount < all
             ? fmt::format("{} of {} points; {}", data.PointCount, all, why)
             : fmt::format("{} of {} points of the laminated model; {}", data.LaminatedCount, all, why);
}

}  // namespace

SweepSteps SweepStepsFor(GraphKind graph, double base, SweepRange range, bool coarse) {
  const double low = static_cast<double>(range.Min) / 100;
  const double high = static_cast<double>(range.Max) / 100;
  // More than the range over the number of steps: the whole value counts once.
  float fraction = Narrowed((high + 1 - low) / (coarse ? kCoarseSteps : kFineSteps), "the step");
  if (fraction == 0) {
    fraction = 1;
  }
  SweepSteps steps;
  steps.Low = Narrowed(low * base, "the least value");
  steps.High = Narrowed(high * base, "the greatest value");
  steps.Step = Narrowed(static_cast<double>(fraction) * base, "the step");
  if (steps.Step == 0) {
    steps.Step = 1;
  }
  if (graph == kXcutAngleGraph) {
    steps.High = std::min(steps.High, kRightAngle);
  }
  const double span = static_cast<double>(steps.High) - static_cast<double>(steps.Low);
  const double points = std::nearbyint(span / static_cast<double>(steps.Step) + 2);
  if (!(std::abs(points) <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeError(ErrorNumber::kOverflow, "points of the sweep");
  }
  steps.PointCapacity = static_cast<std::int32_t>(points);
  return steps;
}

SweepOutcome RunSweep(GraphKind graph, SweepRange range, const Calculation& prepared, Project& project,
                      const LaminatedSweep* laminated, const PanelNotices& notices) {
  Calculation run = prepared;
  double& value = WorkingValue(run.Work, graph);
  const SweepSteps steps =
      SweepStepsFor(graph, value, range, laminated != nullptr || graph == kBarrierDepthGraph);
  SweepOutcome outcome = {AllocateData(graph, steps, laminated != nullptr), false, {}};
  SweepData& data = outcome.Data;
  RunPass(graph, steps, data.PointCount, outcome, [&](double x, std::size_t point) {
    value = x;
    RunCalculation(run);
    data.GraphData[0][point] = Narrowed(ShownValue(graph, x), "a value");
    data.GraphData[1][point] = Narrowed(TraditionalFactor(run.Out, graph, kDevelopment), "a factor");
    data.GraphData[2][point] = Narrowed(TraditionalFactor(run.Out, graph, kRetreat), "a factor");
    if (notices) {
      data.Notices.push_back(notices(PanelAt(project, graph, data.GraphData[0][point])));
    }
    return true;
  });
  if (laminated != nullptr && !outcome.Failure) {
    RunPass(graph, steps, data.LaminatedCount, outcome, [&](double x, std::size_t point) {
      if (!laminated->MayContinue(data.LaminatedCount + 1, data.PointCapacity)) {
        outcome.Cancelled = true;
        return false;
      }
      WriteField(project, graph, ShownValue(graph, x));
      const StrondResults results = laminated->Solve(project);
      data.GraphData[3][point] = LaminatedFactor(results, graph, 0);
      data.GraphData[4][point] = LaminatedFactor(results, graph, 1);
      return true;
    });
  }
  data.Partial = PartialText(outcome, graph, steps);
  return outcome;
}

}  // namespace korva
