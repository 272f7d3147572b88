#include <pthread.h>
#include <signal.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include "files/EndingSignals.h"

namespace korva {

namespace {

bool IsIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

// The signals that would end this process.
std::vector<int> EndingOnes() {
  std::vector<int> ending;
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
    if (!IsIgnored(signal)) {
      ending.push_back(signal);
    }
  }
  return ending;
}

sigset_t SetOf(const std::vector<int>& signals) {
  sigset_t set;
  ::sigemptyset(&set);
  for (const int signal : signals) {
    ::sigaddset(&set, signal);
  }
  return set;
}

// Ends the process by `signal`, in the way that it does to one that takes no care of it.
void EndBy(int signal) {
  static_cast<void>(::signal(signal, SIG_DFL));
  const sigset_t only = SetOf({signal});
  ::pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
  static_cast<void>(::raise(signal));
}

}  // namespace

struct EndingSignals::Watch {
  std::function<void()> Clean;
  std::vector<int> Ending = EndingOnes();
  sigset_t Before{};
  bool PipesWereIgnored = IsIgnored(SIGPIPE);
  std::atomic<bool> IsOver = false;
  std::thread Thread;

  // Every thread blocks the signals, so that they come to the one that waits for them.
  void Wait() {
    const sigset_t ending = SetOf(Ending);
    int signal = 0;
    if (::sigwait(&ending, &signal) == 0 && !IsOver) {
      Clean();
      EndBy(signal);
    }
  }
};

EndingSignals::EndingSignals(std::function<void()> clean) : watch_(std::make_unique<Watch>()) {
  watch_->Clean = std::move(clean);
  static_cast<void>(::signal(SIGPIPE, SIG_IGN));
  const sigset_t ending = SetOf(watch_->Ending);
  ::pthread_sigmask(SIG_BLOCK, &ending, &watch_->Before);
  if (!watch_->Ending.empty()) {
    watch_->Thread = std::thread([watch = watch_.get()] { watch->Wait(); });
  }
}

EndingSignals::~EndingSignals() {
  if (watch_->Thread.joinable()) {
    watch_->IsOver = true;
    ::pthread_kill(watch_->Thread.native_handle(), watch_->Ending.front());
    watch_->Thread.join();
  }
  ::pthread_sigmask(SIG_SETMASK, &watch_->Before, nullptr);
  static_cast<void>(::signal(SIGPIPE, watch_->PipesWereIgnored ? SIG_IGN : SIG_DFL));
}

void EndingSignals::EndByClosedPipe() const {
  if (!watch_->PipesWereIgnored) {
    EndBy(SIGPIPE);
  }
}

}  // namespace korva
