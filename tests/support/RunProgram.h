// Runs a program as a person would, and keeps what it prints and its exit status.
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
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
  ::alarm(60);  // outlives the next line and ends what takes too long
  ::execv(words[0], words.data());
  ::_exit(126);
}

inline std::string Content(std::FILE* file) {
  std::rewind(file);
  std::string text;
  for (int c = std::getc(file); c != EOF; c = std::getc(file)) {
    text += static_cast<char>(c);
  }
  return text;
}

}  // namespace detail

inline ProgramResult RunProgram(const ProgramCall& call) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::tmpfile(), std::fclose);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> err(std::tmpfile(), std::fclose);
  const pid_t child = out && err ? ::fork() : -1;
  if (child < 0) {
    throw std::runtime_error("no process or no temporary file");
  }
  if (child == 0) {
    detail::BecomeProgram(call, ::fileno(out.get()), ::fileno(err.get()));
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, detail::Content(out.get()),
          detail::Content(err.get())};
}

}  // namespace korva
