#include "files/FileReader.h"

#include <fmt/format.h>

#include "core/RuntimeError.h"

namespace korva {

std::string ReadWholeFile(const std::string& path, std::uint64_t limit) {
  static constexpr std::size_t kPiece = 4096;  // of what a file grows by
  const auto file = OpenForReading(path);
  // The size is a hint: a file may grow while it is read.
  std::string bytes;
  std::uint64_t size = file->Size();
  if (size <= limit) {
    bytes = file->Read(static_cast<std::size_t>(size) + 1);
    size = bytes.size();
    for (std::string more = file->Read(kPiece); !more.empty() && size <= limit; more = file->Read(kPiece)) {
      bytes += more;
      size = bytes.size();
    }
  }
  if (size > limit) {
    throw RuntimeError(ErrorNumber::kOutOfMemory,
                       fmt::format("{}: more than the {} bytes that such a file can have", path, limit));
  }
  return bytes;
}

}  // namespace korva
