#include "desktop/graphs/SweepRunner.h"

#include <utility>

namespace korva::desktop {

SweepRunner::SweepRunner(SweepJob job, QObject* parent) : QObject(parent), job_(std::move(job)) {}

SweepRunner::~SweepRunner() {
  Cancel();
  if (thread_.joinable()) {
    thread_.join();
  }
}

void SweepRunner::Start() {
  thread_ = std::thread([this] { Run(); });
}

// Signals of this thread reach the windows through their event loop.
void SweepRunner::Run() {
  try {
    outcome_ = RunSweepJob(job_, [this](int step, int capacity) {
      emit Step(step, capacity);
      return !cancelled_;
    });
  } catch (...) {
    failure_ = std::current_exception();
  }
  emit Ended();
}

SweepOutcome SweepRunner::TakeOutcome() {
  thread_.join();
  if (failure_) {
    std::rethrow_exception(failure_);
  }
  return std::move(outcome_);
}

}  // namespace korva::desktop
