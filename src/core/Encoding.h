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
