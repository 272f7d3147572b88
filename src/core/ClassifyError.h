// What a command does after a run-time error.
#pragma once

#include <string>

#include "core/Messages.h"
#include "core/RuntimeError.h"

namespace korva {

enum class ErrorAction {
  kRetry = 0,       // repeat the failed step
  kContinue = 1,    // go on with the next step
  kCancelled = 2,   // the user cancelled a dialog
  kEndCommand = 3,  // end the command
  kDataSource = 6,  // end the command, a data source failed
};

// The message of an error: its description and number, and for the errors that end a command
// ". Procedure Terminated".
std::string ErrorMessage(const RuntimeError& error);

// Logs and shows `error`, with its detail, and says what follows. Device, file and printer errors offer Retry
// and Cancel. With `show` false nothing is shown and such errors give kContinue.
ErrorAction ClassifyError(Korva& korva, MessagePort& port, const RuntimeError& error, bool show);

}  // namespace korva
