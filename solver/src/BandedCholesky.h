// The membrane on a small grid, solved directly.
#pragma once

#include <vector>

#include "Kernels.h"
#include "Plane.h"

namespace korva::laminated {

class BandedCholesky {
 public:
  // Factors the operator on the cells of `k`. Throws std::domain_error if it is not positive.
  void Factor(const Plane<float>& k, Stencil<float> stencil);
  // Solves for the load `b` into `y`, whose outer cells are set too.
  void Solve(const Plane<float>& b, Plane<float>& y);

 private:
  std::size_t At(int i, int j) const;  // number of a cell
  double& Band(std::size_t row, std::size_t offset) { return band_[row * (width_ + 1) + offset]; }

  bool alongRows_ = true;  // cells are numbered along the shorter side
  int nx_ = 0;
  int ny_ = 0;
  std::size_t width_ = 0;     // of the band below the diagonal
  std::vector<double> band_;  // of the factor, row after row, the diagonal last
  std::vector<double> x_;
};

}  // namespace korva::laminated
