#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

#include "core/RuntimeError.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor() {
    if (fd_ >= 0) {
      ::close(fd_);
    }
  }
  int Get() const { return fd_; }
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

ErrorNumber ErrorOfCode(int code, const std::string& path) {
  switch (code) {
    case ENOENT:
      return FolderExists(FolderOf(path)) ? ErrorNumber::kFileNotFound : ErrorNumber::kPathNotFound;
    case ENOTDIR:
      return ErrorNumber::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorNumber::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
      return ErrorNumber::kDiskFull;
    case ENOMEM:
      return ErrorNumber::kOutOfMemory;
    case EIO:
      return ErrorNumber::kDeviceIo;
    default:
      return ErrorNumber::kPathFileAccess;
  }
}

// Calls `step` again while a signal interrupts it.
template <class Step>
auto Uninterrupted(Step step) {
  for (;;) {
    const auto result = step();
    if (result != -1 || errno != EINTR) {
      return result;
    }
  }
}

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
        ThrowSystemError(code, target, "making a file beside it");
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
    ThrowSystemError(errno, path, "looking at it");
  }
  if (!S_ISREG(state.st_mode)) {
    throw RuntimeError(
        ErrorNumber::kPathFileAccess,
        fmt::format("{}: {}", path, S_ISDIR(state.st_mode) ? "is a folder" : "is no regular file"));
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

[[noreturn]] void ThrowTooLarge(const std::string& path, std::uint64_t limit) {
  throw RuntimeError(ErrorNumber::kOutOfMemory,
                     fmt::format("{}: more than the {} bytes that such a file can have", path, limit));
}

}  // namespace

void ThrowSystemError(int code, const std::string& path, std::string_view action) {
  throw RuntimeError(ErrorOfCode(code, path), fmt::format("{}: {}: {}", path, action, std::strerror(code)));
}

FileState StateOfFile(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) {
      return {};
    }
    ThrowSystemError(errno, path, "looking at it");
  }
  return {.exists = true,
          .isRegular = S_ISREG(state.st_mode),
          .isFolder = S_ISDIR(state.st_mode),
          .size = static_cast<std::uint64_t>(state.st_size),
          .mode = state.st_mode & 07777,
          .device = state.st_dev,
          .node = state.st_ino};
}

bool FolderExists(const std::string& path) noexcept {
  struct stat state {};
  return ::stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

void RequireWritable(const std::string& path) {
  if (::access(path.c_str(), W_OK) != 0) {
    ThrowSystemError(errno, path, "opening for writing");
  }
}

bool IsSameFile(const std::string& a, const std::string& b) {
  const FileState first = StateOfFile(a);
  const FileState second = StateOfFile(b);
  return first.exists && second.exists && first.device == second.device && first.node == second.node;
}

std::string ReadWholeFile(const std::string& path, std::uint64_t limit) {
  const OpenedFile file = OpenRegularFile(path);
  if (file.size > limit) {
    ThrowTooLarge(path, limit);
  }
  // The size is a hint: a file may grow while it is read.
  std::string bytes(static_cast<std::size_t>(file.size) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const auto count = Uninterrupted(
        [&] { return ::read(file.descriptor.Get(), bytes.data() + filled, bytes.size() - filled); });
    if (count < 0) {
      ThrowSystemError(errno, path, "reading");
    }
    filled += static_cast<std::size_t>(count);
    if (filled > limit) {
      ThrowTooLarge(path, limit);
    }
    if (count == 0) {
      break;
    }
    if (filled == bytes.size()) {
      bytes.resize(2 * bytes.size());
    }
  }
  bytes.resize(filled);
  return bytes;
}

std::unique_ptr<FileReader> OpenForReading(const std::string& path) {
  return std::make_unique<PosixFileReader>(OpenRegularFile(path), path);
}

std::unique_ptr<FileReplacement> SystemFileReplacement() {
  return std::make_unique<PosixFileReplacement>();
}

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

std::string MakePrivateFolder() {
  std::error_code failure;
  const auto parent = std::filesystem::temp_directory_path(failure);
  std::string folder = (parent / "korva-XXXXXX").string();
  if (failure || ::mkdtemp(folder.data()) == nullptr) {
    ThrowSystemError(failure ? failure.value() : errno, folder,
                     "the private folder of the run cannot be made");
  }
  return folder;
}

std::string ProgramFolder() {
  static constexpr const char* kProgram = "/proc/self/exe";
  std::error_code failure;
  const auto program = std::filesystem::read_symlink(kProgram, failure);
  if (failure) {
    ThrowSystemError(failure.value(), kProgram, "finding the running program");
  }
  return program.parent_path().string();
}

std::string ProgramOnSearchPath(std::string_view name) {
  const char* searched = std::getenv("PATH");
  std::string_view rest = searched == nullptr ? "" : searched;
  while (!rest.empty()) {
    const auto end = std::min(rest.find(':'), rest.size());
    std::string path = std::string(rest.substr(0, end)).append("/").append(name);
    std::error_code unknown;
    if (rest.starts_with('/') && std::filesystem::is_regular_file(path, unknown) &&
        ::access(path.c_str(), X_OK) == 0) {
      return path;
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return {};
}

bool ShowsErrorsOnTerminal() noexcept {
  return ::isatty(STDERR_FILENO) == 1;
}

int ProcessNumber() noexcept {
  return ::getpid();
}

std::string FullName(const std::string& name) {
  std::error_code failure;
  const auto full = std::filesystem::absolute(name, failure);
  return failure ? name : full.string();
}

std::string ResolveLinks(const std::string& path) {
  static constexpr int kMostLinks = 40;
  std::filesystem::path target = path;
  for (int links = 0; links < kMostLinks; ++links) {
    std::error_code noLink;
    const auto next = std::filesystem::read_symlink(target, noLink);
    if (noLink) {
      break;
    }
    target = target.parent_path() / next;
  }
  return target.string();
}

}  // namespace korva
