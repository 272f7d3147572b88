// How a run ended, and the exception that ends it early.
#pragma once

#include <cstdint>

namespace korva::laminated {

// A run that cannot go on; `Code` is one of korvastrond.h.
struct Failure {
  std::int16_t Code;
};

}  // namespace korva::laminated
