#include "core/Encoding.h"

#include <algorithm>
#include <array>
#include <optional>

namespace korva {

namespace {

// Code points of the bytes 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> Windows1252Byte(char32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) {
    return static_cast<char>(point);
  }
  const auto* found = std::find(kHighControls.begin(), kHighControls.end(), point);
  if (found == kHighControls.end()) {
    return std::nullopt;
  }
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

std::optional<std::string> Utf8ToWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const auto point = TakeCharacter(text);
    const auto byte = point ? Windows1252Byte(*point) : std::nullopt;
    if (!byte) {
      return std::nullopt;
    }
    bytes += *byte;
  }
  return bytes;
}

}  // namespace

void AppendUtf8(std::string& text, char32_t point) {
  static constexpr std::array<char32_t, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
  if (point > 0x10FFFF || IsHighSurrogate(point) || IsLowSurrogate(point)) {
    point = 0xFFFD;
  }
  const unsigned more = point < 0x80      ? 0
                        : point < 0x800   ? 1
                        : point < 0x10000 ? 2
                                          : 3;  // bytes after the first
  text += static_cast<char>(kLead[more] | (point >> (6 * more)));
  for (unsigned left = more; left-- > 0;) {
    text += static_cast<char>(0x80 | ((point >> (6 * left)) & 0x3F));
  }
}

std::optional<char32_t> TakeCharacter(std::string_view& bytes) {
  static constexpr std::array<char32_t, 5> kLeastOfLength = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
  if (length == 0 || lead > 0xF4 || bytes.size() < length) {
    return std::nullopt;
  }
  char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0) != 0x80) {
      return std::nullopt;
    }
    point = (point << 6) | (next & 0x3F);
  }
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  if (point < kLeastOfLength[length] || point > 0x10FFFF || surrogate) {
    return std::nullopt;
  }
  bytes.remove_prefix(length);
  return point;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!TakeCharacter(bytes)) {
      return false;
    }
  }
  return true;
}

std::size_t BytesOfWholeCharacters(std::string_view bytes) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t back = 1; back <= std::min(kLongest - 1, bytes.size()); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if (byte >= 0xC0) {  // the first byte of a character
      const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
      return length > back ? bytes.size() - back : bytes.size();
    }
    if (byte < 0x80) {
      break;
    }
  }
  return bytes.size();
}

std::string Windows1252ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : byte);
  }
  return text;
}

std::string TextFromFileBytes(std::string_view bytes) {
  return IsUtf8(bytes) ? std::string(bytes) : Windows1252ToUtf8(bytes);
}

std::string FileBytesFromText(std::string_view text) {
  auto bytes = Utf8ToWindows1252(text);
  return bytes && TextFromFileBytes(*bytes) == text ? *std::move(bytes) : std::string(text);
}

}  // namespace korva
