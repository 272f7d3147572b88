// One multigrid cycle in 32 bits, the preconditioner of the membrane's iteration.
#pragma once

#include <vector>

#include "BandedCholesky.h"
#include "Kernels.h"
#include "Plane.h"

namespace korva::laminated {

class Multigrid {
 public:
  Multigrid(int nx, int ny, Stencil<double> stencil, const Kernels& kernels);

  // Takes over the stiffness and prepares the coarser grids. Throws as BandedCholesky does.
  void SetStiffness(const Plane<double>& k);

  // The load of the next cycle, to be filled in; 32-bit cells of the finest grid.
  Plane<float>& Load() { return levels_.front().b; }
  // Runs a cycle from zero; the result stands until the next one.
  const Plane<float>& Cycle();

  // A first guess for the load 1 from the coarser grids, by one cycle on each.
  void Guess(Plane<double>& u);

 private:
  struct Level {
    int nx;
    int ny;
    Stencil<float> a;
    Plane<float> k;
    Plane<float> b;
    Plane<float> y;
    Plane<float> guess;  // of the coarser grids only
  };

  void CycleFrom(std::size_t at);
  void SmoothFromZero(Level& level);
  void RestrictResidual(Level& level, Level& coarse);
  void CorrectAndSmooth(Level& level, const Level& coarse);
  void AddProlonged(float* row, const Plane<float>& coarse, int j) const;
  void GuessOn(std::size_t at);
  float* Buffer(int row, int of);

  const Kernels& kernels_;
  std::vector<Level> levels_;
  BandedCholesky bottom_;
  Plane<float> buffers_;
};

}  // namespace korva::laminated
