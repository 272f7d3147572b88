// What the system says to end the program: a shutdown, a closed terminal, a kill.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace korva::desktop {

// While it lives, such a signal calls `keep` from the event loop before the program ends by it. A program
// that answers no events ends after some seconds, and at once by a second signal. One at a time.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> keep);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  std::function<void()> keep_;
  std::unique_ptr<QSocketNotifier> notifier_;  // nothing if signals cannot be caught
};

}  // namespace korva::desktop
