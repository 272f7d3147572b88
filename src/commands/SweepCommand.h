// The command "Graph": from the open project to the points of a parametric graph.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/Korva.h"
#include "core/Messages.h"
#include "graphs/Sweep.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

// A sweep that is ready to run, on any thread and apart from the program's state.
struct SweepJob {
  GraphKind Graph = kEntryHeightGraph;
  SweepRange Range;
  Calculation Prepared;
  Project ProjectCalc;
  UnitSystem Units = kEnglish;
  std::string ProjectFileName;
  StrondPlace Place;
  bool Laminated = false;
};

// Copies the project to the working copy, in the overburden model `calcMode` if one is given, and prepares
// the sweep of that graph. Nothing, after a message, for a range whose ends are crossed and for a project
// that the check refuses.
std::optional<SweepJob> PrepareSweep(Korva& korva, MessagePort& messages, GraphKind graph,
                                     std::optional<OverburdenModel> calcMode = {});

// Runs it. `goOn` is asked before each laminated solution.
SweepOutcome RunSweepJob(SweepJob& job, const std::function<bool(int step, int capacity)>& goOn);

// Takes the points of a sweep that has ended into the program's state, and makes its graph's titles if the
// settings hold none. One without any leaves those of the last one.
void KeepSweep(Korva& korva, const SweepJob& job, SweepOutcome outcome);

// Whether there are points to be shown: a person who has stopped the sweep is asked.
bool AskForPoints(Korva& korva, MessagePort& messages, const SweepOutcome& outcome);

// What the progress window says before a laminated solution.
std::string SweepStepText(int step, int capacity);

}  // namespace korva
