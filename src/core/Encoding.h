// The encoding of text files: Windows-1252 as of old, or UTF-8; texts in memory are always UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korva {

bool IsUtf8(std::string_view bytes);

// Takes one character off the front of `bytes`, or gives nothing if they do not begin with valid UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& bytes);

// Adds one character. What is none, such as a surrogate, becomes U+FFFD.
void AppendUtf8(std::string& text, char32_t point);

// The halves of a character beyond U+FFFF in UTF-16.
constexpr bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr char32_t JoinSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// How many of `bytes` stand in front of a UTF-8 character that breaks off at their end.
std::size_t BytesOfWholeCharacters(std::string_view bytes);

std::string Windows1252ToUtf8(std::string_view bytes);

// Bytes of a file as text: as they stand if they are valid UTF-8, else read as Windows-1252. The five bytes
// that Windows-1252 leaves undefined become the control characters of the same number.
std::string TextFromFileBytes(std::string_view bytes);

// The reverse: Windows-1252 where every character fits and the bytes would read back as the same text, else
// UTF-8.
std::string FileBytesFromText(std::string_view text);

}  // namespace korva
