// The inner loops, compiled once for each kind of processor under a name of its own. Nothing is included that
// brings inline functions of others: a copy made for a newer processor must never be taken by an older one.
#include "Kernels.h"

#ifndef KORVA_KERNELS
#error "KORVA_KERNELS names the table of this version"
#endif

namespace korva::laminated {

namespace {

constexpr int kLanes = 8;
using Lanes = double __attribute__((vector_size(kLanes * sizeof(double))));

double Joined(const Lanes& s) {
  return ((s[0] + s[4]) + (s[2] + s[6])) + ((s[1] + s[5]) + (s[3] + s[7]));
}

// Sums value(i) over n cells, eight at a time in eight lanes.
template <class Value>
double LaneSum(int n, Value&& value) {
  Lanes sum = {};
  int i = 0;
  for (; i + kLanes <= n; i += kLanes) {
    double block[kLanes];
    for (int lane = 0; lane < kLanes; ++lane) {
      block[lane] = value(i + lane);
    }
    for (int lane = 0; lane < kLanes; ++lane) {
      sum[lane] += block[lane];
    }
  }
  double rest = 0;
  for (; i < n; ++i) {
    rest += value(i);
  }
  return Joined(sum) + rest;
}

template <class Real>
Real Flow(const Rows<Real>& u, Stencil<Real> a, int i) {
  return a.Ax * (u.Here[i - 1] + u.Here[i + 1]) + a.Ay * (u.Below[i] + u.Above[i]);
}

template <class Real>
Real Diagonal(Real k, Stencil<Real> a) {
  return k + 2 * (a.Ax + a.Ay);
}

void StepFromZero(float* __restrict x, const float* __restrict b, const float* __restrict k, Stencil<float> a,
                  float weight, int n) {
  for (int i = 0; i < n; ++i) {
    x[i] = weight * b[i] / Diagonal(k[i], a);
  }
}

// The residual over the diagonal.
float Scaled(const Rows<float>& x, const float* b, const float* k, Stencil<float> a, int i) {
  return (b[i] + Flow(x, a, i)) / Diagonal(k[i], a) - x.Here[i];
}

void SecondStepFromZero(float* __restrict y, Rows<float> x, const float* __restrict b,
                        const float* __restrict k, Stencil<float> a, ChebyshevWeights w, int n) {
  for (int i = 0; i < n; ++i) {
    y[i] = x.Here[i] + w.Momentum * x.Here[i] + w.Second * Scaled(x, b, k, a, i);
  }
}

void FirstStep(float* __restrict x, Rows<float> y, const float* __restrict b, const float* __restrict k,
               Stencil<float> a, float weight, int n) {
  for (int i = 0; i < n; ++i) {
    x[i] = y.Here[i] + weight * Scaled(y, b, k, a, i);
  }
}

void SecondStep(float* z, Rows<float> x, const float* y, const float* __restrict b, const float* __restrict k,
                Stencil<float> a, ChebyshevWeights w, int n) {
  for (int i = 0; i < n; ++i) {
    z[i] = x.Here[i] + w.Momentum * (x.Here[i] - y[i]) + w.Second * Scaled(x, b, k, a, i);
  }
}

void Residual(float* __restrict r, Rows<float> y, const float* __restrict b, const float* __restrict k,
              Stencil<float> a, int n) {
  for (int i = 0; i < n; ++i) {
    r[i] = b[i] + Flow(y, a, i) - Diagonal(k[i], a) * y.Here[i];
  }
}

void Restrict(float* __restrict coarse, const float* const* fine, int n) {
  const float* f0 = fine[0];
  const float* f1 = fine[1];
  const float* f2 = fine[2];
  const float* f3 = fine[3];
  const auto column = [&](int i) { return (f0[i] + f3[i]) + 3 * (f1[i] + f2[i]); };
  for (int i = 0; i < n; ++i) {
    coarse[i] = ((column(2 * i - 1) + column(2 * i + 2)) + 3 * (column(2 * i) + column(2 * i + 1))) / 64;
  }
}

void Prolong(float* __restrict fine, const float* __restrict near, const float* __restrict far, int n) {
  const auto column = [&](int i) { return (3 * near[i] + far[i]) / 16; };
  for (int i = 0; i < n; ++i) {
    const float here = 3 * column(i);
    const int left = 2 * i;
    fine[left] += here + column(i - 1);
    fine[left + 1] += here + column(i + 1);
  }
}

void Direction(double* __restrict p, const float* __restrict z, double scale, double beta, int n) {
  for (int i = 0; i < n; ++i) {
    p[i] = scale * static_cast<double>(z[i]) + beta * p[i];
  }
}

double Apply(double* __restrict q, Rows<double> p, const double* __restrict k, Stencil<double> a, int n) {
  for (int i = 0; i < n; ++i) {
    q[i] = Diagonal(k[i], a) * p.Here[i] - Flow(p, a, i);
  }
  return LaneSum(n, [&](int i) { return q[i] * p.Here[i]; });
}

double Advance(double* __restrict u, double* __restrict r, float* __restrict b, const double* __restrict p,
               const double* __restrict q, double alpha, double scale, int n) {
  for (int i = 0; i < n; ++i) {
    u[i] += alpha * p[i];
    r[i] -= alpha * q[i];
    b[i] = static_cast<float>(scale * r[i]);
  }
  return LaneSum(n, [&](int i) { return r[i] * r[i]; });
}

double Dot(const double* __restrict r, const float* __restrict z, int n) {
  return LaneSum(n, [&](int i) { return r[i] * static_cast<double>(z[i]); });
}

double Product(const double* a, const double* b, int n) {
  return LaneSum(n, [&](int i) { return a[i] * b[i]; });
}

}  // namespace

extern const Kernels KORVA_KERNELS;
const Kernels KORVA_KERNELS = {StepFromZero, SecondStepFromZero, FirstStep, SecondStep, Residual, Restrict,
                               Prolong,      Direction,          Apply,     Advance,    Dot,      Product};

}  // namespace korva::laminated
