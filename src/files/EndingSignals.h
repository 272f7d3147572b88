// The signals that end a program from outside.
#pragma once

#include <functional>
#include <memory>

namespace korva {

// While it lives, a signal that would end the process at once (hang-up, interrupt, termination) first has
// `clean` called, on a thread of its own while the others go on. A signal that the process was started to
// ignore stays ignored. Writing into a pipe that nobody reads any more fails instead of ending the process.
// Make it before any other thread.
class EndingSignals {
 public:
  explicit EndingSignals(std::function<void()> clean);
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

  // Ends the process as a write into a closed pipe would have done; returns if that was ignored from the
  // start.
  void EndByClosedPipe() const;

 private:
  struct Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace korva
