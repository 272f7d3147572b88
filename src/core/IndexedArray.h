// A fixed array with the index range of its domain, so that code and formulas read alike.
#pragma once

#include <array>
#include <cstddef>

#include "core/RuntimeError.h"

namespace korva {

// Elements Lo to Hi, both included. An index outside that range is run-time error 9, never a wrong number.
template <class T, int Lo, int Hi>
class IndexedArray {
  static_assert(Lo <= Hi);

 public:
  static constexpr int kFirst = Lo;
  static constexpr int kLast = Hi;

  T& operator[](int index) { return items_[Position(index)]; }
  const T& operator[](int index) const { return items_[Position(index)]; }

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

  bool operator==(const IndexedArray&) const = default;

 private:
  static std::size_t Position(int index) {
    if (index < Lo || index > Hi) [[unlikely]] {
      ThrowSubscript(index, Lo, Hi);
    }
    return static_cast<std::size_t>(index - Lo);
  }

  std::array<T, static_cast<std::size_t>(Hi - Lo + 1)> items_{};
};

}  // namespace korva
