// The one place where a run-time error of a command ends.
#pragma once

#include <functional>

#include "core/Korva.h"
#include "core/Messages.h"

namespace korva {

enum class AttemptResult {
  kDone,       // the step ended by itself
  kFailed,     // it failed with a device or file error that the person did not want to retry; commands go on
  kCancelled,  // the person cancelled a dialog
  kEnded,      // it failed with an error that ends its command
};

// Runs `step`. A run-time error, also one of memory, is logged, classified and shown; Retry runs the step
// again, so it has to be repeatable.
AttemptResult Attempt(Korva& korva, MessagePort& messages, const std::function<void()>& step);

}  // namespace korva
