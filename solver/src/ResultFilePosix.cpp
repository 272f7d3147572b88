#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "ResultFile.h"
#include "Status.h"
#include "korvastrond.h"

namespace korva::laminated {

namespace {

namespace fs = std::filesystem;

bool WriteWhole(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written <= 0) {
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(file) == 0;
}

}  // namespace

void WriteResult(const fs::path& path, const std::string& text) {
  std::string beside = (path.parent_path() / ".korvastrond-XXXXXX").string();
  const int file = mkstemp(beside.data());
  if (file < 0) {
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
  constexpr mode_t kPlain = 0644;
  const mode_t mask = umask(0);
  umask(mask);
  const bool written = WriteWhole(file, text) && fchmod(file, kPlain & ~mask) == 0;
  if (close(file) != 0 || !written || rename(beside.c_str(), path.c_str()) != 0) {
    unlink(beside.c_str());
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
}

}  // namespace korva::laminated
