// Running another program and reading what it prints.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace korva {

struct ChildCall {
  std::string Program;  // its path
  std::vector<std::string> Arguments;
  std::size_t MostOutput = 0;          // in bytes
  std::chrono::milliseconds Limit{0};  // on the clock, from its start to its end
};

enum class ChildEnd {
  kExited,
  kKilled,  // by a signal that this program did not send
  kTookTooLong,
  kPrintedTooMuch,
};

struct ChildResult {
  ChildEnd End = ChildEnd::kExited;
  int Status = 0;  // of kExited its exit status
  std::string Output;
};

// Runs a program that gets no input, no open file of this one, and no place for its error messages, until it
// has ended. `watch` is called some ten times a second meanwhile; what it throws is passed on. The program
// never outlives this call. Run-time errors: those of opening `Program`, and 7 if the system has no process
// left.
ChildResult RunChild(const ChildCall& call, const std::function<void()>& watch);

}  // namespace korva
