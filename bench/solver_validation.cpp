// Prints the validation tables of docs/help/theory-laminated.md: the solver against closed forms, finer
// cells, wider margins, and its own smoothness.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>

#include "ClosedForms.h"
#include "ExchangeLine.h"
#include "RandomPanels.h"
#include "commands/FileCommands.h"
#include "core/FilePaths.h"
#include "model/KORVAmodel.h"
#include "strond/KORVAStrond2D.h"

namespace korva::laminated {
namespace {

class NoMessages final : public MessagePort {
 public:
  MessageAnswer Show(const Message& message) override {
    throw RuntimeError(ErrorNumber::kInvalidCall, message.text);
  }
};

void ClosedForms() {
  fmt::print("| test | L/8 | L/16 | L/32 | L/64 |\n|---|---|---|---|---|\n");
  const auto row = [](std::string_view name, const std::function<double(double)>& error) {
    fmt::print("| {} |", name);
    for (const double finer : {8.0, 16.0, 32.0, 64.0}) {
      fmt::print(" {:.1e} |", error(finer));
    }
    fmt::print("\n");
  };
  row("wide gob, ratio 0.07, edge between cells: shed load",
      [](double finer) { return WideGobError(0.07, finer, 0); });
  row("the same, edge 0.37 of a cell off", [](double finer) { return WideGobError(0.07, finer, 0.37); });
  row("opening 20 ft wide: shed load", [](double finer) { return OpeningError(10, finer).Shed; });
  row("opening 100 ft wide: convergence in its middle",
      [](double finer) { return OpeningError(50, finer).Middle; });
  row("gob 700 ft wide, ratio 0.02: shed load", [](double finer) { return GobError(350, 0.02, 1, finer); });
  row("gob 400 ft wide, ratio 0.05, between abutments of ratio 0.7",
      [](double finer) { return GobError(200, 0.05, 0.7, finer); });
  const auto disc = [](double r) {
    return [r](double finer) { return DiscError(150, r, static_cast<int>(16 * finer)); };
  };
  row("soft disc, ratio 0.07, radius 150 ft: load on it", disc(0.07));
  row("stiff disc, ratio 20: load on it", disc(20));
}

double Off(double value, double exact) {
  return exact == 0 ? 0 : 100 * std::abs(value / exact - 1);
}

// The largest differences, in percent, of the pillars' factors and of those of barriers and remnants.
struct Difference {
  double Pillars = 0;
  double Barriers = 0;
};

Difference Between(const Factors& f, const Factors& exact) {
  Difference d;
  for (std::size_t c = 0; c < kCases; ++c) {
    d.Pillars = std::max(d.Pillars, Off(f.Pillars.at(c), exact.Pillars.at(c)));
    for (std::size_t s = 0; s < kSides; ++s) {
      d.Barriers = std::max({d.Barriers, Off(f.BarrierFactor.at(c).at(s), exact.BarrierFactor.at(c).at(s)),
                             Off(f.RemnantFactor.at(c).at(s), exact.RemnantFactor.at(c).at(s))});
    }
  }
  return d;
}

constexpr FactorRule kTwiceAsFine = {.Cells = {.CellFactor = 0.5, .MostCells = 4.5e6}};

void Examples() {
  fmt::print(
      "\n| example | cells | development | retreat | finer cells | wider margin | equilibrium |\n"
      "|---|---|---|---|---|---|---|\n");
  std::set<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(KORVA_EXAMPLES)) {
    if (entry.path().extension() == ".KVL") {
      files.insert(entry.path());
    }
  }
  for (const auto& file : files) {
    Korva korva;
    korva.ProjectFileName = Utf8Of(file);
    NoMessages messages;
    FileOpen(korva, messages);
    if (PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits).Refusal) {
      continue;
    }
    const Panel panel = ReadExchangeLine(StrondLine(korva.ProjectCalc, korva.Stored.ProjectUnits));
    const Factors f = ComputeFactors(panel);
    const Difference cells = Between(f, ComputeFactors(panel, kTwiceAsFine));
    const Difference margin = Between(f, ComputeFactors(panel, {.Cells = {.Margin = 12, .MostCells = 4e6}}));
    const double defect = std::max(f.Runs[0].Outcome.Equilibrium, f.Runs[1].Outcome.Equilibrium);
    fmt::print("| {} | {} x {} of {:.2f} | {:.3f} | {:.3f} | {:.3f} % | {:.3f} % | {:.0e} |\n",
               Utf8Of(file.stem()), f.Cells.Nx, f.Cells.Ny, f.Cells.Cx, f.Pillars[0], f.Pillars[1],
               cells.Pillars, margin.Pillars, defect);
  }
}

