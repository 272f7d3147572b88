#include "files/SessionFolder.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

constexpr std::string_view kLock = ".lock";
constexpr std::string_view kCopy = ".KVL";
constexpr std::string_view kKeptPrefix = "kept-";
constexpr std::uint64_t kLongestName = std::uint64_t{64} * 1024;
constexpr std::size_t kMostKept = 20;

// "1234-5678" of "1234-5678.lock", "1234-5678.KVL" and "1234-5678.2.KVL".
std::string SessionOf(const std::string& path) {
  const std::string name = FileBaseName(path, false);
  return name.substr(0, name.find('.'));
}

bool IsKeptCopy(const std::string& path) {
  return FileBaseName(path, false).starts_with(kKeptPrefix);
}

std::string LockedText(const std::string& path) {
  try {
    return ReadWholeFile(path, kLongestName);
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace

SessionFolder::SessionFolder(const std::string& folder) : folder_(folder) {
  if (folder_.empty()) {
    return;
  }
  if (TryMakeFolderPath(folder_)) {
    RestrictToOwner(folder_);
  }
  name_ = fmt::format("{}-{}", ProcessNumber(), std::chrono::system_clock::now().time_since_epoch().count());
  copyPath_ = fmt::format("{}{}{}", folder_, name_, kCopy);
  lock_ = MakeLocked(LockOf(name_));
}

std::string SessionFolder::NewDroppedPath() {
  return copyPath_.empty() ? copyPath_ : fmt::format("{}{}.{}{}", folder_, name_, ++dropped_, kCopy);
}

void SessionFolder::RecordOpenFile(const std::string& fullName) const {
  if (lock_) {
    lock_->Write(fullName);
  }
}

bool SessionFolder::IsOpenElsewhere(const std::string& fullName) const {
  const auto locks = NewestFiles(folder_, kLock);
  return std::any_of(locks.begin(), locks.end(), [&](const std::string& lock) {
    if (SessionOf(lock) == name_) {
      return false;
    }
    const std::string other = LockedText(lock);
    return !other.empty() && (other == fullName || IsSameFile(other, fullName)) && IsLocked(lock);
  });
}

std::vector<std::string> SessionFolder::TakeAbandoned() {
  std::vector<std::string> taken;
  for (const std::string& copy : NewestFiles(folder_, kCopy)) {
    const std::string session = SessionOf(copy);
    if (IsKeptCopy(copy) || session == name_ || IsLocked(LockOf(session))) {
      continue;
    }
    const std::string own = NewDroppedPath();
    try {
      RenameFile(copy, own);
      taken.push_back(own);
    } catch (const RuntimeError&) {
      continue;  // another session was quicker
    }
  }
  for (const std::string& lock : NewestFiles(folder_, kLock)) {
    if (!IsLocked(lock)) {
      TryRemoveFile(lock);
    }
  }
  return taken;
}

void SessionFolder::RenameAsKept(const std::string& path) noexcept {
  try {
    const std::string folder = FolderOf(path);
    RenameFile(path, fmt::format("{}/{}{}", folder, kKeptPrefix, FileBaseName(path, false)));
    std::size_t kept = 0;
    for (const std::string& copy : NewestFiles(folder, kCopy)) {
      if (IsKeptCopy(copy) && ++kept > kMostKept) {
        TryRemoveFile(copy);
      }
    }
  } catch (const std::exception&) {
    return;  // the copy is offered once more
  }
}

void SessionFolder::End(bool keepCopy) noexcept {
  if (!keepCopy) {
    TryRemoveFile(copyPath_);
  }
  if (lock_) {
    TryRemoveFile(LockOf(name_));
    lock_.reset();
  }
}

}  // namespace korva
