// The indices of a loop over part of an array, both bounds included.
#pragma once

namespace korva {

// First to Last; none if Last is smaller.
struct IndexRange {
  struct Iterator {
    int Index;
    constexpr int operator*() const { return Index; }
    constexpr Iterator& operator++() {
      ++Index;
      return *this;
    }
    constexpr bool operator!=(const Iterator& other) const { return Index < other.Index; }
  };

  int First;
  int Last;

  constexpr Iterator begin() const { return {First}; }
  constexpr Iterator end() const { return {Last + 1}; }
};

}  // namespace korva
