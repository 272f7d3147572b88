#include "SolverMethods.h"

#include <unistd.h>

#include <Eigen/IterativeLinearSolvers>
#include <Eigen/Sparse>
#include <chrono>
#include <fstream>

#include "Membrane.h"

namespace korva::laminated {

namespace {

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Eigen::SparseMatrix<double> MatrixOf(const Problem& problem) {
  const int n = problem.N;
  Eigen::SparseMatrix<double> matrix(n * n, n * n);
  matrix.reserve(Eigen::VectorXi::Constant(n * n, 5));
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < n; ++i) {
      const int at = j * n + i;
      double diagonal = problem.Stiffness[static_cast<std::size_t>(at)];
      const auto neighbor = [&](bool there, int other) {
        if (there) {
          matrix.insert(at, other) = -problem.A;
          diagonal += problem.A;
        }
      };
      neighbor(j > 0, at - n);
      neighbor(i > 0, at - 1);
      neighbor(i < n - 1, at + 1);
      neighbor(j < n - 1, at + n);
      matrix.insert(at, at) = diagonal;
    }
  }
  matrix.makeCompressed();
  return matrix;
}

}  // namespace

Stopwatch::Stopwatch() : began_(Now()) {}

double Stopwatch::Seconds() const {
  return Now() - began_;
}

double ResidentMegabytes() {
  std::ifstream file("/proc/self/statm");
  double size = 0;
  double resident = 0;
  file >> size >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

Answer SolveByMembrane(const Problem& problem) {
  const double before = ResidentMegabytes();
  const Stopwatch watch;
  Membrane membrane(problem.N, problem.N, problem.A, problem.A);
  membrane.SetStiffness(problem.Stiffness);
  const SolveOutcome outcome = membrane.Solve({.Tolerance = kTolerance});
  const double seconds = watch.Seconds();
  return {outcome.Iterations, seconds, ResidentMegabytes() - before, membrane.Solution()};
}

// Its matrix is made before the clock starts.
Answer SolveByEigen(const Problem& problem) {
  const double before = ResidentMegabytes();
  const Eigen::SparseMatrix<double> matrix = MatrixOf(problem);
  const Eigen::VectorXd one = Eigen::VectorXd::Ones(matrix.rows());
  const Stopwatch watch;
  Eigen::ConjugateGradient<Eigen::SparseMatrix<double>, Eigen::Lower | Eigen::Upper,
                           Eigen::IncompleteCholesky<double>>
      solver;
  solver.setTolerance(kTolerance);
  solver.setMaxIterations(10000);
  solver.compute(matrix);
  const Eigen::VectorXd u = solver.solveWithGuess(one, one);
  const double seconds = watch.Seconds();
  return {static_cast<int>(solver.iterations()),
          seconds,
          ResidentMegabytes() - before,
          {u.data(), u.data() + u.size()}};
}

}  // namespace korva::laminated
