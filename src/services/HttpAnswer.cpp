#include "services/HttpAnswer.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "core/Text.h"
#include "core/Version.h"

namespace korva {

namespace {

constexpr std::size_t kMostLineBytes = std::size_t{64} << 10;
constexpr std::size_t kMostChunkLines = std::size_t{16} << 20;  // a file of 256 MiB in chunks of 256 bytes
constexpr int kOk = 200;

constexpr std::string_view kNotHttp = "the server did not send a valid HTTP response";
constexpr std::string_view kTooLarge = "the file is too large";
constexpr std::string_view kOtherLength = "the file has another length than the server said";

// A number that is the whole text, without a sign.
template <class Number>
std::optional<Number> WholeNumber(std::string_view text, int base) {
  Number number{};
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  const bool whole =
      fault == std::errc() && end == text.data() + text.size() && !text.empty() && text.front() != '-';
  return whole ? std::optional(number) : std::nullopt;
}

bool IsRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace

std::string HttpRequest(std::string_view host, std::string_view target) {
  return fmt::format(
      "GET {} HTTP/1.1\r\n"
      "Host: {}\r\n"
      "User-Agent: {}\r\n"
      "Accept: */*\r\n"
      "Accept-Encoding: identity\r\n"
      "Cache-Control: no-cache\r\n"
      "Pragma: no-cache\r\n"
      "Connection: close\r\n\r\n",
      target, host, ExeName);
}

void HttpAnswer::Take(std::string_view bytes) {
  while (!bytes.empty() && phase_ != Phase::kEnd) {
    bytes.remove_prefix(TakesLines() ? TakeLine(bytes) : TakeFileBytes(bytes));
  }
}

// Returns how many bytes it has taken.
std::size_t HttpAnswer::TakeLine(std::string_view bytes) {
  const auto end = bytes.find('\n');
  const std::size_t count = std::min(end == std::string_view::npos ? end : end + 1, bytes.size());
  lineBytes_ += count;
  const bool inHead = phase_ == Phase::kStatus || phase_ == Phase::kHeaders;
  if (lineBytes_ > (inHead ? kMostLineBytes : kMostChunkLines) || line_.size() + count > kMostLineBytes) {
    Fail("the server's answer is incomplete");
    return count;
  }
  line_.append(bytes.substr(0, count));
  if (end == std::string_view::npos) {
    return count;
  }
  line_.pop_back();
  if (line_.ends_with('\r')) {
    line_.pop_back();
  }
  const std::string line = std::move(line_);
  line_.clear();
  ReadLine(line);
  return count;
}

void HttpAnswer::ReadLine(std::string_view line) {
  switch (phase_) {
    case Phase::kStatus:
      ReadStatus(line);
      break;
    case Phase::kHeaders:
      if (line.empty()) {
        EndHead();
      } else {
        ReadHeader(line);
      }
      break;
    case Phase::kChunkSize:
      ReadChunkSize(line);
      break;
    case Phase::kChunkEnd:
      phase_ = Phase::kChunkSize;
      if (!line.empty()) {
        Fail("the server sent a damaged file");
      }
      break;
    case Phase::kTrailer:
      phase_ = line.empty() ? Phase::kEnd : phase_;
      break;
    case Phase::kFile:
    case Phase::kChunk:
    case Phase::kEnd:
      break;
  }
}

// "HTTP/1.1 200 OK"
void HttpAnswer::ReadStatus(std::string_view line) {
  constexpr std::size_t kVersion = 9;  // characters, with the blank after it
  constexpr std::size_t kDigits = 3;
  const auto status = WholeNumber<int>(line.substr(std::min(kVersion, line.size()), kDigits), 10);
  if (!line.starts_with("HTTP/1.") || line.size() < kVersion + kDigits || line[kVersion - 1] != ' ' ||
      !status || *status < 100 || (line.size() > kVersion + kDigits && line[kVersion + kDigits] != ' ')) {
    Fail(kNotHttp);
    return;
  }
  status_ = *status;
  phase_ = Phase::kHeaders;
}

void HttpAnswer::ReadHeader(std::string_view line) {
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) {
    Fail(kNotHttp);
    return;
  }
  const std::string name = LowerCase(line.substr(0, colon));
  const std::string_view value = Trimmed(line.substr(colon + 1));
  if (name == "content-length") {
    const auto length = WholeNumber<std::uint64_t>(value, 10);
    if (!length || (length_ && *length_ != *length)) {
      Fail(kOtherLength);
    }
    length_ = length;
  } else if (name == "transfer-encoding" && status_ == kOk) {
    isChunked_ = LowerCase(value) == "chunked";
    if (!isChunked_) {
      Fail("the server sent the file in a format that was not requested");
    }
  } else if (name == "content-encoding" && status_ == kOk) {
    if (!value.empty() && LowerCase(value) != "identity") {
      Fail("the server sent the file in a format that was not requested");
    }
  } else if (name == "location") {
    location_ = value;
  }
}

void HttpAnswer::EndHead() {
  if (status_ < kOk) {  // the answer itself is still to come
    phase_ = Phase::kStatus;
    length_.reset();
    isChunked_ = false;
    location_.clear();
    return;
  }
  if (status_ != kOk) {
    if (!IsRedirect(status_) || location_.empty()) {
      Fail(fmt::format("the server answered with status {}", status_));
    }
    phase_ = Phase::kEnd;
    return;
  }
  location_.clear();
  if (isChunked_) {
    phase_ = Phase::kChunkSize;
    return;
  }
  left_ = length_.value_or(most_ + 1);
  phase_ = left_ == 0 ? Phase::kEnd : Phase::kFile;
  if (length_ && *length_ > most_) {
    Fail(kTooLarge);
  } else {
    file_.reserve(static_cast<std::size_t>(length_.value_or(0)));
  }
}

void HttpAnswer::ReadChunkSize(std::string_view line) {
  const auto size = WholeNumber<std::uint64_t>(Trimmed(line.substr(0, line.find(';'))), 16);
  if (!size) {
    Fail("the server sent a damaged file");
  } else if (*size > most_ - file_.size()) {
    Fail(kTooLarge);
  } else {
    left_ = *size;
    phase_ = left_ == 0 ? Phase::kTrailer : Phase::kChunk;
  }
}

// Returns how many bytes it has taken. At most one byte too many is kept.
std::size_t HttpAnswer::TakeFileBytes(std::string_view bytes) {
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(left_, bytes.size()));
  file_.append(bytes.substr(0, count));
  left_ -= count;
  if (left_ == 0) {
    phase_ = isChunked_ ? Phase::kChunkEnd : Phase::kEnd;
  }
  if (file_.size() > most_) {
    Fail(kTooLarge);
  }
  return count;
}

void HttpAnswer::Close() {
  if (phase_ == Phase::kStatus || phase_ == Phase::kHeaders) {
    Fail(lineBytes_ == 0 ? "the server closed the connection" : kNotHttp);
  } else if (phase_ != Phase::kEnd && (phase_ != Phase::kFile || length_)) {
    Fail(kOtherLength);
  }
  phase_ = Phase::kEnd;
}

// The first fault is the one that is reported.
void HttpAnswer::Fail(std::string_view fault) {
  if (fault_.empty()) {
    fault_ = fault;
  }
  phase_ = Phase::kEnd;
  file_ = {};
  line_ = {};
  location_.clear();
}

}  // namespace korva
