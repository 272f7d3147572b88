// Runs a program as a person would, and keeps what it prints and its exit status.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace korva {

struct ProgramCall {
  std::string Program;
  std::vector<std::string> Arguments;
  std::string Folder;                                            // to run in
  std::vector<std::pair<std::string, std::string>> Environment;  // added to this program's own
  std::string OutputFile;                                        // takes standard output, if not empty
};

struct ProgramResult {
  int Status = -1;  // the exit status; -1 for a program that was killed or took too long
  std::string Out;
  std::string Err;
};

namespace detail {

[[noreturn]] inline void BecomeProgram(const ProgramCall& call, int out, int err) {
  const int file = call.OutputFile.empty() ? out : ::open(call.OutputFile.c_str(), O_WRONLY);
  if (file < 0 || ::chdir(call.Folder.c_str()) != 0) {
    ::_exit(125);
  }
  ::dup2(file, STDOUT_FILENO);
  ::dup2(err, STDERR_FILENO);
  for (const auto& [name, value] : call.Environment) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }
  std::vector<char*> words{const_cast<char*>(call.Program.c_str())};
  for (const std::string& argument : call.Arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  ::execv(words[0], words.data());
  ::_exit(126);
}

// Appends what can be read; false at the end of the stream.
inline bool ReadSome(int stream, std::string& text) {
  std::array<char, 65536> bytes;
  const ssize_t count = ::read(stream, bytes.data(), bytes.size());
  text.append(bytes.data(), static_cast<std::size_t>(count > 0 ? count : 0));
  return count > 0 || (count < 0 && errno == EINTR);
}

}  // namespace detail

inline ProgramResult RunProgram(const ProgramCall& call) {
  constexpr std::chrono::seconds kLimit{60};
  int out[2];
  int err[2];
  if (::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  const pid_t child = ::fork();
  if (child < 0) {
    throw std::runtime_error("no process");
  }
  if (child == 0) {
    detail::BecomeProgram(call, out[1], err[1]);
  }
  ::close(out[1]);
  ::close(err[1]);

  ProgramResult result;
  std::array<pollfd, 2> streams = {pollfd{out[0], POLLIN, 0}, pollfd{err[0], POLLIN, 0}};
  std::array<std::string*, 2> texts = {&result.Out, &result.Err};
  const auto deadline = std::chrono::steady_clock::now() + kLimit;
  bool inTime = true;
  while (inTime && (streams[0].fd >= 0 || streams[1].fd >= 0)) {
    ::poll(streams.data(), streams.size(), 1000);
    for (std::size_t at = 0; at < streams.size(); ++at) {
      if (streams[at].revents != 0 && !detail::ReadSome(streams[at].fd, *texts[at])) {
        streams[at].fd = -1;
      }
    }
    inTime = std::chrono::steady_clock::now() < deadline;
  }
  if (!inTime) {
    ::kill(child, SIGKILL);
  }
  ::close(out[0]);
  ::close(err[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace korva
