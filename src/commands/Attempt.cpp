#include "commands/Attempt.h"

#include <new>
#include <optional>

#include "core/ClassifyError.h"
#include "core/RuntimeError.h"

namespace korva {

namespace {

std::optional<RuntimeError> ErrorOf(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RuntimeError(ErrorNumber::kOutOfMemory);
  }
  return std::nullopt;
}

}  // namespace

AttemptResult Attempt(Korva& korva, MessagePort& messages, const std::function<void()>& step) {
  for (;;) {
    const auto error = ErrorOf(step);
    if (!error) {
      return AttemptResult::kDone;
    }
    switch (ClassifyError(korva, messages, *error, true)) {
      case ErrorAction::kRetry:
        break;
      case ErrorAction::kContinue:
        return AttemptResult::kFailed;
      case ErrorAction::kCancelled:
        return AttemptResult::kCancelled;
      case ErrorAction::kEndCommand:
      case ErrorAction::kDataSource:
        return AttemptResult::kEnded;
    }
  }
}

}  // namespace korva
