#include "services/ShownFile.h"

#include <algorithm>

#include "core/Encoding.h"
#include "files/FileReader.h"

namespace korva {

namespace {

constexpr std::size_t kCheckedAtOnce = std::size_t{256} << 10;
constexpr std::size_t kShownAtOnce = std::size_t{8} << 10;

constexpr char32_t kByteOrderMark = 0xFEFF;
constexpr std::string_view kReplacement = "\uFFFD";

bool IsControl(char32_t point) {
  return (point < 0x20 && point != '\t') || point == 0x7F;
}

// What a text does not hold, or what would steer the box that shows it.
bool IsUnprintablePoint(char32_t point) {
  const bool highControl = point >= 0x80 && point < 0xA0;
  const bool separator = point == 0x2028 || point == 0x2029;
  const bool noCharacter = (point >= 0xFDD0 && point <= 0xFDEF) || (point & 0xFFFE) == 0xFFFE;
  return highControl || separator || noCharacter || point == 0xFFFC;
}

// The sign that Unicode has for a control character.
std::string SignOf(char32_t control) {
  const auto number = control == 0x7F ? 0x21U : static_cast<unsigned>(control);
  return {'\xE2', '\x90', static_cast<char>(0x80U | number)};
}

}  // namespace

ShownFile::ShownFile(const std::string& path, const ShownLimits& limits)
    : file_(OpenForReading(path)), limits_(limits) {}

int ShownFile::Percent() const {
  const std::uint64_t whole = std::min(file_->Size(), limits_.Bytes);
  if (ended_ || whole == 0) {
    return 100;
  }
  return checked_ ? static_cast<int>(std::min(read_, whole) * 100 / whole) : 0;
}

std::string ShownFile::Next() {
  if (ended_) {
    return {};
  }
  if (checked_) {
    return Piece();
  }
  Check();
  return {};
}

// Bytes up to the limit; none at the end.
std::string ShownFile::Read(std::size_t most) {
  const std::uint64_t left = limits_.Bytes - read_;
  std::string bytes = file_->Read(static_cast<std::size_t>(std::min<std::uint64_t>(most, left)));
  read_ += bytes.size();
  return bytes;
}

void ShownFile::Check() {
  const std::string bytes = Read(kCheckedAtOnce);
  const std::string text = broken_ + bytes;
  const std::size_t whole = bytes.empty() ? text.size() : BytesOfWholeCharacters(text);
  // A character that the limit breaks is no fault of the file.
  const bool atLimit = bytes.empty() && read_ == limits_.Bytes;
  isUtf8_ = atLimit || IsUtf8(std::string_view(text).substr(0, whole));
  broken_ = text.substr(whole);
  if (bytes.empty() || !isUtf8_) {
    checked_ = true;
    read_ = 0;
    broken_.clear();
    file_->Rewind();
  }
}

std::string ShownFile::Piece() {
  const std::string bytes = Read(kShownAtOnce);
  std::string text = isUtf8_ ? broken_ + bytes : Windows1252ToUtf8(bytes);
  const std::size_t whole = isUtf8_ && !bytes.empty() ? BytesOfWholeCharacters(text) : text.size();
  broken_ = text.substr(whole);
  std::string shown = std::move(unfinished_);
  std::string_view rest = std::string_view(text).substr(0, whole);
  while (!rest.empty() && lines_ <= limits_.Lines) {
    const std::string_view from = rest;
    const auto point = TakeCharacter(rest);
    if (!point) {  // the file has changed since it was checked
      rest.remove_prefix(1);
    }
    Put(point.value_or(0xFFFE), from.substr(0, from.size() - rest.size()), shown);
  }
  const bool full = lines_ > limits_.Lines;
  if (bytes.empty() || full) {
    ended_ = true;
    cut_ = full || (read_ == limits_.Bytes && file_->Size() > limits_.Bytes);
  }
  // A view lays out the line that a piece ends in: it gets whole lines, so that none is laid out twice.
  unfinished_ = ended_ ? std::string() : shown.substr(shown.rfind('\n') + 1);
  shown.resize(shown.size() - unfinished_.size());
  return shown;
}

void ShownFile::Put(char32_t point, std::string_view bytes, std::string& shown) {
  const bool secondOfTwo = point == '\n' && afterReturn_;
  const bool mark = point == kByteOrderMark && !begun_;
  begun_ = true;
  afterReturn_ = point == '\r';
  if (secondOfTwo || mark) {
    return;
  }
  if (point == '\n' || point == '\r') {
    EndLine(shown);
    return;
  }
  if (column_ == limits_.Columns) {
    EndLine(shown);
  }
  ++column_;
  if (IsControl(point)) {
    shown += SignOf(point);
  } else {
    shown += IsUnprintablePoint(point) ? kReplacement : bytes;
  }
}

void ShownFile::EndLine(std::string& shown) {
  shown += '\n';
  column_ = 0;
  ++lines_;
}

}  // namespace korva
