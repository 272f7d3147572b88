#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "core/RuntimeError.h"
#include "files/DescriptorPosix.h"
#include "files/FileReader.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

struct OpenedFile {
  Descriptor descriptor;
  std::uint64_t size = 0;
};

OpenedFile OpenRegularFile(const std::string& path) {
  // Without O_NONBLOCK a named pipe would hold the program until somebody writes into it.
  Descriptor file(Uninterrupted([&path] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
  if (file.Get() < 0) {
    ThrowSystemError(errno, path, "opening");
  }
  struct stat state {};
  if (::fstat(file.Get(), &state) != 0) {
    ThrowSystemError(errno, path, "reading its properties");
  }
  if (!S_ISREG(state.st_mode)) {
    throw RuntimeError(
        ErrorNumber::kPathFileAccess,
        fmt::format("{}: {}", path, S_ISDIR(state.st_mode) ? "is a folder" : "is not a regular file"));
  }
  return {std::move(file), static_cast<std::uint64_t>(state.st_size)};
}

class PosixFileReader final : public FileReader {
 public:
  PosixFileReader(OpenedFile file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  std::uint64_t Size() const override { return file_.size; }

  std::string Read(std::size_t most) override {
    std::string bytes(most, '\0');
    const auto count =
        Uninterrupted([&] { return ::read(file_.descriptor.Get(), bytes.data(), bytes.size()); });
    if (count < 0) {
      ThrowSystemError(errno, path_, "reading");
    }
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
  }

  void Rewind() override {
    if (::lseek(file_.descriptor.Get(), 0, SEEK_SET) != 0) {
      ThrowSystemError(errno, path_, "reading");
    }
  }

 private:
  OpenedFile file_;
  std::string path_;
};

}  // namespace

std::unique_ptr<FileReader> OpenForReading(const std::string& path) {
  return std::make_unique<PosixFileReader>(OpenRegularFile(path), path);
}

}  // namespace korva
