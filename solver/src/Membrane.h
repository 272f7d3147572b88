// The membrane on a variable foundation: k u - L^2 del^2 u = 1 on a grid of cells, with no flow out of it.
#pragma once

#include <memory>
#include <vector>

namespace korva::laminated {

struct Kernels;

struct SolveOutcome {
  bool Converged = false;
  int Iterations = 0;
  double Residual = 0;     // of the last iterate, relative to the right side
  double Equilibrium = 0;  // |sum of k u over the number of cells - 1|
};

struct SolveRule {
  double Tolerance = 1e-7;  // of the relative residual
  int MostIterations = 80;
};

// Solves on nx by ny cells; `ax` and `ay` are L^2 over the square of the cell's size across and along.
// Conjugate gradients in 64 bits, preconditioned by one multigrid cycle in 32. Sides that can be halved often
// (multiples of 32) make it fast; the side that is left when one is odd must not exceed 2,000 cells in the
// shorter and 40,000 in all. Memory: about 60 bytes a cell.
class Membrane {
 public:
  Membrane(int nx, int ny, double ax, double ay);
  Membrane(int nx, int ny, double ax, double ay, const Kernels& kernels);
  ~Membrane();
  Membrane(const Membrane&) = delete;
  Membrane& operator=(const Membrane&) = delete;

  // The stiffness of every cell, row after row; not negative, and somewhere above 0 or std::domain_error.
  void SetStiffness(const std::vector<double>& k);

  // Solves for the right side 1. With `warm`, starts from the last solution.
  SolveOutcome Solve(const SolveRule& rule = {}, bool warm = false);
  // Solves for any right side, row after row, from 0.
  SolveOutcome SolveFor(const std::vector<double>& load, const SolveRule& rule = {});

  // k u of the last solution, row after row: the vertical stress in units of the cover's.
  std::vector<double> Stress() const;
  // u itself.
  std::vector<double> Solution() const;

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

}  // namespace korva::laminated
