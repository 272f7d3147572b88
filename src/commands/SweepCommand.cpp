#include "commands/SweepCommand.h"

#include <fmt/format.h>

#include "core/Text.h"
#include "graphs/GraphTitles.h"
#include "input/FormNotices.h"
#include "model/KORVAmodel.h"

namespace korva {

std::optional<SweepJob> PrepareSweep(Korva& korva, MessagePort& messages, GraphKind graph,
                                     std::optional<OverburdenModel> calcMode) {
  const OptionSettings& options = korva.Preferences.Options;
  if (options.PlotRangeMin > options.PlotRangeMax) {
    ShowMessage(
        korva, messages,
        {.text = "Invalid Range settings. Check Options-> Output Options", .topic = "messages-graphs"});
    return std::nullopt;
  }
  korva.ProjectCalc = korva.Stored.ProjectInput;
  korva.ProjectCalc.CalcMode = calcMode.value_or(korva.ProjectCalc.CalcMode);
  Prepared prepared = PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits);
  if (prepared.Refusal) {
    ShowMessage(korva, messages, {.text = *prepared.Refusal, .topic = "warnings-refusals"});
    return std::nullopt;
  }
  return SweepJob{graph,
                  {options.PlotRangeMin, options.PlotRangeMax},
                  prepared.Run,
                  korva.ProjectCalc,
                  korva.Stored.ProjectUnits,
                  korva.ProjectFileName,
                  StrondPlaceOf(korva.Places, options.iOptDir),
                  UsesLaminated(korva.ProjectCalc.CalcMode)};
}

SweepOutcome RunSweepJob(SweepJob& job, const std::function<bool(int, int)>& goOn) {
  const LaminatedSweep laminated = {
      [&job](const Project& project) {
        return RunStrond2D(project, job.Units, job.ProjectFileName, job.Place).Results;
      },
      goOn};
  return RunSweep(job.Graph, job.Range, job.Prepared, job.ProjectCalc, job.Laminated ? &laminated : nullptr,
                  FormNotices);
}

void KeepSweep(Korva& korva, const SweepJob& job, SweepOutcome outcome) {
  korva.ProjectCalc = job.ProjectCalc;
  if (outcome.Data.PointCount > 0) {
    korva.Sweep = std::move(outcome.Data);
    PrepareTitles(korva.Preferences.Graph, job.Graph, job.Units);
  }
}

bool AskForPoints(Korva& korva, MessagePort& messages, const SweepOutcome& outcome) {
  if (outcome.Data.PointCount == 0) {
    return false;
  }
  return !outcome.Cancelled ||
         IsConfirmed(korva, messages,
                     fmt::format("The calculations were stopped: {}.{}Show the points calculated so far?",
                                 outcome.Data.Partial, kLineEnd),
                     "messages-graphs", MessageButtons::kYesNoDefaultNo, MessageIcon::kQuestion);
}

std::string SweepStepText(int step, int capacity) {
  return fmt::format("Calculating step...{}/{}{}", step, capacity, kLineEnd);
}

}  // namespace korva
