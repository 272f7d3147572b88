// The operating system's file calls, and nothing above them. The one place that knows how this platform does
// it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korva {

// A run-time error for the system's error code, with the file's name and what was tried.
[[noreturn]] void ThrowSystemError(int code, const std::string& path, std::string_view action);

struct FileState {
  bool exists = false;
  bool isRegular = false;
  bool isFolder = false;
  std::uint32_t mode = 0;
};

// The state of what `path` names, links followed. A missing file or folder does not exist; other failures
// throw.
FileState StateOfFile(const std::string& path);

// Whether `path` names a folder; any failure counts as not found.
bool FolderExists(const std::string& path) noexcept;

// Run-time error 70 if the existing file `path` may not be written.
void RequireWritable(const std::string& path);

// Makes a folder that nobody else can enter, below the system's temporary one; its name without a separator
// at its end.
std::string MakePrivateFolder();

// The folder of the running program's file, without a separator at its end.
std::string ProgramFolder();

// The full name of a program on the search path, empty if there is none of that name.
std::string ProgramOnSearchPath(std::string_view name);

// Whether standard error goes to a terminal.
bool ShowsErrorsOnTerminal() noexcept;

// The number of this process.
int ProcessNumber() noexcept;

}  // namespace korva
