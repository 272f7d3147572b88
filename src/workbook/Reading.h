// One reading of a workbook: whose file it is, whether it may go on, and how it fails.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korva {

inline constexpr std::string_view kLockedWorkbook =
    "the workbook is locked by a password; save it without one";

class Reading {
 public:
  Reading(std::string file, std::function<bool()> askWhetherToGoOn)
      : file_(std::move(file)), askWhetherToGoOn_(std::move(askWhetherToGoOn)) {}

  const std::string& File() const { return file_; }

  // Asks whether to go on, and ends the reading with the run-time error for a cancelled dialog if not. An
  // empty function always goes on.
  void ThrowIfCancelled() const;

  // The ends of a reading that fails: run-time errors 57, 57, 7 and 9. Words out of the file may be any
  // bytes.
  [[noreturn]] void Refuse(std::string_view why) const;
  [[noreturn]] void Damaged(std::string_view what) const;
  [[noreturn]] void TooLarge(std::string_view what) const;
  [[noreturn]] void NoSheet(std::string_view name, const std::vector<std::string>& sheets) const;

 private:
  std::string file_;
  std::function<bool()> askWhetherToGoOn_;
};

}  // namespace korva
