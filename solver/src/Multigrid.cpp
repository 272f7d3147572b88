#include "Multigrid.h"

#include <stdexcept>

namespace korva::laminated {

namespace {

// Chebyshev polynomial of degree 2 for the part [0.3, 2] of the spectrum of the operator over its diagonal.
constexpr double kLow = 0.3;
constexpr double kHigh = 2;
constexpr double kCenter = (kHigh + kLow) / 2;
constexpr double kHalf = (kHigh - kLow) / 2;
constexpr double kRho0 = kHalf / kCenter;
constexpr double kRho1 = 1 / (2 * kCenter / kHalf - kRho0);
constexpr ChebyshevWeights kWeights = {static_cast<float>(1 / kCenter), static_cast<float>(kRho1* kRho0),
                                       static_cast<float>(2 * kRho1 / kHalf)};

constexpr int kFewCells = 2048;
constexpr int kMostBottomSide = 2000;
constexpr int kMostBottomCells = 40'000;
constexpr int kBufferRows = 4;

bool CanHalve(int nx, int ny) {
  return nx % 2 == 0 && ny % 2 == 0 && static_cast<long>(nx) * ny > kFewCells;
}

Stencil<float> Narrowed(Stencil<double> a, double factor) {
  return {static_cast<float>(a.Ax * factor), static_cast<float>(a.Ay * factor)};
}

}  // namespace

Multigrid::Multigrid(int nx, int ny, Stencil<double> stencil, const Kernels& kernels)
    : kernels_(kernels), buffers_(nx, kBufferRows) {
  double factor = 1;
  levels_.push_back({nx, ny, Narrowed(stencil, factor), {nx, ny}, {nx, ny}, {nx, ny}, {}});
  while (CanHalve(nx, ny)) {
    nx /= 2;
    ny /= 2;
    factor /= 4;
    levels_.push_back({nx, ny, Narrowed(stencil, factor), {nx, ny}, {nx, ny}, {nx, ny}, {nx, ny}});
  }
  if (std::min(nx, ny) > kMostBottomSide || static_cast<long>(nx) * ny > kMostBottomCells) {
    throw std::invalid_argument("the sides of the grid cannot be halved often enough");
  }
}

void Multigrid::SetStiffness(const Plane<double>& k) {
  Level& finest = levels_.front();
  for (int j = 0; j < finest.ny; ++j) {
    std::transform(k.Row(j), k.Row(j) + finest.nx, finest.k.Row(j),
                   [](double v) { return static_cast<float>(v); });
  }
  for (std::size_t at = 1; at < levels_.size(); ++at) {
    const Level& fine = levels_[at - 1];
    Level& coarse = levels_[at];
    for (int j = 0; j < coarse.ny; ++j) {
      const float* lower = fine.k.Row(2 * j);
      const float* upper = fine.k.Row(2 * j + 1);
      for (int i = 0; i < coarse.nx; ++i) {
        const int left = 2 * i;
        coarse.k.Row(j)[i] = ((lower[left] + lower[left + 1]) + (upper[left] + upper[left + 1])) / 4;
      }
    }
  }
  bottom_.Factor(levels_.back().k, levels_.back().a);
}

float* Multigrid::Buffer(int row, int of) {
  return buffers_.Row((row + of) % of);
}

void Multigrid::SmoothFromZero(Level& level) {
  constexpr int kRows = 3;
  const auto first = [&](int j) {
    float* x = Buffer(j, kRows);
    kernels_.StepFromZero(x, level.b.Row(j), level.k.Row(j), level.a, kWeights.First, level.nx);
    Mirror(x, level.nx);
  };
  first(0);
  for (int j = 0; j < level.ny; ++j) {
    if (j + 1 < level.ny) {
      first(j + 1);
    }
    const Rows<float> x = {Buffer(std::max(j - 1, 0), kRows), Buffer(j, kRows),
                           Buffer(std::min(j + 1, level.ny - 1), kRows)};
    float* y = level.y.Row(j);
    kernels_.SecondStepFromZero(y, x, level.b.Row(j), level.k.Row(j), level.a, kWeights, level.nx);
    Mirror(y, level.nx);
  }
}

void Multigrid::RestrictResidual(Level& level, Level& coarse) {
  const auto residual = [&](int j) {
    float* r = Buffer(j, kBufferRows);
    kernels_.Residual(r, {level.y.Row(j - 1), level.y.Row(j), level.y.Row(j + 1)}, level.b.Row(j),
                      level.k.Row(j), level.a, level.nx);
    Mirror(r, level.nx);
  };
  residual(0);
  for (int j = 0; j < coarse.ny; ++j) {
    residual(2 * j + 1);
    if (2 * j + 2 < level.ny) {
      residual(2 * j + 2);
    }
    const float* fine[] = {Buffer(std::max(2 * j - 1, 0), kBufferRows), Buffer(2 * j, kBufferRows),
                           Buffer(2 * j + 1, kBufferRows),
                           Buffer(std::min(2 * j + 2, level.ny - 1), kBufferRows)};
    kernels_.Restrict(coarse.b.Row(j), fine, coarse.nx);
  }
}

void Multigrid::AddProlonged(float* row, const Plane<float>& coarse, int j) const {
  const int near = j / 2;
  kernels_.Prolong(row, coarse.Row(near), coarse.Row(j % 2 == 0 ? near - 1 : near + 1), coarse.Nx());
  Mirror(row, 2 * coarse.Nx());
}

// Each row is corrected from the coarser grid two rows ahead, and takes its first step one row ahead, of the
// second step, which puts it back.
void Multigrid::CorrectAndSmooth(Level& level, const Level& coarse) {
  constexpr int kRows = 3;
  const auto correct = [&](int j) { AddProlonged(level.y.Row(j), coarse.y, j); };
  const auto first = [&](int j) {
    float* x = Buffer(j, kRows);
    kernels_.FirstStep(x, {level.y.Row(j - 1), level.y.Row(j), level.y.Row(j + 1)}, level.b.Row(j),
                       level.k.Row(j), level.a, kWeights.First, level.nx);
    Mirror(x, level.nx);
  };
  correct(0);
  correct(1);
  first(0);
  for (int j = 0; j < level.ny; ++j) {
    if (j + 2 < level.ny) {
      correct(j + 2);
    }
    if (j + 1 < level.ny) {
      first(j + 1);
    }
    const Rows<float> x = {Buffer(std::max(j - 1, 0), kRows), Buffer(j, kRows),
                           Buffer(std::min(j + 1, level.ny - 1), kRows)};
    float* y = level.y.Row(j);
    kernels_.SecondStep(y, x, y, level.b.Row(j), level.k.Row(j), level.a, kWeights, level.nx);
    Mirror(y, level.nx);
  }
}

void Multigrid::CycleFrom(std::size_t at) {
  if (at + 1 == levels_.size()) {
    bottom_.Solve(levels_[at].b, levels_[at].y);
    return;
  }
  SmoothFromZero(levels_[at]);
  RestrictResidual(levels_[at], levels_[at + 1]);
  CycleFrom(at + 1);
  CorrectAndSmooth(levels_[at], levels_[at + 1]);
}

const Plane<float>& Multigrid::Cycle() {
  CycleFrom(0);
  return levels_.front().y;
}

// On a coarser grid: the guess of the next coarser one, and a cycle on what it leaves.
void Multigrid::GuessOn(std::size_t at) {
  Level& level = levels_[at];
  const std::vector<float> ones(static_cast<std::size_t>(level.nx), 1.0F);
  if (at + 1 == levels_.size()) {
    for (int j = 0; j < level.ny; ++j) {
      std::copy(ones.begin(), ones.end(), level.b.Row(j));
    }
    bottom_.Solve(level.b, level.guess);
    return;
  }
  for (int j = 0; j < level.ny; ++j) {
    std::fill_n(level.guess.Row(j), level.nx, 0.0F);
    AddProlonged(level.guess.Row(j), levels_[at + 1].guess, j);
  }
  for (int j = 0; j < level.ny; ++j) {
    kernels_.Residual(level.b.Row(j), {level.guess.Row(j - 1), level.guess.Row(j), level.guess.Row(j + 1)},
                      ones.data(), level.k.Row(j), level.a, level.nx);
  }
  CycleFrom(at);
  for (int j = 0; j < level.ny; ++j) {
    float* guess = level.guess.Row(j);
    std::transform(guess, guess + level.nx, level.y.Row(j), guess, [](float g, float y) { return g + y; });
    Mirror(guess, level.nx);
  }
}

void Multigrid::Guess(Plane<double>& u) {
  const Level& finest = levels_.front();
  if (levels_.size() == 1) {
    for (int j = 0; j < finest.ny; ++j) {
      std::fill_n(u.Row(j), finest.nx, 1.0);
    }
    return;
  }
  for (std::size_t at = levels_.size(); at-- > 1;) {
    GuessOn(at);
  }
  for (int j = 0; j < finest.ny; ++j) {
    float* row = Buffer(0, kBufferRows);
    std::fill_n(row, finest.nx, 0.0F);
    AddProlonged(row, levels_[1].guess, j);
    std::transform(row, row + finest.nx, u.Row(j), [](float v) { return static_cast<double>(v); });
  }
}

}  // namespace korva::laminated
