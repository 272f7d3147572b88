// The encoding of text files: Windows-1252 as of old, or UTF-8; texts in memory are always UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace korva {

bool IsUtf8(std::string_view bytes);

// Bytes of a file as text: as they stand if they are valid UTF-8, else read as Windows-1252. The five bytes
// that Windows-1252 leaves undefined become the control characters of the same number.
std::string TextFromFileBytes(std::string_view bytes);

// The reverse: Windows-1252 where every character fits and the bytes would read back as the same text, else
// UTF-8.
std::string FileBytesFromText(std::string_view text);

}  // namespace korva
