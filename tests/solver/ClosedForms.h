// Ground whose stresses are known in closed form, and how far the membrane is from them. u is the convergence
// over that of solid coal, r the stiffness of a gob relative to it, and shed load the length of cover that a
// gob leaves to the coal at its side. All errors are relative, `finer` is the number of cells to a length
// scale.
#pragma once

#include <cmath>
#include <functional>
#include <numbers>

#include "Calibration.h"
#include "Ground.h"

namespace korva::laminated {

inline constexpr double kLength = 68.7;

// A strip across an edge: `cells` of them from `left` on.
inline Bed Strip(double left, int cells, double finer) {
  const double cell = kLength / finer;
  return Bed({.X0 = left, .Y0 = 0, .Cx = cell, .Cy = cell, .Nx = cells, .Ny = 32});
}

// What coal of stiffness `coal` right of `edge` bears beyond its own cover, per unit length of the edge.
inline double ShedLoad(const Bed& bed, double edge, double coal = 1) {
  const double end = bed.Cells.X0 + bed.Cells.Nx * bed.Cells.Cx;
  const double height = bed.Cells.Cy * bed.Cells.Ny;
  return coal * bed.Integral({.X0 = edge, .X1 = end}) / height - (end - edge);
}

// A wide gob left of 0, `off` cells from a cell's edge: it sheds L (1/sqrt r - 1).
inline double WideGobError(double r, double finer, double off) {
  const double cell = kLength / finer;
  const int gobCells = 64 * static_cast<int>(std::ceil(finer * 12 / std::sqrt(r) / 64));
  Bed bed = Strip(-gobCells * cell - off * cell, gobCells + 16 * static_cast<int>(finer), finer);
  bed.Lay({.X0 = -kUnbounded, .X1 = 0}, r);
  bed.Lay({.X0 = 0, .X1 = kUnbounded}, 1);
  bed.Solve(kLength);
  return std::abs(ShedLoad(bed, 0) / (kLength * (1 / std::sqrt(r) - 1)) - 1);
}

// An opening of half width a sheds all its cover, and u = 1 + a/L + a^2/(2 L^2) in its middle.
struct OpeningErrors {
  double Shed = 0;
  double Middle = 0;
};
inline OpeningErrors OpeningError(double a, double finer) {
  Bed bed = Strip(0, 16 * static_cast<int>(finer), finer);
  bed.Lay({.X0 = a, .X1 = kUnbounded}, 1);
  bed.Solve(kLength);
  const double middle = 1 + a / kLength + a * a / (2 * kLength * kLength);
  return {std::abs(ShedLoad(bed, a) / a - 1), std::abs(bed.Solution[0] / middle - 1)};
}

// A gob of half width a and stiffness `ratio` between abutments, as the calibration has it.
inline double GobError(double a, double ratio, double abutment, double finer) {
  Bed bed = Strip(0, 32 * static_cast<int>(finer), finer);
  bed.Lay({.X0 = 0, .X1 = a}, ratio);
  bed.Lay({.X0 = a, .X1 = kUnbounded}, abutment);
  bed.Solve(kLength);
  const double exact = ShedByStrip(ratio, kLength, {.Width = 2 * a, .AbutmentStiffness = abutment});
  return std::abs(ShedLoad(bed, a, abutment) / exact - 1);
}

// The load on a disc of radius R and ratio r in solid ground, by Bessel functions.
inline double DiscLoad(double radius, double r) {
  const double kappa = std::sqrt(r) / kLength;
  const double i0 = std::cyl_bessel_i(0, kappa * radius);
  const double i1 = std::cyl_bessel_i(1, kappa * radius);
  const double k0 = std::cyl_bessel_k(0, radius / kLength);
  const double k1 = std::cyl_bessel_k(1, radius / kLength);
  const double a = (1 / r - 1) * k1 / (i0 * k1 + std::sqrt(r) * i1 * k0);
  return std::numbers::pi * radius * radius - a * r * 2 * std::numbers::pi * radius * i1 / kappa;
}

inline void VisitQuarterDisc(const Grid& grid, double radius,
                             const std::function<void(const Ground&)>& visit) {
  constexpr int kStrips = 32;
  const double width = grid.Cx / kStrips;
  for (int i = 0; i * width < radius; ++i) {
    const double x = (i + 0.5) * width;
    if (x < radius) {
      visit({.X0 = i * width, .X1 = (i + 1) * width, .Y0 = 0, .Y1 = std::sqrt(radius * radius - x * x)});
    }
  }
}

// The load on a disc, one quarter of which lies on 1100 by 1100 with mirrors at its edges.
inline double DiscError(double radius, double r, int side) {
  Bed bed({.Cx = 1100.0 / side, .Cy = 1100.0 / side, .Nx = side, .Ny = side});
  bed.Lay({.X0 = -kUnbounded, .X1 = kUnbounded}, 1);
  VisitQuarterDisc(bed.Cells, radius, [&](const Ground& strip) { bed.Lay(strip, r - 1); });
  bed.Solve(kLength);
  double load = 0;
  VisitQuarterDisc(bed.Cells, radius, [&](const Ground& strip) { load += 4 * r * bed.Integral(strip); });
  return std::abs(load / DiscLoad(radius, r) - 1);
}

}  // namespace korva::laminated
