// How a run ended, and the exception that ends it early.
#pragma once

namespace korva::laminated {

// A run that cannot go on; `Code` is one of korvastrond.h.
struct Failure {
  int Code;
};

}  // namespace korva::laminated
