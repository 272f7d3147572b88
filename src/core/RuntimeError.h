// The program's one kind of run-time error: a number with its fixed description, and what it was about.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace korva {

// The numbers that the program raises itself; ClassifyError knows classes for further ones.
enum class ErrorNumber : std::int64_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscript = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kDeviceIo = 57,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kPrinter = 482,
  kDialogCancelled = 32755,
  kDataSource = 0x80040E14,
};

// The fixed description of an error number, such as "Division by zero".
std::string_view ErrorDescription(ErrorNumber number);

class RuntimeError : public std::exception {
 public:
  // `detail` says what was at fault: the quantity of a formula, or file, line and what was expected.
  explicit RuntimeError(ErrorNumber number, std::string detail = {});

  ErrorNumber Number() const { return number_; }
  std::string_view Description() const { return ErrorDescription(number_); }
  const std::string& Detail() const { return detail_; }

  // Description and detail in one line.
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  ErrorNumber number_;
  std::string detail_;
  std::string text_;
};

[[noreturn]] void ThrowSubscript(int index, int first, int last);

}  // namespace korva
