// How far a long command has come.
#pragma once

#include <cstddef>

namespace korva {

class ProgressPort {
 public:
  virtual ~ProgressPort() = default;
  // Called from the threads that do the work, one at a time.
  virtual void Advance(std::size_t done, std::size_t total) = 0;
};

}  // namespace korva
