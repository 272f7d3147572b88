// What files of this platform are read, written and held by.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace korva {

// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor() {
    if (fd_ >= 0) {
      ::close(fd_);
    }
  }
  int Get() const { return fd_; }
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

// Calls `step` again while a signal interrupts it.
template <class Step>
auto Uninterrupted(Step step) {
  for (;;) {
    const auto result = step();
    if (result != -1 || errno != EINTR) {
      return result;
    }
  }
}

}  // namespace korva
