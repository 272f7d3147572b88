#include "files/SessionFolder.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "core/RuntimeError.h"

namespace korva {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLock = ".lock";
constexpr std::string_view kCopy = ".KVL";
constexpr std::string_view kAside = "kept-";
constexpr std::uint64_t kLongestName = std::uint64_t{64} * 1024;
constexpr std::size_t kMostKept = 20;

struct Entry {
  fs::path path;
  fs::file_time_type time;
};

// The files of `folder` with that extension, the newest first.
std::vector<Entry> FilesOf(const std::string& folder, std::string_view extension) {
  std::vector<Entry> files;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure); !failure && entry != fs::end(entry);
       entry.increment(failure)) {
    std::error_code unknown;
    if (entry->path().extension() == extension) {
      files.push_back({entry->path(), entry->last_write_time(unknown)});
    }
  }
  std::sort(files.begin(), files.end(), [](const Entry& a, const Entry& b) { return a.time > b.time; });
  return files;
}

// "1234-5678" of "1234-5678.lock", "1234-5678.KVL" and "1234-5678.2.KVL".
std::string SessionOf(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.substr(0, name.find('.'));
}

std::string LockedText(const fs::path& path) {
  try {
    return ReadWholeFile(path.string(), kLongestName);
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace

SessionFolder::SessionFolder(const std::string& folder) : folder_(folder) {
  if (folder_.empty()) {
    return;
  }
  std::error_code failure;
  fs::create_directories(folder_, failure);
  fs::permissions(folder_, fs::perms::owner_all, failure);
  name_ = fmt::format("{}-{}", ProcessNumber(), std::chrono::system_clock::now().time_since_epoch().count());
  copyPath_ = fmt::format("{}{}{}", folder_, name_, kCopy);
  lock_ = MakeLocked(LockOf(name_));
}

std::string SessionFolder::NewDroppedPath() {
  return copyPath_.empty() ? copyPath_ : fmt::format("{}{}.{}{}", folder_, name_, ++dropped_, kCopy);
}

void SessionFolder::TellOpenFile(const std::string& fullName) const {
  if (lock_) {
    lock_->Write(fullName);
  }
}

bool SessionFolder::IsOpenElsewhere(const std::string& fullName) const {
  const auto locks = FilesOf(folder_, kLock);
  return std::any_of(locks.begin(), locks.end(), [&](const Entry& entry) {
    if (SessionOf(entry.path) == name_) {
      return false;
    }
    const std::string other = LockedText(entry.path);
    std::error_code unknown;
    return !other.empty() && (other == fullName || fs::equivalent(other, fullName, unknown)) &&
           IsLocked(entry.path.string());
  });
}

std::vector<std::string> SessionFolder::TakeAbandoned() {
  std::vector<std::string> taken;
  for (const Entry& entry : FilesOf(folder_, kCopy)) {
    const bool aside = entry.path.filename().string().starts_with(kAside);
    const std::string session = SessionOf(entry.path);
    if (aside || session == name_ || IsLocked(LockOf(session))) {
      continue;
    }
    const std::string own = NewDroppedPath();
    std::error_code gone;  // another session was quicker
    fs::rename(entry.path, own, gone);
    if (!gone) {
      taken.push_back(own);
    }
  }
  for (const Entry& entry : FilesOf(folder_, kLock)) {
    if (!IsLocked(entry.path.string())) {
      Remove(entry.path.string());
    }
  }
  return taken;
}

void SessionFolder::Remove(const std::string& path) noexcept {
  std::error_code failure;
  fs::remove(path, failure);
}

void SessionFolder::PutAside(const std::string& path) noexcept {
  try {
    const fs::path from(path);
    std::error_code failure;
    fs::rename(from, from.parent_path() / (std::string(kAside) + from.filename().string()), failure);
    std::size_t kept = 0;
    for (const Entry& entry : FilesOf(from.parent_path().string(), kCopy)) {
      if (entry.path.filename().string().starts_with(kAside) && ++kept > kMostKept) {
        Remove(entry.path.string());
      }
    }
  } catch (const std::exception&) {
    return;  // the copy is offered once more
  }
}

void SessionFolder::End(bool keepCopy) noexcept {
  if (!keepCopy) {
    Remove(copyPath_);
  }
  if (lock_) {
    Remove(LockOf(name_));
    lock_.reset();
  }
}

}  // namespace korva
