// A file's name as the program carries it - UTF-8, "/" between folders - and as the standard library takes
// it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace korva {

// The bytes are taken as they are where the system's names are bytes; elsewhere they have to be UTF-8.
inline std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  std::string utf8(text.begin(), text.end());
  if constexpr (std::filesystem::path::preferred_separator != '/') {
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
  }
  return utf8;
}

}  // namespace korva
