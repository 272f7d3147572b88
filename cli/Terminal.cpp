#include "Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/PlatformFile.h"

namespace korva::cli {

namespace {

constexpr std::size_t kBarWidth = 40;
constexpr std::chrono::milliseconds kBarInterval{100};

}  // namespace

void Print(std::string_view text) {
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    if (errno == EPIPE) {
      throw ClosedPipe();
    }
    ThrowSystemError(errno, "standard output", "writing");
  }
}

void PrintMessage(std::string_view text) {
  std::string shown = PlatformLines(text);
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return IsControl(c) && c != '\n' && c != '\t'; }, '?');
  PrintToStandardError(fmt::format("korva: {}\n", shown));
}

void PrintToStandardError(std::string_view text) {
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

std::string PlatformLines(std::string_view text) {
  std::string lines;
  lines.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') {
      lines += text[i];
    }
  }
  return lines;
}

MessageAnswer TerminalMessages::Show(const Message& message) {
  PrintMessage(file_ + ": " + message.text);
  if (!message.detail.empty()) {
    PrintMessage(message.detail);
  }
  switch (message.buttons) {
    case MessageButtons::kOk:
      return MessageAnswer::kOk;
    case MessageButtons::kOkCancel:
    case MessageButtons::kRetryCancel:
    case MessageButtons::kYesNoCancel:
      return MessageAnswer::kCancel;
    case MessageButtons::kYesNo:
    case MessageButtons::kYesNoDefaultNo:
      return MessageAnswer::kNo;
  }
  return MessageAnswer::kCancel;
}

TerminalProgress::TerminalProgress() : terminal_(ShowsErrorsOnTerminal()) {}

TerminalProgress::~TerminalProgress() {
  if (shown_) {
    PrintToStandardError(fmt::format("\r{:{}}\r", "", kBarWidth + 30));
  }
}

void TerminalProgress::Advance(std::size_t done, std::size_t total) {
  const auto now = std::chrono::steady_clock::now();
  if (!terminal_ || (now - last_ < kBarInterval && done < total)) {
    return;
  }
  last_ = now;
  shown_ = true;
  const std::size_t filled = kBarWidth * done / total;
  PrintToStandardError(
      fmt::format("\r[{:#<{}}{:{}}] {} of {}", "", filled, "", kBarWidth - filled, done, total));
}

}  // namespace korva::cli
