// The grid of cells, and how much of each cell a piece of ground covers.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace korva::laminated {

// Cells of size Cx by Cy: column i, row j reaches from X0 + i Cx and Y0 + j Cy on.
struct Grid {
  double X0 = 0;
  double Y0 = 0;
  double Cx = 1;
  double Cy = 1;
  int Nx = 0;
  int Ny = 0;

  std::size_t Cells() const { return static_cast<std::size_t>(Nx) * static_cast<std::size_t>(Ny); }
  std::size_t At(int i, int j) const {
    return static_cast<std::size_t>(j) * static_cast<std::size_t>(Nx) + static_cast<std::size_t>(i);
  }
  double CellArea() const { return Cx * Cy; }
};

// The line of the crosscuts across the panel: two straight arms that meet at the apex, level outside the
// panel, with a mean of 0 over the panel. All ground is placed along the entries relative to it.
class CrosscutLine {
 public:
  CrosscutLine() = default;
  // `slope`: the cotangent of the crosscut angle; 0 gives a level line.
  CrosscutLine(double slope, double apex, double left, double right);

  double At(double x) const;
  double Lowest() const { return std::min({At(left_), At(apex_), At(right_)}); }
  double Highest() const { return std::max({At(left_), At(apex_), At(right_)}); }
  std::array<double, 3> Bends() const { return {left_, apex_, right_}; }

 private:
  double slope_ = 0;
  double apex_ = 0;
  double left_ = 0;
  double right_ = 0;
  double mean_ = 0;
};

inline constexpr double kUnbounded = 1e30;

// Ground between X0 and X1 across the entries and Y0 and Y1 along them. Y is measured from the crosscut line,
// for `Plain` ground from 0.
struct Ground {
  double X0 = 0;
  double X1 = 0;
  double Y0 = -kUnbounded;
  double Y1 = kUnbounded;
  bool Plain = false;

  bool Empty() const { return !(X1 > X0) || !(Y1 > Y0); }
};

// The mean over a straight edge, running from height e0 to e1, of how far it reaches into the band from `low`
// to `high`.
double ReachIntoBand(double e0, double e1, double low, double high);

// Calls visit(i, j, fraction) for the cells that `ground` covers, with the exact share of the cell's area. A
// cell may be visited more than once; its shares add up.
template <class Visit>
void VisitCovered(const Grid& grid, const CrosscutLine& line, const Ground& ground, Visit&& visit) {
  if (ground.Empty()) {
    return;
  }
  const auto column = [&](double x) {
    return static_cast<int>(
        std::clamp(std::floor((x - grid.X0) / grid.Cx), -1.0, static_cast<double>(grid.Nx)));
  };
  const auto row = [&](double y) {
    return static_cast<int>(
        std::clamp(std::floor((y - grid.Y0) / grid.Cy), -1.0, static_cast<double>(grid.Ny)));
  };
  const auto strip = [&](int i, double xa, double xb) {
    const double sa = ground.Plain ? 0 : line.At(xa);
    const double sb = ground.Plain ? 0 : line.At(xb);
    const double share = (xb - xa) / grid.Cx;
    const int first = std::max(0, row(ground.Y0 + std::min(sa, sb)));
    const int last = std::min(grid.Ny - 1, row(ground.Y1 + std::max(sa, sb)));
    for (int j = first; j <= last; ++j) {
      const double low = grid.Y0 + j * grid.Cy;
      const double high = grid.Y0 + (j + 1) * grid.Cy;
      const double top = ReachIntoBand(ground.Y1 + sa, ground.Y1 + sb, low, high);
      const double bottom = ReachIntoBand(ground.Y0 + sa, ground.Y0 + sb, low, high);
      if (top > bottom) {
        visit(i, j, share * ((top - bottom) / grid.Cy));
      }
    }
  };
  const int last = std::min(grid.Nx - 1, column(ground.X1));
  for (int i = std::max(0, column(ground.X0)); i <= last; ++i) {
    double xa = std::max(ground.X0, grid.X0 + i * grid.Cx);
    const double xb = std::min(ground.X1, grid.X0 + (i + 1) * grid.Cx);
    for (const double bend : line.Bends()) {
      if (!ground.Plain && bend > xa && bend < xb) {
        strip(i, xa, bend);
        xa = bend;
      }
    }
    if (xb > xa) {
      strip(i, xa, xb);
    }
  }
}

// Adds `stiffness` times the covered share to every cell.
void AddStiffness(std::vector<double>& cells, const Grid& grid, const CrosscutLine& line,
                  const Ground& ground, double stiffness);

// The sum over the covered cells of share times cell area times value.
double IntegralOver(const std::vector<double>& values, const Grid& grid, const CrosscutLine& line,
                    const Ground& ground);

}  // namespace korva::laminated
