#include "Raster.h"

namespace korva::laminated {

CrosscutLine::CrosscutLine(double slope, double apex, double left, double right)
    : slope_(slope), apex_(apex), left_(left), right_(right) {
  const double l = apex - left;
  const double r = right - apex;
  mean_ = (l * l + r * r) / (2 * (right - left));
}

double CrosscutLine::At(double x) const {
  return slope_ == 0 ? 0 : -slope_ * (std::abs(std::clamp(x, left_, right_) - apex_) - mean_);
}

double ReachIntoBand(double e0, double e1, double low, double high) {
  const double least = std::min(e0, e1);
  const double most = std::max(e0, e1);
  if (least >= high) {
    return high - low;
  }
  if (most <= low) {
    return 0;
  }
  // Nearly level: the difference of the two areas below would cancel.
  static constexpr double kLevel = 1e-9;
  if (most - least <= kLevel * (high - low)) {
    return std::clamp((least + most) / 2, low, high) - low;
  }
  const auto below = [&](double e) {
    const double inside = std::clamp(e, low, high) - low;
    return inside * inside / 2 + (e > high ? (high - low) * (e - high) : 0);
  };
  return (below(most) - below(least)) / (most - least);
}

void AddStiffness(std::vector<double>& cells, const Grid& grid, const CrosscutLine& line,
                  const Ground& ground, double stiffness) {
  VisitCovered(grid, line, ground,
               [&](int i, int j, double share) { cells[grid.At(i, j)] += stiffness * share; });
}

double IntegralOver(const std::vector<double>& values, const Grid& grid, const CrosscutLine& line,
                    const Ground& ground) {
  double sum = 0;
  VisitCovered(grid, line, ground, [&](int i, int j, double share) { sum += share * values[grid.At(i, j)]; });
  return sum * grid.CellArea();
}

}  // namespace korva::laminated
