#include "core/FileNames.h"

#include <algorithm>

#include "core/RuntimeError.h"
#include "core/Text.h"

namespace korva {

std::string FileBaseName(const std::string& path, bool strip) {
  const auto separator = path.find_last_of("/\\");
  std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
  if (name.empty() && !path.empty()) {
    throw RuntimeError(ErrorNumber::kInvalidCall, "Error in filename: " + path);
  }
  if (strip) {
    const auto dot = name.find('.');
    if (dot != std::string::npos && dot > 0) {
      name.erase(dot);
    }
  }
  return name;
}

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string WithSeparator(std::string_view folder) {
  return std::string(folder) + (folder.empty() || folder.ends_with('/') ? "" : "/");
}

std::string NameWithin(const std::string& folder, std::string_view name) {
  return WithSeparator(folder).append(name);
}

std::string SafeFileName(std::string_view text) {
  constexpr std::string_view kRefused = "/\\:*?\"<>|";
  constexpr std::size_t kLongest = 180;
  std::string name(text);
  std::replace_if(
      name.begin(), name.end(), [&](char c) { return kRefused.find(c) != kRefused.npos || IsControl(c); },
      '_');
  std::size_t length = std::min(name.size(), kLongest);
  while (length > 0 && length < name.size() && IsContinuation(name[length])) {
    --length;
  }
  name.resize(length);
  return name;
}

}  // namespace korva
