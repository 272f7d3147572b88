// Every form of the program, made as it is opened, for what has to hold in all of them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "commands/PlanCommands.h"
#include "commands/SweepCommand.h"
#include "desktop/FormBench.h"
#include "desktop/core/frmMain.h"
#include "desktop/files/frmSet.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/graphs/frmStrondCalc.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/options/frmConvert.h"
#include "desktop/options/frmKORVAOpts.h"
#include "desktop/options/frmUnits.h"
#include "desktop/plan/frmPicture.h"
#include "desktop/reports/frmPopUp.h"
#include "desktop/reports/frmResTxtPlt.h"
#include "desktop/services/frmDisclaimer.h"
#include "desktop/services/frmHelp.h"
#include "desktop/services/frmPath.h"
#include "desktop/services/frmPreview.h"
#include "desktop/services/frmResource.h"
#include "desktop/services/frmTextBrow.h"
#include "desktop/services/frmUpdate.h"

namespace korva::desktop {

// A graph of the open project, run and shown.
inline std::unique_ptr<frmGraph> OpenGraph(FormBench& bench, GraphKind graph,
                                           std::optional<OverburdenModel> model = {}) {
  auto job = PrepareSweep(bench.State, bench.Ports.Messages, graph, model);
  KeepSweep(bench.State, *job, RunSweepJob(*job, [](int, int) { return true; }));
  auto window = std::make_unique<frmGraph>(bench.Forms);
  window->GraphInit(graph);
  window->DrawCurve();
  window->show();
  QCoreApplication::processEvents();
  return window;
}

// The forms on the open project, or on an example; `bench` has folders already. The last ones stand on others
// and go first.
class AllForms {
 public:
  explicit AllForms(FormBench& bench) {
    Korva& korva = bench.State;
    if (korva.ProjectEmpty) {
      korva.ProjectFileName = KORVA_EXAMPLES "/two-side-gobs.KVL";
      FileOpen(korva, bench.Ports.Messages);
      CalculateStabilityFactors(korva, bench.Ports.Messages);
    }
    const std::string warnings = std::exchange(korva.WarningText, {});
    Add<frmMain>(korva, bench.Ports.All, bench.Pictures);
    Add<frmKORVADesc>(bench.Forms);
    Add<frmKORVAParm>(bench.Forms);
    Add<frmResTxtPlt>(bench.Forms, nullptr);
    Add<frmPopUp>(warnings);
    Add<frmSet>(bench.Forms);
    Add<frmPath>(bench.Forms, "/usr/");
    Add<frmKORVAOpts>(bench.Forms);
    Add<frmUnits>(bench.Forms);
    Add<frmConvert>(bench.Forms);
    Add<frmTextBrow>(bench.Forms);
    Add<frmPreview>(bench.Forms);
    Add<frmDisclaimer>(bench.Forms);
    Add<frmResource>(bench.Forms);
    Add<frmUpdate>(bench.Forms);
    Add<frmStrondCalc>(nullptr);
    if (auto help = frmHelp::Open(bench.Forms)) {
      forms_.push_back(std::move(help));
    }
    auto graph = OpenGraph(bench, kDepthGraph, kTraditionalModel);
    frmGraph& window = *graph;
    forms_.push_back(std::move(graph));
    Add<frmGraphOpt>(bench.Forms, window);
    forms_.emplace_back(frmPicture::Open(bench.Forms, *forms_.front(), kPlanFromResults));
  }
  AllForms(const AllForms&) = delete;
  AllForms& operator=(const AllForms&) = delete;
  ~AllForms() {
    while (!forms_.empty()) {
      forms_.pop_back();
    }
  }

  const std::vector<std::unique_ptr<QWidget>>& List() const { return forms_; }

 private:
  template <class Form, class... Arguments>
  void Add(Arguments&&... arguments) {
    forms_.push_back(std::make_unique<Form>(std::forward<Arguments>(arguments)...));
  }

  std::vector<std::unique_ptr<QWidget>> forms_;
};

}  // namespace korva::desktop
