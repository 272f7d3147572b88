// What replacing a file by another takes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korva {

// What replacing a file takes, step by step. Each call throws the run-time error of its failure. Tests put
// one that fails in its place.
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;
  // Makes a new file beside `target`, with the permissions `mode`, or the usual ones if that is 0.
  virtual void CreateBeside(const std::string& target, std::uint32_t mode) = 0;
  virtual void Write(std::string_view bytes) = 0;
  virtual void Flush() = 0;  // to the disk itself
  virtual void Close() = 0;
  virtual void Rename(const std::string& target) = 0;  // over the target, the folder flushed
  virtual void Discard() noexcept = 0;                 // after a failure
};

std::unique_ptr<FileReplacement> SystemFileReplacement();

}  // namespace korva
