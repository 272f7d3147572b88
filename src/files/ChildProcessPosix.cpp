#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

#include "core/RuntimeError.h"
#include "files/ChildProcess.h"
#include "files/DescriptorPosix.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kWatchInterval{100};

[[noreturn]] void ThrowNotStarted(int code, const std::string& program) {
  if (code == EAGAIN || code == EMFILE || code == ENFILE) {
    throw RuntimeError(ErrorNumber::kOutOfMemory, program + ": starting it: " + std::strerror(code));
  }
  ThrowSystemError(code, program, "starting it");
}

// What the new process does before it becomes the program.
class Preparation {
 public:
  explicit Preparation(int output) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    Note(posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    Note(posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
    Note(posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
    Note(posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1));
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    Note(posix_spawnattr_setsigmask(&attributes_, &none));
    Note(posix_spawnattr_setsigdefault(&attributes_, &all));
    Note(posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
  }
  ~Preparation() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  Preparation(const Preparation&) = delete;
  Preparation& operator=(const Preparation&) = delete;

  pid_t Start(const ChildCall& call) {
    std::vector<char*> words{const_cast<char*>(call.Program.c_str())};
    for (const std::string& argument : call.Arguments) {
      words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    pid_t child = -1;
    if (code_ == 0) {
      code_ = posix_spawn(&child, words[0], &actions_, &attributes_, words.data(), environ);
    }
    if (code_ != 0) {
      ThrowNotStarted(code_, call.Program);
    }
    return child;
  }

 private:
  void Note(int code) { code_ = code_ == 0 ? code : code_; }

  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
  int code_ = 0;
};

// A running process and the pipe it prints into; it is ended and reaped with this.
class Child {
 public:
  explicit Child(const ChildCall& call) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
      ThrowNotStarted(errno, call.Program);
    }
    output_ = Descriptor(ends[0]);
    const Descriptor printed(ends[1]);
    process_ = Preparation(printed.Get()).Start(call);
  }
  ~Child() {
    if (!status_) {
      ::kill(process_, SIGKILL);
      Reap(0);
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // Adds what it prints within `time` to `output`; false once it has closed its output.
  bool Read(milliseconds time, std::string& output) const {
    pollfd waiting{output_.Get(), POLLIN, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(time.count()));
    if (ready <= 0) {
      return true;  // nothing yet, or a signal came between
    }
    std::array<char, std::size_t{64} << 10> room{};
    const auto count = ::read(output_.Get(), room.data(), room.size());
    if (count < 0) {
      return errno == EINTR;
    }
    output.append(room.data(), static_cast<std::size_t>(count));
    return count > 0;
  }

  bool HasEnded() {
    Reap(WNOHANG);
    return status_.has_value();
  }

  // How it ended.
  int Status() const { return *status_; }

 private:
  void Reap(int how) {
    int status = 0;
    const pid_t reaped = Uninterrupted([&] { return ::waitpid(process_, &status, how); });
    if (reaped == process_) {
      status_ = status;
    } else if (reaped < 0) {
      status_ = SIGKILL;  // somebody else reaped it: how it ended will never be known
    }
  }

  pid_t process_ = -1;
  Descriptor output_;
  std::optional<int> status_;
};

// The two limits and the watch while a child runs.
class ChildDeadline {
 public:
  ChildDeadline(milliseconds limit, const std::function<void()>& watch)
      : end_(Clock::now() + limit), watch_(watch) {}

  bool IsOver() const { return Clock::now() >= end_; }

  // How long to wait for the child at once.
  milliseconds Step(milliseconds most) const {
    const auto left = std::chrono::duration_cast<milliseconds>(end_ - Clock::now());
    return std::clamp(left, milliseconds{1}, most);
  }

  void Watch() {
    if (Clock::now() >= next_) {
      next_ = Clock::now() + kWatchInterval;
      watch_();
    }
  }

 private:
  Clock::time_point end_;
  Clock::time_point next_ = Clock::now() + kWatchInterval;
  const std::function<void()>& watch_;
};

}  // namespace

ChildResult RunChild(const ChildCall& call, const std::function<void()>& watch) {
  static constexpr milliseconds kPollInterval{5};  // at a child that has closed its output
  ChildResult result;
  Child child(call);
  ChildDeadline deadline(call.Limit, watch);
  for (bool prints = true; prints || !child.HasEnded();) {
    if (prints) {
      prints = child.Read(deadline.Step(kWatchInterval), result.Output);
    } else {
      ::poll(nullptr, 0, static_cast<int>(deadline.Step(kPollInterval).count()));
    }
    if (result.Output.size() > call.MostOutput) {
      result.End = ChildEnd::kPrintedTooMuch;
      return result;
    }
    if (deadline.IsOver()) {
      result.End = ChildEnd::kTookTooLong;
      return result;
    }
    deadline.Watch();
  }
  const int status = child.Status();
  result.End = WIFEXITED(status) ? ChildEnd::kExited : ChildEnd::kKilled;
  result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
  return result;
}

}  // namespace korva
