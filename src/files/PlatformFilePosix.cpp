#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "core/FileNames.h"
#include "core/FilePaths.h"
#include "core/RuntimeError.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

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
    ThrowSystemError(errno, path, "reading its properties");
  }
  return {.exists = true,
          .isRegular = S_ISREG(state.st_mode),
          .isFolder = S_ISDIR(state.st_mode),
          .mode = state.st_mode & 07777};
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

std::string MakePrivateFolder() {
  std::error_code failure;
  const auto parent = std::filesystem::temp_directory_path(failure);
  std::string folder = Utf8Of(parent / "korva-XXXXXX");
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
  return Utf8Of(program.parent_path());
}

std::string ProgramOnSearchPath(std::string_view name) {
  const char* searched = std::getenv("PATH");
  std::string_view rest = searched == nullptr ? "" : searched;
  while (!rest.empty()) {
    const auto end = std::min(rest.find(':'), rest.size());
    std::string path = std::string(rest.substr(0, end)).append("/").append(name);
    if (rest.starts_with('/') && !FolderExists(path) && ::access(path.c_str(), X_OK) == 0) {
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

}  // namespace korva
