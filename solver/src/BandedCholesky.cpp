#include "BandedCholesky.h"

#include <cmath>
#include <stdexcept>

namespace korva::laminated {

std::size_t BandedCholesky::At(int i, int j) const {
  return alongRows_
             ? static_cast<std::size_t>(j) * static_cast<std::size_t>(nx_) + static_cast<std::size_t>(i)
             : static_cast<std::size_t>(i) * static_cast<std::size_t>(ny_) + static_cast<std::size_t>(j);
}

void BandedCholesky::Factor(const Plane<float>& k, Stencil<float> stencil) {
  nx_ = k.Nx();
  ny_ = k.Ny();
  alongRows_ = nx_ <= ny_;
  width_ = static_cast<std::size_t>(std::min(nx_, ny_));
  const std::size_t n = static_cast<std::size_t>(nx_) * static_cast<std::size_t>(ny_);
  band_.assign(n * (width_ + 1), 0);
  x_.assign(n, 0);
  const auto ax = static_cast<double>(stencil.Ax);
  const auto ay = static_cast<double>(stencil.Ay);
  for (int j = 0; j < ny_; ++j) {
    for (int i = 0; i < nx_; ++i) {
      const std::size_t row = At(i, j);
      Band(row, width_) = static_cast<double>(k.Row(j)[i]) + ax * ((i > 0 ? 1 : 0) + (i + 1 < nx_ ? 1 : 0)) +
                          ay * ((j > 0 ? 1 : 0) + (j + 1 < ny_ ? 1 : 0));
      if (i > 0) {
        Band(row, width_ - (row - At(i - 1, j))) -= ax;
      }
      if (j > 0) {
        Band(row, width_ - (row - At(i, j - 1))) -= ay;
      }
    }
  }
  for (std::size_t row = 0; row < n; ++row) {
    const std::size_t first = row > width_ ? row - width_ : 0;
    for (std::size_t column = first; column <= row; ++column) {
      double sum = Band(row, width_ - (row - column));
      for (std::size_t m = std::max(first, column > width_ ? column - width_ : 0); m < column; ++m) {
        sum -= Band(row, width_ - (row - m)) * Band(column, width_ - (column - m));
      }
      if (column == row) {
        if (!(sum > 0)) {
          throw std::domain_error("the foundation has no stiffness");
        }
        Band(row, width_) = std::sqrt(sum);
      } else {
        Band(row, width_ - (row - column)) = sum / Band(column, width_);
      }
    }
  }
}

void BandedCholesky::Solve(const Plane<float>& b, Plane<float>& y) {
  for (int j = 0; j < ny_; ++j) {
    for (int i = 0; i < nx_; ++i) {
      x_[At(i, j)] = static_cast<double>(b.Row(j)[i]);
    }
  }
  const std::size_t n = x_.size();
  for (std::size_t row = 0; row < n; ++row) {
    for (std::size_t m = row > width_ ? row - width_ : 0; m < row; ++m) {
      x_[row] -= Band(row, width_ - (row - m)) * x_[m];
    }
    x_[row] /= Band(row, width_);
  }
  for (std::size_t row = n; row-- > 0;) {
    x_[row] /= Band(row, width_);
    for (std::size_t m = row > width_ ? row - width_ : 0; m < row; ++m) {
      x_[m] -= Band(row, width_ - (row - m)) * x_[row];
    }
  }
  for (int j = 0; j < ny_; ++j) {
    for (int i = 0; i < nx_; ++i) {
      y.Row(j)[i] = static_cast<float>(x_[At(i, j)]);
    }
    Mirror(y.Row(j), nx_);
  }
}

}  // namespace korva::laminated
