// The operating system's file calls, and nothing above them. The one place that knows how this platform does
// it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korva {

// A run-time error for the system's error code, with the file's name and what was tried.
[[noreturn]] void ThrowSystemError(int code, const std::string& path, std::string_view action);

struct FileState {
  bool exists = false;
  bool isRegular = false;
  bool isFolder = false;
  std::uint64_t size = 0;
  std::uint32_t mode = 0;
  // Equal for two names of one file.
  std::uint64_t device = 0;
  std::uint64_t node = 0;
};

// The state of what `path` names, links followed. A missing file or folder does not exist; other failures
// throw.
FileState StateOfFile(const std::string& path);

// Whether `path` names a folder; any failure counts as not found.
bool FolderExists(const std::string& path) noexcept;

// Run-time error 70 if the existing file `path` may not be written.
void RequireWritable(const std::string& path);

// Whether both names lead to one existing file.
bool IsSameFile(const std::string& a, const std::string& b);

// The whole content of a regular file of at most `limit` bytes. Run-time errors: 53 missing file, 76 missing
// folder, 75 a folder or device, 70 no permission, 7 more than `limit` bytes, 57 a read that fails.
std::string ReadWholeFile(const std::string& path, std::uint64_t limit);

// A regular file that is read in pieces. Reading throws run-time error 57 for a read that fails.
class FileReader {
 public:
  virtual ~FileReader() = default;
  virtual std::uint64_t Size() const = 0;  // when it was opened
  // The next bytes, at most `most`; none at the end.
  virtual std::string Read(std::size_t most) = 0;
  // Begins anew at the first byte.
  virtual void Rewind() = 0;
};

// Opens a regular file, without waiting for a pipe. Run-time errors as ReadWholeFile has them.
std::unique_ptr<FileReader> OpenForReading(const std::string& path);

// The file that `path` leads to through symbolic links, whether it is there or not; `path` itself if it is
// none.
std::string ResolveLinks(const std::string& path);

// `name` behind the current folder, if it does not begin at the root; as it is if there is no such folder.
std::string FullName(const std::string& name);

// What replacing a file takes, step by step. Each call throws the run-time error of its failure. Tests put
// one that fails in its place.
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;
  // Makes a new file beside `target`, with the permissions `mode`, or the usual ones if that is 0.
  virtual void CreateBeside(const std::string& target, std::uint32_t mode) = 0;
  virtual void Write(std::string_view bytes) = 0;
  virtual void Flush() = 0;  // to the disk itself
  virtual void Close() = 0;
  virtual void Rename(const std::string& target) = 0;  // over the target, the folder flushed
  virtual void Discard() noexcept = 0;                 // after a failure
};

std::unique_ptr<FileReplacement> SystemFileReplacement();

// A file that one process at a time holds; it stays behind when the process ends, and can then be taken.
class FileLock {
 public:
  virtual ~FileLock() = default;
  // Replaces what the file says; a failure is ignored.
  virtual void Write(std::string_view text) noexcept = 0;
};

// The lock on `path`, made if it is missing; nothing if another process holds it or it cannot be made.
std::unique_ptr<FileLock> TryLock(const std::string& path) noexcept;

// The lock on a new file `path`, which no other process sees before it is held; nothing if it cannot be made.
std::unique_ptr<FileLock> MakeLocked(const std::string& path) noexcept;

// Whether a process, this one too, holds the lock on `path`. Looking takes it from nobody. A missing file is
// held by none; one that cannot be looked at counts as held.
bool IsLocked(const std::string& path) noexcept;

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
