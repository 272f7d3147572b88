#include "core/ClassifyError.h"

#include <fmt/format.h>

#include "core/Korva.h"

namespace korva {

namespace {

enum class ErrorClass { kRetryable, kFatal, kCancelled, kDataSource };

ErrorClass ClassOf(ErrorNumber number) {
  switch (static_cast<std::int64_t>(number)) {
    case 24:
    case 25:
    case 27:
    case 53:
    case 57:
    case 61:
    case 62:
    case 70:
    case 71:
    case 72:  // device and file
    case 482:
    case 483:
    case 484:  // printer
      return ErrorClass::kRetryable;
    case 32755:
      return ErrorClass::kCancelled;
    case 0x80040E14:
      return ErrorClass::kDataSource;
    default:
      return ErrorClass::kFatal;
  }
}

}  // namespace

std::string ErrorMessage(const RuntimeError& error) {
  std::string text =
      fmt::format("Error occurred: {} ({})", error.Description(), static_cast<std::int64_t>(error.Number()));
  if (ClassOf(error.Number()) == ErrorClass::kFatal) {
    text += ". Procedure Terminated";
  }
  return text;
}

ErrorAction ClassifyError(Korva& korva, MessagePort& port, const RuntimeError& error, bool show) {
  const ErrorClass kind = ClassOf(error.Number());
  const std::string topic = fmt::format("error-{}", static_cast<std::int64_t>(error.Number()));
  if (show) {
    HistoryLog(korva, kind == ErrorClass::kCancelled
                          ? std::string(error.Description())
                          : fmt::format("Error {}:{}", static_cast<std::int64_t>(error.Number()),
                                        error.Description()));
  }
  switch (kind) {
    case ErrorClass::kCancelled:
      return ErrorAction::kCancelled;
    case ErrorClass::kDataSource:
      return ErrorAction::kDataSource;
    case ErrorClass::kFatal:
      if (show) {
        ShowMessage(korva, port,
                    {ErrorMessage(error), MessageButtons::kOk, MessageIcon::kCritical,
                     korva.Titles.TitleError, error.Detail(), topic});
      }
      return ErrorAction::kEndCommand;
    case ErrorClass::kRetryable:
      if (show && ShowMessage(korva, port,
                              {ErrorMessage(error), MessageButtons::kRetryCancel, MessageIcon::kCritical,
                               korva.Titles.TitleError, error.Detail(), topic}) == MessageAnswer::kRetry) {
        return ErrorAction::kRetry;
      }
      return ErrorAction::kContinue;
  }
  return ErrorAction::kEndCommand;
}

}  // namespace korva
