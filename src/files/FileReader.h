// Reading files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace korva {

// A regular file that is read in pieces. Reading throws run-time error 57 for a read that fails.
class FileReader {
 public:
  virtual ~FileReader() = default;
  virtual std::uint64_t Size() const = 0;  // when it was opened
  // The next bytes, at most `most`; none at the end.
  virtual std::string Read(std::size_t most) = 0;
  // Begins again at the first byte.
  virtual void Rewind() = 0;
};

// Opens a regular file, without waiting for a pipe. Run-time errors: 53 missing file, 76 missing folder, 75 a
// folder or device, 70 no permission.
std::unique_ptr<FileReader> OpenForReading(const std::string& path);

// The whole content of a regular file of at most `limit` bytes. Run-time errors as both have them, and 7 for
// more than `limit` bytes.
std::string ReadWholeFile(const std::string& path, std::uint64_t limit);

}  // namespace korva
