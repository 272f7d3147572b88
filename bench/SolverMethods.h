// The ways to solve the problem that are compared, each with its setup in its time.
#pragma once

#include "SolverProblem.h"

namespace korva::laminated {

inline constexpr double kTolerance = 1e-8;  // of the relative residual

struct Answer {
  int Iterations = 0;
  double Seconds = 0;
  double Megabytes = 0;  // by which the process grew; counts if nothing was freed before
  std::vector<double> U;
};

Answer SolveByMembrane(const Problem& problem);
Answer SolveByEigen(const Problem& problem);  // conjugate gradients with incomplete Cholesky
#ifdef KORVA_HYPRE
Answer SolveByHypre(const Problem& problem);  // conjugate gradients with its structured multigrid, red-black
#endif

// Megabytes of the process that are in memory.
double ResidentMegabytes();

class Stopwatch {
 public:
  Stopwatch();
  double Seconds() const;

 private:
  double began_;
};

}  // namespace korva::laminated
