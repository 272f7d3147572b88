#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdio>

#include "files/DescriptorPosix.h"
#include "files/FileLock.h"

namespace korva {

namespace {

class PosixFileLock final : public FileLock {
 public:
  explicit PosixFileLock(Descriptor file) : file_(std::move(file)) {}

  void Write(std::string_view text) noexcept override {
    if (::ftruncate(file_.Get(), 0) == 0) {
      [[maybe_unused]] const auto written = ::pwrite(file_.Get(), text.data(), text.size(), 0);
    }
  }

 private:
  Descriptor file_;
};

}  // namespace

std::unique_ptr<FileLock> TryLock(const std::string& path) noexcept {
  Descriptor file(
      Uninterrupted([&path] { return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600); }));
  if (file.Get() < 0 || ::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
    return nullptr;
  }
  return std::make_unique<PosixFileLock>(std::move(file));
}

std::unique_ptr<FileLock> MakeLocked(const std::string& path) noexcept {
  const std::string unseen = path + ".new";
  Descriptor file(Uninterrupted(
      [&unseen] { return ::open(unseen.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600); }));
  if (file.Get() < 0) {
    return nullptr;
  }
  if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0 || ::rename(unseen.c_str(), path.c_str()) != 0) {
    ::unlink(unseen.c_str());
    return nullptr;
  }
  return std::make_unique<PosixFileLock>(std::move(file));
}

bool IsLocked(const std::string& path) noexcept {
  const Descriptor file(Uninterrupted([&path] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (file.Get() < 0) {
    return errno != ENOENT;
  }
  return ::flock(file.Get(), LOCK_SH | LOCK_NB) != 0;
}

}  // namespace korva
