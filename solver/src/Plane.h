// Cells in rows, each row with one more valid cell at both ends.
#pragma once

#include <algorithm>
#include <cstddef>

#include "LargePages.h"

namespace korva::laminated {

template <class Real>
class Plane {
 public:
  Plane() = default;
  Plane(int nx, int ny)
      : nx_(nx),
        ny_(ny),
        stride_(static_cast<std::size_t>(nx) + 2 * kPad),
        cells_(stride_ * static_cast<std::size_t>(ny)) {}

  int Nx() const { return nx_; }
  int Ny() const { return ny_; }
  // A row, or the nearest one for a number beyond the plane.
  Real* Row(int j) { return cells_.data() + At(j); }
  const Real* Row(int j) const { return cells_.data() + At(j); }

 private:
  static constexpr std::size_t kPad = 16;  // a cache line in either precision

  std::size_t At(int j) const { return static_cast<std::size_t>(std::clamp(j, 0, ny_ - 1)) * stride_ + kPad; }

  int nx_ = 0;
  int ny_ = 0;
  std::size_t stride_ = 0;
  PageVector<Real> cells_;
};

// Gives the cells at both ends what their neighbors hold.
template <class Real>
void Mirror(Real* row, int n) {
  row[-1] = row[0];
  row[n] = row[n - 1];
}

}  // namespace korva::laminated
