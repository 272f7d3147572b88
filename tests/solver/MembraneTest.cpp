#include <gtest/gtest.h>

#include <Eigen/Sparse>
#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

#include "ClosedForms.h"
#include "Kernels.h"
#include "Membrane.h"

namespace korva::laminated {
namespace {

TEST(Membrane, SolidGroundBearsItsCover) {
  Bed bed({.Cx = 5, .Cy = 5, .Nx = 64, .Ny = 96});
  bed.Lay({.X0 = -kUnbounded, .X1 = kUnbounded}, 1);
  bed.Solve(kLength);
  EXPECT_TRUE(bed.Outcome.Converged);
  for (const double u : bed.Solution) {
    ASSERT_NEAR(u, 1, 1e-9);
  }
}

TEST(Membrane, CosineModesAreExactOnTheGrid) {
  constexpr int kNx = 96;
  constexpr int kNy = 64;
  const double k = 0.3;
  const double ax = 40;
  const double ay = 25;
  for (const auto& [m, n] : {std::pair{1, 0}, std::pair{3, 5}, std::pair{40, 63}}) {
    const double sx = std::sin(std::numbers::pi * m / (2 * kNx));
    const double sy = std::sin(std::numbers::pi * n / (2 * kNy));
    const double eigenvalue = k + 4 * ax * sx * sx + 4 * ay * sy * sy;
    std::vector<double> load;
    for (int j = 0; j < kNy; ++j) {
      for (int i = 0; i < kNx; ++i) {
        load.push_back(std::cos(std::numbers::pi * m * (i + 0.5) / kNx) *
                       std::cos(std::numbers::pi * n * (j + 0.5) / kNy));
      }
    }
    Membrane membrane(kNx, kNy, ax, ay);
    membrane.SetStiffness(std::vector<double>(load.size(), k));
    EXPECT_TRUE(membrane.SolveFor(load, {.Tolerance = 1e-12}).Converged);
    const std::vector<double> u = membrane.Solution();
    double worst = 0;
    for (std::size_t i = 0; i < u.size(); ++i) {
      worst = std::max(worst, std::abs(u[i] * eigenvalue - load[i]));
    }
    EXPECT_LT(worst, 1e-9) << m << " " << n;
  }
}

TEST(Membrane, AWideGobShedsItsClosedFormInSecondOrder) {
  for (const double off : {0.0, 0.37}) {
    double before = 0;
    for (const double finer : {16.0, 32.0, 64.0, 128.0}) {
      const double error = WideGobError(0.07, finer, off);
      EXPECT_LE(error, 2e-4 * 256 / (finer * finer)) << finer << " " << off;
      if (before > 0) {
        EXPECT_GT(before / error, 3.5) << finer << " " << off;
        EXPECT_LT(before / error, 5) << finer << " " << off;
      }
      before = error;
    }
  }
}

TEST(Membrane, AnOpeningShedsItsCover) {
  for (const double a : {10.0, 50.0}) {
    const OpeningErrors errors = OpeningError(a, 96);
    EXPECT_LT(errors.Shed, 1e-3) << a;
    EXPECT_LT(errors.Middle, 1e-3) << a;
  }
}

TEST(Membrane, AGobBetweenAbutmentsShedsWhatItIsCalibratedFor) {
  EXPECT_LT(GobError(350, 0.02, 1, 64), 5e-4);
  EXPECT_LT(GobError(40, 0.3, 1, 64), 5e-4);
  EXPECT_LT(GobError(200, 0.05, 0.7, 64), 5e-4);
}

TEST(Membrane, ADiscBearsItsClosedForm) {
  for (const double r : {0.07, 20.0}) {
    const double coarse = DiscError(150, r, 256);
    const double fine = DiscError(150, r, 1024);
    EXPECT_LT(coarse, 8e-4) << r;
    EXPECT_LT(fine, 5e-5) << r;
    EXPECT_GT(std::log2(coarse / fine), 2 * 1.7) << r << " " << coarse << " " << fine;
  }
}

TEST(Membrane, AnArrayOfPillarsBearsAllCover) {
  // A quarter of a pillar with its share of entry and crosscut, edges between cells.
  Bed bed({.Cx = 1.25, .Cy = 1.25, .Nx = 32, .Ny = 32});
  bed.Lay({.X0 = 0, .X1 = 29.3, .Y0 = 0, .Y1 = 26.1}, 1);
  bed.Solve(kLength, 1e-12);
  EXPECT_NEAR(bed.Integral({.X0 = 0, .X1 = 29.3, .Y0 = 0, .Y1 = 26.1}), 1600, 1e-7);
}

TEST(Membrane, HardGroundConvergesInFewIterationsAndKeepsTheLoad) {
  std::mt19937 random(7);
  for (const double a : {1.0, 100.0, 1e4}) {
    for (const int side : {128, 256}) {
      Membrane membrane(side, side, a, a);
      std::vector<double> k(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
      for (double& value : k) {
        value = (random() & 1) == 0 ? 1e-6 : 1;
      }
      membrane.SetStiffness(k);
      const SolveOutcome outcome = membrane.Solve({.Tolerance = 1e-8});
      EXPECT_TRUE(outcome.Converged);
      EXPECT_LE(outcome.Iterations, 10) << a << " " << side;
      EXPECT_LT(outcome.Equilibrium, 2e-9) << a << " " << side;
    }
  }
}

TEST(Membrane, ASparseDirectSolverFindsTheSame) {
  constexpr int kSide = 96;
  const double a = 300;
  std::mt19937 random(11);
  std::vector<double> k(kSide * kSide);
  for (int j = 0; j < kSide; ++j) {
    for (int i = 0; i < kSide; ++i) {
      k[static_cast<std::size_t>(j * kSide + i)] =
          (i / 8 + j / 8) % 3 == 0 ? 0 : 0.02 + static_cast<double>(random() % 50) / 50;
    }
  }
  std::vector<Eigen::Triplet<double>> entries;
  for (int j = 0; j < kSide; ++j) {
    for (int i = 0; i < kSide; ++i) {
      const int here = j * kSide + i;
      entries.emplace_back(here, here, k[static_cast<std::size_t>(here)]);
      for (const int there : {i + 1 < kSide ? here + 1 : -1, j + 1 < kSide ? here + kSide : -1}) {
        if (there >= 0) {
          entries.emplace_back(here, here, a);
          entries.emplace_back(there, there, a);
          entries.emplace_back(here, there, -a);
          entries.emplace_back(there, here, -a);
        }
      }
    }
  }
  Eigen::SparseMatrix<double> matrix(kSide * kSide, kSide * kSide);
  matrix.setFromTriplets(entries.begin(), entries.end());
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> direct(matrix);
  const Eigen::VectorXd exact = direct.solve(Eigen::VectorXd::Ones(kSide * kSide));

  Membrane membrane(kSide, kSide, a, a);
  membrane.SetStiffness(k);
  ASSERT_TRUE(membrane.Solve({.Tolerance = 1e-8}).Converged);
  const std::vector<double> u = membrane.Solution();
  const Eigen::Map<const Eigen::VectorXd> found(u.data(), kSide * kSide);
  EXPECT_LT((found - exact).cwiseAbs().maxCoeff(), 1e-6);
}

TEST(Membrane, EveryProcessorsVersionGivesTheSameBits) {
  KernelChoice choices[3];
  const std::size_t count = KernelChoices(choices);
  std::vector<double> k;
  std::mt19937 random(3);
  for (int i = 0; i < 70 * 134; ++i) {  // sides that leave a rest in every vector width
    k.push_back(static_cast<double>(random() % 100) / 100);
  }
  std::vector<double> first;
  for (std::size_t i = 0; i < count; ++i) {
    Membrane membrane(70, 134, 50, 40, *choices[i].Table);
    membrane.SetStiffness(k);
    ASSERT_TRUE(membrane.Solve({.Tolerance = 1e-9}).Converged) << choices[i].Name;
    const std::vector<double> u = membrane.Solution();
    if (first.empty()) {
      first = u;
    }
    EXPECT_EQ(std::memcmp(first.data(), u.data(), u.size() * sizeof(double)), 0) << choices[i].Name;
  }
}

TEST(Membrane, AWarmStartNeedsNoMoreWork) {
  Membrane membrane(64, 64, 30, 30);
  membrane.SetStiffness(std::vector<double>(64 * 64, 0.4));
  ASSERT_TRUE(membrane.Solve({.Tolerance = 1e-8}).Converged);
  EXPECT_EQ(membrane.Solve({.Tolerance = 1e-7}, true).Iterations, 0);
}

TEST(Membrane, WhatCannotBeSolvedIsSaid) {
  Membrane membrane(64, 64, 30, 30);
  EXPECT_THROW(membrane.SetStiffness(std::vector<double>(64 * 64, 0.0)), std::domain_error);
  std::vector<double> k(64 * 64, 0.5);
  k[5] = 1;
  membrane.SetStiffness(k);
  EXPECT_FALSE(membrane.Solve({.Tolerance = 1e-12, .MostIterations = 1}).Converged);
  EXPECT_THROW(Membrane(3001, 3001, 1, 1), std::invalid_argument);
}

}  // namespace
}  // namespace korva::laminated
