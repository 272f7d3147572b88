#include "Membrane.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>

#include "Multigrid.h"

namespace korva::laminated {

class Membrane::Work {
 public:
  Work(int nx, int ny, Stencil<double> a, const Kernels& kernels)
      : nx_(nx),
        ny_(ny),
        a_(a),
        kernels_(kernels),
        multigrid_(nx, ny, a, kernels),
        k_(nx, ny),
        u_(nx, ny),
        r_(nx, ny),
        p_(nx, ny),
        q_(nx, ny) {}

  void SetStiffness(const std::vector<double>& k) {
    if (std::none_of(k.begin(), k.end(), [](double value) { return value > 0; })) {
      throw std::domain_error("the foundation has no stiffness");
    }
    for (int j = 0; j < ny_; ++j) {
      std::copy_n(k.begin() + static_cast<std::ptrdiff_t>(j) * nx_, nx_, k_.Row(j));
    }
    multigrid_.SetStiffness(k_);
  }

  std::size_t CellAt(int i, int j) const {
    return static_cast<std::size_t>(j) * static_cast<std::size_t>(nx_) + static_cast<std::size_t>(i);
  }

  void StartFromGuess() { multigrid_.Guess(u_); }
  void StartFromZero() {
    for (int j = 0; j < ny_; ++j) {
      std::fill_n(u_.Row(j), nx_, 0.0);
    }
  }

  template <class Load>
  SolveOutcome Solve(const SolveRule& rule, Load&& load) {
    const double whole = SetResidual(load);
    SolveOutcome outcome;
    double rr = residual_;
    double rzBefore = 0;
    const double cells = static_cast<double>(nx_) * ny_;
    while (Relative(rr, whole) > rule.Tolerance && outcome.Iterations < rule.MostIterations) {
      const Plane<float>& z = multigrid_.Cycle();
      const double rz = ResidualTimes(z) / scale_;
      const double pq = NextDirection(z, 1 / scale_, outcome.Iterations == 0 ? 0 : rz / rzBefore);
      if (!(rz > 0) || !(pq > 0)) {
        break;
      }
      scale_ = std::sqrt(cells / rr);
      rr = Advance(rz / pq);
      rzBefore = rz;
      ++outcome.Iterations;
    }
    outcome.Residual = Relative(rr, whole);
    outcome.Converged = outcome.Residual <= rule.Tolerance;
    outcome.Equilibrium = std::abs(CarriedLoad() / cells - 1);
    return outcome;
  }

  std::vector<double> Copy(bool stress) const {
    std::vector<double> values(static_cast<std::size_t>(nx_) * static_cast<std::size_t>(ny_));
    auto to = values.begin();
    for (int j = 0; j < ny_; ++j) {
      const double* k = k_.Row(j);
      const double* u = u_.Row(j);
      to = std::transform(u, u + nx_, k, to, [stress](double x, double s) { return stress ? s * x : x; });
    }
    return values;
  }

 private:
  // Not a number is never small enough.
  static double Relative(double rr, double whole) {
    const double relative = std::sqrt(rr / whole);
    return std::isfinite(relative) ? relative : std::numeric_limits<double>::max();
  }

  // r = load - operator u. Gives the load's sum of squares.
  template <class Load>
  double SetResidual(Load&& load) {
    double whole = 0;
    residual_ = 0;
    for (int j = 0; j < ny_; ++j) {
      Mirror(u_.Row(j), nx_);
    }
    for (int j = 0; j < ny_; ++j) {
      double* r = r_.Row(j);
      double* q = q_.Row(j);
      kernels_.Apply(q, {u_.Row(j - 1), u_.Row(j), u_.Row(j + 1)}, k_.Row(j), a_, nx_);
      for (int i = 0; i < nx_; ++i) {
        r[i] = load(i, j);
      }
      whole += kernels_.Product(r, r, nx_);
      std::transform(r, r + nx_, q, r, std::minus<>());
      residual_ += kernels_.Product(r, r, nx_);
    }
    scale_ = residual_ > 0 ? std::sqrt(static_cast<double>(nx_) * ny_ / residual_) : 1;
    for (int j = 0; j < ny_; ++j) {
      const double* r = r_.Row(j);
      std::transform(r, r + nx_, multigrid_.Load().Row(j),
                     [this](double value) { return static_cast<float>(scale_ * value); });
    }
    return whole;
  }

  double ResidualTimes(const Plane<float>& z) const {
    double sum = 0;
    for (int j = 0; j < ny_; ++j) {
      sum += kernels_.Dot(r_.Row(j), z.Row(j), nx_);
    }
    return sum;
  }

  // p = z scaled + beta p, q = operator p, one row behind. Gives sum p q.
  double NextDirection(const Plane<float>& z, double scale, double beta) {
    const auto direct = [&](int j) {
      kernels_.Direction(p_.Row(j), z.Row(j), scale, beta, nx_);
      Mirror(p_.Row(j), nx_);
    };
    double sum = 0;
    direct(0);
    for (int j = 0; j < ny_; ++j) {
      if (j + 1 < ny_) {
        direct(j + 1);
      }
      sum += kernels_.Apply(q_.Row(j), {p_.Row(j - 1), p_.Row(j), p_.Row(j + 1)}, k_.Row(j), a_, nx_);
    }
    return sum;
  }

  double Advance(double alpha) {
    double sum = 0;
    for (int j = 0; j < ny_; ++j) {
      sum += kernels_.Advance(u_.Row(j), r_.Row(j), multigrid_.Load().Row(j), p_.Row(j), q_.Row(j), alpha,
                              scale_, nx_);
    }
    return sum;
  }

  double CarriedLoad() const {
    double sum = 0;
    for (int j = 0; j < ny_; ++j) {
      sum += kernels_.Product(k_.Row(j), u_.Row(j), nx_);
    }
    return sum;
  }

  int nx_;
  int ny_;
  Stencil<double> a_;
  const Kernels& kernels_;
  Multigrid multigrid_;
  Plane<double> k_;
  Plane<double> u_;
  Plane<double> r_;
  Plane<double> p_;
  Plane<double> q_;
  double residual_ = 0;
  double scale_ = 1;  // brings the residual to order 1 before it becomes 32 bits
};

Membrane::Membrane(int nx, int ny, double ax, double ay)
    : Membrane(nx, ny, ax, ay, KernelsOfThisProcessor()) {}

Membrane::Membrane(int nx, int ny, double ax, double ay, const Kernels& kernels)
    : work_(std::make_unique<Work>(nx, ny, Stencil<double>{ax, ay}, kernels)) {}

Membrane::~Membrane() = default;

void Membrane::SetStiffness(const std::vector<double>& k) {
  work_->SetStiffness(k);
}

SolveOutcome Membrane::Solve(const SolveRule& rule, bool warm) {
  if (!warm) {
    work_->StartFromGuess();
  }
  return work_->Solve(rule, [](int, int) { return 1.0; });
}

SolveOutcome Membrane::SolveFor(const std::vector<double>& load, const SolveRule& rule) {
  work_->StartFromZero();
  return work_->Solve(rule, [&](int i, int j) { return load[work_->CellAt(i, j)]; });
}

std::vector<double> Membrane::Stress() const {
  return work_->Copy(true);
}

std::vector<double> Membrane::Solution() const {
  return work_->Copy(false);
}

}  // namespace korva::laminated
