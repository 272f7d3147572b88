// The solver beside two libraries, on one problem at several sizes; and its times over random panels.
// korva_solver_bench [RUNS]
#include <fmt/format.h>
#include <malloc.h>

#include <algorithm>
#include <functional>
#include <string>

#include "Factors.h"
#include "RandomPanels.h"
#include "SolverMethods.h"
#ifdef KORVA_HYPRE
#include <HYPRE_utilities.h>
#include <mpi.h>
#endif

namespace korva::laminated {
namespace {

struct Method {
  std::string Name;
  int Largest;  // more cells across would take too long
  std::function<Answer(const Problem&)> Solve;
  double Megabytes = 0;
  std::vector<Answer> Runs = {};
};

template <class Range, class Key>
double Median(const Range& range, Key&& key) {
  std::vector<double> values;
  std::transform(range.begin(), range.end(), std::back_inserter(values), key);
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Seconds of one pass a = b + s c over n values.
double TriadSeconds(std::size_t n) {
  std::vector<double> a(n, 0.0);
  const std::vector<double> b(n, 1.0);
  const std::vector<double> c(n, 2.0);
  double best = 1e30;
  for (int run = 0; run < 20; ++run) {
    const Stopwatch watch;
    for (std::size_t i = 0; i < n; ++i) {
      a[i] = b[i] + 3.0 * c[i];
    }
    best = std::min(best, watch.Seconds());
    if (a[static_cast<std::size_t>(run)] != 7) {
      return 0;
    }
  }
  return best;
}

double WorstDifference(const std::vector<double>& u, const std::vector<double>& v) {
  double worst = 0;
  double greatest = 0;
  for (std::size_t i = 0; i < u.size(); ++i) {
    worst = std::max(worst, std::abs(u[i] - v[i]));
    greatest = std::max(greatest, std::abs(v[i]));
  }
  return worst / greatest;
}

// The methods take turns, so that all see the same moods of the machine. They find the memory of earlier runs
// warm; how much they need is seen in a run of its own.
void Compare(int n, int runs) {
  std::vector<Method> methods = {{"korva", 1 << 20, SolveByMembrane},
#ifdef KORVA_HYPRE
                                 {"hypre PCG + PFMG", 1 << 20, SolveByHypre},
#endif
                                 {"Eigen CG + IC", 512, SolveByEigen}};
  const Problem problem = ProblemOn(n);
  for (Method& method : methods) {
    malloc_trim(0);
    method.Megabytes = n <= method.Largest ? method.Solve(problem).Megabytes : 0;
  }
  for (int run = 0; run < runs; ++run) {
    for (Method& method : methods) {
      if (n <= method.Largest) {
        method.Runs.push_back(method.Solve(problem));
      }
    }
  }
  const double triad = TriadSeconds(problem.Cells());
  const auto cells = static_cast<double>(problem.Cells());
  for (const Method& method : methods) {
    if (method.Runs.empty()) {
      continue;
    }
    const double seconds = Median(method.Runs, [](const Answer& a) { return a.Seconds; });
    fmt::print("{:>5} {:<18} {:>4} {:>10.2f} {:>8.1f} {:>8.0f} {:>7.0f} {:>7.1f} {:>10.1e}\n", n, method.Name,
               method.Runs[0].Iterations, seconds * 1e3, seconds / cells * 1e9, seconds / triad,
               method.Megabytes, method.Megabytes * 1e6 / cells,
               WorstDifference(method.Runs[0].U, methods[0].Runs[0].U));
  }
}

void TimeRandomPanels(int count) {
  struct Run {
    double Seconds;
    double Cells;
    int Iterations;
    int Solutions;
  };
  std::vector<Run> runs;
  for (const Panel& panel : RandomPanels(count)) {
    const Stopwatch watch;
    const Factors factors = ComputeFactors(panel);
    const double seconds = watch.Seconds();
    Run run = {seconds, static_cast<double>(factors.Cells.Cells()), 0, 0};
    for (const CaseRun& c : factors.Runs) {
      run.Iterations = std::max(run.Iterations, c.Outcome.Iterations);
      run.Solutions = std::max(run.Solutions, c.Solutions);
    }
    runs.push_back(run);
  }
  std::sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.Seconds < b.Seconds; });
  const auto most = [&runs](auto member) {
    const auto less = [member](const Run& a, const Run& b) { return a.*member < b.*member; };
    return (*std::max_element(runs.begin(), runs.end(), less)).*member;
  };
  fmt::print(
      "\n{} random panels, both cases: median {:.3f} s, 90 % {:.3f} s, most {:.3f} s; most cells {:.0f}, "
      "iterations of a solution {}, solutions of a case {}\n",
      count, runs[runs.size() / 2].Seconds, runs[runs.size() * 9 / 10].Seconds, runs.back().Seconds,
      most(&Run::Cells), most(&Run::Iterations), most(&Run::Solutions));
}

}  // namespace
}  // namespace korva::laminated

int main(int argc, char** argv) {
  using namespace korva::laminated;
  constexpr int kMostKept = 32 << 20;
  mallopt(M_MMAP_THRESHOLD, kMostKept);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
#ifdef KORVA_HYPRE
  MPI_Init(&argc, &argv);
  HYPRE_Init();
#endif
  fmt::print("{:>5} {:<18} {:>4} {:>10} {:>8} {:>8} {:>7} {:>7} {:>10}\n", "cells", "method", "it", "ms",
             "ns/cell", "triads", "MB", "B/cell", "difference");
  for (const int n : {256, 512, 1024, 2048}) {
    Compare(n, runs);
  }
  TimeRandomPanels(200);
#ifdef KORVA_HYPRE
  HYPRE_Finalize();
  MPI_Finalize();
#endif
  return 0;
}