void Chances(int count) {
  std::vector<double> pillars;
  std::vector<double> barriers;
  int iterations = 0;
  double defect = 0;
  for (const Panel& panel : RandomPanels(count)) {
    const FactorRule exact = {.Solution = {.Tolerance = 1e-8}};
    const Factors f = ComputeFactors(panel, exact);
    const Difference d = Between(f, ComputeFactors(panel, kTwiceAsFine));
    pillars.push_back(d.Pillars);
    barriers.push_back(d.Barriers);
    for (const CaseRun& run : f.Runs) {
      iterations = std::max(iterations, run.Outcome.Iterations);
      defect = std::max(defect, run.Outcome.Equilibrium);
    }
  }
  const auto spread = [](std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return fmt::format("{:.4f} / {:.4f} / {:.4f} %", values[values.size() / 2],
                       values[values.size() * 9 / 10], values.back());
  };
  fmt::print(
      "\n{} random panels, cells of the rule against finer ones, median / 90 % / most: pillars {}; "
      "barriers and remnants {}\nat a residual of 1e-8: at most {} iterations, equilibrium within {:.1e}\n",
      count, spread(pillars), spread(barriers), iterations, defect);
}

Panel SweptPanel() {
  Panel panel = TestPanel(700, 70, 80, 6, kOneSideGob);
  panel.Sides[0].Barrier = 100;
  return panel;
}

void Sweeps() {
  const auto sweep = [](std::string_view name, double from, double step, auto set) {
    std::array<std::vector<double>, kCases> factors;
    constexpr int kPoints = 21;
    for (int i = 0; i < kPoints; ++i) {
      Panel panel = SweptPanel();
      set(panel, from + i * step);
      const Factors f = ComputeFactors(panel);
      factors[0].push_back(f.Pillars[0]);
      factors[1].push_back(f.Pillars[1]);
    }
    double worst = 0;
    for (const auto& values : factors) {
      for (std::size_t i = 1; i + 1 < values.size(); ++i) {
        worst = std::max(worst, std::abs(values[i - 1] - 2 * values[i] + values[i + 1]));
      }
    }
    fmt::print("{} from {} by {}: retreat {:.4f} to {:.4f}, largest second difference {:.1e}\n", name, from,
               step, factors[1].front(), factors[1].back(), worst);
  };
  fmt::print("\n");
  sweep("depth", 700, 2, [](Panel& panel, double x) { panel.DepthCover = x; });
  sweep("crosscut spacing", 80, 0.5, [](Panel& panel, double x) { panel.XcutSpacing = x; });
  sweep("barrier width", 100, 1, [](Panel& panel, double x) { panel.Sides[0].Barrier = x; });
}

void FailingBarriers() {
  fmt::print(
      "\n| barrier, ft | development | retreat | retreat, all elastic | barrier, retreat |\n|---|---|---|---|---|\n");
  for (const double width : {0.0, 10.0, 20.0, 30.0, 40.0, 60.0, 80.0, 120.0}) {
    Panel panel = TestPanel(1000, 80, 90, 6, kOneSideGob);
    panel.Sides[0].Barrier = width;
    const Factors f = ComputeFactors(panel);
    const Factors elastic = ComputeFactors(panel, {.Yields = false});
    fmt::print("| {} | {:.3f} | {:.3f} | {:.3f} | {:.2f} |\n", width, f.Pillars[0], f.Pillars[1],
               elastic.Pillars[1], f.BarrierFactor[1][0]);
  }
}

}  // namespace
}  // namespace korva::laminated

int main() {
  using namespace korva::laminated;
  ClosedForms();
  Examples();
  FailingBarriers();
  Sweeps();
  Chances(60);
  return 0;
}
