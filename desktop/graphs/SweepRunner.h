// Runs a sweep in the background.
#pragma once

#include <QObject>
#include <atomic>
#include <exception>
#include <thread>

#include "commands/SweepCommand.h"

namespace korva::desktop {

class SweepRunner final : public QObject {
  Q_OBJECT

 public:
  SweepRunner(SweepJob job, QObject* parent);
  ~SweepRunner() override;  // waits for the step that is going on

  void Start();
  // Seen before the next step.
  void Cancel() { cancelled_ = true; }

  const SweepJob& Job() const { return job_; }
  // What the sweep came to, once it has ended; throws the run-time error that ended it. Only once.
  SweepOutcome TakeOutcome();

 signals:
  void Step(int step, int capacity);
  void Ended();

 private:
  void Run();

  SweepJob job_;
  SweepOutcome outcome_;
  std::exception_ptr failure_;
  std::atomic<bool> cancelled_ = false;
  std::thread thread_;
};

}  // namespace korva::desktop
