#include "core/RuntimeError.h"

#include <fmt/format.h>

namespace korva {

std::string_view ErrorDescription(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::kInvalidCall:
      return "Invalid procedure call or argument";
    case ErrorNumber::kOverflow:
      return "Overflow";
    case ErrorNumber::kOutOfMemory:
      return "Out of memory";
    case ErrorNumber::kSubscript:
      return "Subscript out of range";
    case ErrorNumber::kDivisionByZero:
      return "Division by zero";
    case ErrorNumber::kTypeMismatch:
      return "Type mismatch";
    case ErrorNumber::kFileNotFound:
      return "File not found";
    case ErrorNumber::kFileAlreadyOpen:
      return "File already open";
    case ErrorNumber::kDeviceIo:
      return "Device I/O error";
    case ErrorNumber::kDiskFull:
      return "Disk full";
    case ErrorNumber::kInputPastEnd:
      return "Input past end of file";
    case ErrorNumber::kPermissionDenied:
      return "Permission denied";
    case ErrorNumber::kPathFileAccess:
      return "Path/File access error";
    case ErrorNumber::kPathNotFound:
      return "Path not found";
    case ErrorNumber::kPrinter:
      return "Printer error";
    case ErrorNumber::kDialogCancelled:
      return "Cancel was selected";
    case ErrorNumber::kDataSource:
      return "Data source error";
  }
  return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number, std::string detail)
    : number_(number), detail_(std::move(detail)), text_(ErrorDescription(number)) {
  if (!detail_.empty()) {
    text_ += ": " + detail_;
  }
}

void ThrowSubscript(int index, int first, int last) {
  throw RuntimeError(ErrorNumber::kSubscript,
                     fmt::format("index {} is outside {} to {}", index, first, last));
}

}  // namespace korva
