#include "desktop/RandomActionsLog.h"

#include <execinfo.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KORVA_ADDRESS_SANITIZER
extern "C" void __sanitizer_set_death_callback(void (*callback)());
extern "C" void __sanitizer_print_stack_trace();
#endif
#endif

namespace korva::desktop::random {

namespace {

constexpr std::size_t kKept = 40;
constexpr std::size_t kLineLength = 200;
constexpr int kStoppedStatus = 3;

// A signal's handler reads it: no memory is asked for.
std::array<std::array<char, kLineLength>, kKept> lines{};
std::size_t lineCount = 0;
int actionNumber = 0;
std::array<char, kLineLength> head{};
bool tellsEverything = false;

void Write(std::string_view text) {
  if (::write(STDERR_FILENO, text.data(), text.size()) < 0) {
    return;  // nobody is left to be told
  }
}

void TellLastActions() {
  Write("\nThe last actions:\n");
  for (std::size_t i = lineCount > kKept ? lineCount - kKept : 0; i < lineCount; ++i) {
    Write(lines[i % kKept].data());
    Write("\n");
  }
  Write(head.data());
  Write("\n");
}

void TellPlace() {
#ifdef KORVA_ADDRESS_SANITIZER
  __sanitizer_print_stack_trace();
#else
  std::array<void*, 60> places{};
  ::backtrace_symbols_fd(places.data(), ::backtrace(places.data(), places.size()), STDERR_FILENO);
#endif
}

void Stop(int signal) {
  Write(signal == SIGALRM ? "\nThe event loop does not come back.\n" : "\nThe program crashed.\n");
  TellPlace();
  TellLastActions();
  ::_exit(kStoppedStatus);
}

}  // namespace

void BeginLog(std::uint64_t seed, const std::string& arguments, bool everything) {
  tellsEverything = everything;
  std::snprintf(head.data(), head.size(), "korva_random_actions --seed %llu%s",
                static_cast<unsigned long long>(seed), arguments.c_str());
  std::puts(head.data());
  std::fflush(stdout);
  std::signal(SIGALRM, Stop);
#ifdef KORVA_ADDRESS_SANITIZER
  __sanitizer_set_death_callback(TellLastActions);
#else
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL}) {
    std::signal(signal, Stop);
  }
#endif
  StillAlive();
}

void NextAction(int number) {
  actionNumber = number;
}

void Note(const std::string& text) {
  auto& line = lines[lineCount++ % kKept];
  std::string shown = text;
  std::replace_if(
      shown.begin(), shown.end(), [](unsigned char c) { return c < ' '; }, '?');
  std::snprintf(line.data(), line.size(), "%6d %s", actionNumber, shown.c_str());
  if (tellsEverything) {
    std::puts(line.data());
    std::fflush(stdout);
  }
}

unsigned LongestWait() {
#ifdef KORVA_ADDRESS_SANITIZER
  return 120;
#else
  return 20;
#endif
}

void StillAlive() {
  ::alarm(LongestWait());
}

void Fail(const std::string& reason) {
  Write("\nFailed: " + reason + "\n");
  TellLastActions();
  std::_Exit(1);
}

}  // namespace korva::desktop::random
