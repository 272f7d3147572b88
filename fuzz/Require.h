#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace korva {

// Ends the run, which the fuzzer reports with the input that led here.
inline void Require(bool condition, std::string_view what) {
  if (!condition) {
    std::fprintf(stderr, "broken: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
  }
}

}  // namespace korva
