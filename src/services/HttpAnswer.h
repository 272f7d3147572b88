// What a web server answers to the request for a file, taken apart while it comes, within bounds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korva {

// The request for `target` (path and query, as they stand in an address) of `host` (with its port, if that is
// not the usual one); the server is to close the connection after the file.
std::string HttpRequest(std::string_view host, std::string_view target);

// A file is complete only with status 200, in the form and of the length that the server has said. A head of
// more than 64 KiB, a file of more than `mostBytes`, and whatever is not HTTP/1 end it with a fault; nothing
// is kept beyond these bounds.
class HttpAnswer {
 public:
  explicit HttpAnswer(std::uint64_t mostBytes) : most_(mostBytes) {}

  // Takes the next bytes; those after the end are not looked at.
  void Take(std::string_view bytes);
  // Nothing comes any more.
  void Close();

  bool HasEnded() const { return phase_ == Phase::kEnd; }
  // Why there is no file; empty if nothing is wrong yet.
  const std::string& Fault() const { return fault_; }
  // The target of a redirect; empty if there is none.
  const std::string& Location() const { return location_; }
  // As much of the file as has come.
  const std::string& File() const { return file_; }
  std::string TakeFile() { return std::move(file_); }

 private:
  enum class Phase { kStatus, kHeaders, kFile, kChunkSize, kChunk, kChunkEnd, kTrailer, kEnd };

  bool TakesLines() const { return phase_ != Phase::kFile && phase_ != Phase::kChunk; }
  std::size_t TakeLine(std::string_view bytes);
  std::size_t TakeFileBytes(std::string_view bytes);
  void ReadLine(std::string_view line);
  void ReadStatus(std::string_view line);
  void ReadHeader(std::string_view line);
  void ReadChunkSize(std::string_view line);
  void EndHead();
  void Fail(std::string_view fault);

  std::uint64_t most_;
  Phase phase_ = Phase::kStatus;
  std::size_t lineBytes_ = 0;  // of head, sizes of chunks and trailer, all together
  std::string line_;           // the part of it that has come
  int status_ = 0;
  std::optional<std::uint64_t> length_;
  bool isChunked_ = false;
  std::uint64_t left_ = 0;  // bytes of this chunk, or of the file if its length is known
  std::string file_;
  std::string location_;
  std::string fault_;
};

}  // namespace korva
