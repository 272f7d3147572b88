#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "core/FileNames.h"
#include "files/DescriptorPosix.h"
#include "files/FileReplacement.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

class PosixFileReplacement final : public FileReplacement {
 public:
  ~PosixFileReplacement() override { Discard(); }

  void CreateBeside(const std::string& target, std::uint32_t mode) override {
    static constexpr int kMostNames = 1000;
    for (int number = 0; fd_.Get() < 0; ++number) {
      name_ = fmt::format("{}/.korva-{}-{}", FolderOf(target), ::getpid(), number);
      fd_ = Descriptor(Uninterrupted(
          [this] { return ::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); }));
      if (fd_.Get() < 0 && (errno != EEXIST || number == kMostNames)) {
        const int code = errno;
        name_.clear();  // not ours to remove
        ThrowSystemError(code, target, "creating a temporary file beside it");
      }
    }
    if (mode != 0 && ::fchmod(fd_.Get(), mode) != 0) {
      ThrowSystemError(errno, name_, "setting its permissions");
    }
  }

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto written = Uninterrupted([&] { return ::write(fd_.Get(), bytes.data(), bytes.size()); });
      if (written < 0) {
        ThrowSystemError(errno, name_, "writing");
      }
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void Flush() override {
    if (Uninterrupted([this] { return ::fsync(fd_.Get()); }) != 0) {
      ThrowSystemError(errno, name_, "flushing");
    }
  }

  void Close() override {
    if (::close(fd_.Release()) != 0) {
      ThrowSystemError(errno, name_, "closing");
    }
  }

  void Rename(const std::string& target) override {
    if (::rename(name_.c_str(), target.c_str()) != 0) {
      ThrowSystemError(errno, target, "replacing it");
    }
    name_.clear();
    // The new file stands; a folder that cannot be flushed takes nothing away from it.
    const Descriptor folder(::open(FolderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Get() >= 0) {
      ::fsync(folder.Get());
    }
  }

  void Discard() noexcept override {
    if (!name_.empty()) {
      ::unlink(name_.c_str());
      name_.clear();
    }
  }

 private:
  Descriptor fd_;
  std::string name_;
};

}  // namespace

std::unique_ptr<FileReplacement> SystemFileReplacement() {
  return std::make_unique<PosixFileReplacement>();
}

}  // namespace korva
