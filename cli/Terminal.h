// The terminal side of the program: standard output and error, and the ports that write there.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "core/Messages.h"
#include "core/Progress.h"

namespace korva::cli {

// Exit statuses of the command.
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1;
inline constexpr int kUsage = 2;
inline constexpr int kFailed = 3;

// Standard output is a pipe that nobody reads any more. It ends the call without a word.
struct ClosedPipe {};

// Writes to standard output; a run-time error if that cannot be written, or ClosedPipe.
void Print(std::string_view text);

// A line on standard error after the program's name, in which "?" stands for control characters, since words
// out of files may be printed; and text on standard error as it is.
void PrintMessage(std::string_view text);
void PrintToStandardError(std::string_view text);

// The text with the line ends of this platform.
std::string PlatformLines(std::string_view text);

// Says messages about a file on standard error and answers questions with the choice that changes nothing.
class TerminalMessages final : public MessagePort {
 public:
  explicit TerminalMessages(std::string file) : file_(std::move(file)) {}
  MessageAnswer Show(const Message& message) override;

 private:
  std::string file_;
};

// Keeps the words of a refusal, which go into the result as well as to the terminal.
class RefusalMessages final : public MessagePort {
 public:
  explicit RefusalMessages(const std::string& file) : terminal_(file) {}
  MessageAnswer Show(const Message& message) override {
    Text = message.text;
    return terminal_.Show(message);
  }
  std::string Text;

 private:
  TerminalMessages terminal_;
};

// A bar on standard error, if that is a terminal.
class TerminalProgress final : public ProgressPort {
 public:
  TerminalProgress();
  ~TerminalProgress() override;
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;
  void Advance(std::size_t done, std::size_t total) override;

 private:
  bool shown_ = false;
  bool terminal_;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace korva::cli
