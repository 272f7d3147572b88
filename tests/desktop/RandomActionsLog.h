// What is told when something goes wrong: the seed, the last actions, and where the program was.
#pragma once

#include <cstdint>
#include <string>

namespace korva::desktop::random {

// Tells the seed first; from here on a crash, and an event loop that does not come back within the limit, end
// the process with what is told on standard error.
void BeginLog(std::uint64_t seed, const std::string& arguments, bool everything);

// The action that is about to happen.
void NextAction(int number);
void Note(const std::string& text);

// The event loop has come back.
void StillAlive();
// The seconds that it may be away.
unsigned LongestWait();

// Ends the process with status 1.
[[noreturn]] void Fail(const std::string& reason);

}  // namespace korva::desktop::random
