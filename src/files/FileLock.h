// Files that processes hold to know of each other.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korva {

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

}  // namespace korva
