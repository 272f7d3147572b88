#include "files/FolderContent.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/Text.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

namespace fs = std::filesystem;

bool StandsBefore(const std::string& a, const std::string& b) {
  const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                           [](char x, char y) { return LowerCase(x) == LowerCase(y); });
  if (left == a.end() || right == b.end()) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  }
  return static_cast<unsigned char>(LowerCase(*left)) < static_cast<unsigned char>(LowerCase(*right));
}

}  // namespace

FolderContent ReadFolder(const std::string& folder) {
  FolderContent content;
  std::error_code failure;
  fs::directory_iterator entry(folder, failure);
  while (!failure && entry != fs::end(entry)) {
    std::error_code unknown;  // a broken link is no folder
    auto& names = entry->is_directory(unknown) ? content.Folders : content.Files;
    names.push_back(entry->path().filename().string());
    entry.increment(failure);
  }
  if (failure) {
    ThrowSystemError(failure.value(), folder + "/", "reading the folder");
  }
  std::sort(content.Folders.begin(), content.Folders.end(), StandsBefore);
  std::sort(content.Files.begin(), content.Files.end(), StandsBefore);
  return content;
}

}  // namespace korva
