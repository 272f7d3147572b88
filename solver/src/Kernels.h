// The inner loops of the membrane solver, row by row, in one version for every kind of processor.
#pragma once

#include <cstddef>

namespace korva::laminated {

// The operator (k + 2 Ax + 2 Ay) u - Ax (left + right) - Ay (lower + upper) in the precision of a level. A
// row has one more valid cell at both ends, holding what its neighbor holds; above the last and below the
// first row, callers pass the row itself: nothing flows out of the ground.
template <class Real>
struct Stencil {
  Real Ax;
  Real Ay;
};

// The smoother's two Chebyshev steps on the operator scaled by its diagonal.
struct ChebyshevWeights {
  float First;     // of the scaled residual, first step
  float Momentum;  // of the first step, in the second
  float Second;    // of the scaled residual, second step
};

template <class Real>
struct Rows {
  const Real* Below;
  const Real* Here;
  const Real* Above;
};

// Every function works on n cells. Sums are taken in eight lanes and joined in a fixed order, and no
// multiplication is fused with an addition, so all versions give the same bits.
struct Kernels {
  // x = first Chebyshev step from zero for the load b.
  void (*StepFromZero)(float* x, const float* b, const float* k, Stencil<float> a, float weight, int n);
  // y = second step from zero, x being the first.
  void (*SecondStepFromZero)(float* y, Rows<float> x, const float* b, const float* k, Stencil<float> a,
                             ChebyshevWeights w, int n);
  // x = first step from y.
  void (*FirstStep)(float* x, Rows<float> y, const float* b, const float* k, Stencil<float> a, float weight,
                    int n);
  // z = second step, x being the first and y what it started from; z may be y's own middle row.
  void (*SecondStep)(float* z, Rows<float> x, const float* y, const float* b, const float* k,
                     Stencil<float> a, ChebyshevWeights w, int n);
  // r = b - operator y.
  void (*Residual)(float* r, Rows<float> y, const float* b, const float* k, Stencil<float> a, int n);
  // coarse = (1, 3, 3, 1) x (1, 3, 3, 1) / 64 of four rows, for n coarse cells.
  void (*Restrict)(float* coarse, const float* const* fine, int n);
  // fine += bilinear value of the coarse rows, `near` weighing 3/4 and `far` 1/4. n coarse cells give 2 n
  // fine ones.
  void (*Prolong)(float* fine, const float* near, const float* far, int n);

  // p = z * scale + beta p.
  void (*Direction)(double* p, const float* z, double scale, double beta, int n);
  // q = operator p; gives sum p q.
  double (*Apply)(double* q, Rows<double> p, const double* k, Stencil<double> a, int n);
  // u += alpha p, r -= alpha q, b = r * scale; gives sum r r.
  double (*Advance)(double* u, double* r, float* b, const double* p, const double* q, double alpha,
                    double scale, int n);
  // Sum r z.
  double (*Dot)(const double* r, const float* z, int n);
  // Sum a b.
  double (*Product)(const double* a, const double* b, int n);
};

// The fastest version for the processor at hand.
const Kernels& KernelsOfThisProcessor();

// All versions that the processor at hand can run, the portable one first.
struct KernelChoice {
  const char* Name;
  const Kernels* Table;
};
std::size_t KernelChoices(KernelChoice (&choices)[3]);

}  // namespace korva::laminated
