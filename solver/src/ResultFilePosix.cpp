#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
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

struct NewFile {
  fs::path Name;
  int Descriptor = -1;
};

// A file created in `folder`. The system itself takes the process's mask off its permissions: asking for
// the mask would change it for all threads.
NewFile MakeFileIn(const fs::path& folder) {
  static constexpr int kMostNames = 1000;
  static constexpr mode_t kPlain = 0644;
  NewFile made;
  errno = EEXIST;
  for (int number = 0; made.Descriptor < 0 && errno == EEXIST && number < kMostNames; ++number) {
    made.Name = folder / (".korvastrond-" + std::to_string(getpid()) + "-" + std::to_string(number));
    made.Descriptor = open(made.Name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPlain);
  }
  if (made.Descriptor < 0) {
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
  return made;
}

}  // namespace

void WriteResult(const fs::path& path, const std::string& text) {
  const NewFile made = MakeFileIn(path.parent_path());
  const bool written = WriteWhole(made.Descriptor, text);
  if (close(made.Descriptor) != 0 || !written || rename(made.Name.c_str(), path.c_str()) != 0) {
    unlink(made.Name.c_str());
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
}

}  // namespace korva::laminated
