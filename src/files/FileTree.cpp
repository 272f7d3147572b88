#include "files/FileTree.h"

#include <algorithm>
#include <system_error>

#include "core/FilePaths.h"
#include "core/Text.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

namespace fs = std::filesystem;

void Require(const std::error_code& failure, const std::string& path, std::string_view action) {
  if (failure) {
    ThrowSystemError(failure.default_error_condition().value(), path, action);
  }
}

bool SortsBefore(const std::string& a, const std::string& b) {
  const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                           [](char x, char y) { return LowerCase(x) == LowerCase(y); });
  if (left == a.end() || right == b.end()) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  }
  return static_cast<unsigned char>(LowerCase(*left)) < static_cast<unsigned char>(LowerCase(*right));
}

// Calls `visit` for each entry, until one cannot be read.
template <class Visit>
std::error_code ForEachEntry(const std::string& folder, Visit visit) {
  std::error_code failure;
  fs::directory_iterator entry(PathOf(folder), failure);
  for (; !failure && entry != fs::end(entry); entry.increment(failure)) {
    visit(*entry);
  }
  return failure;
}

}  // namespace

bool IsFile(const std::string& path) {
  std::error_code unknown;
  return fs::is_regular_file(PathOf(path), unknown);
}

bool IsLink(const std::string& path) {
  std::error_code unknown;
  return fs::is_symlink(PathOf(path), unknown);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code unknown;
  return fs::equivalent(PathOf(a), PathOf(b), unknown);
}

std::string FullName(const std::string& name) {
  std::error_code failure;
  const auto full = fs::absolute(PathOf(name), failure);
  return failure ? name : Utf8Of(full);
}

std::string FullFolderName(const std::string& folder) {
  std::string path = Utf8Of(PathOf(FullName(folder)).lexically_normal());
  if (path.size() > 1 && path.ends_with('/')) {
    path.pop_back();
  }
  return path;
}

std::string CurrentFolder() {
  std::error_code unknown;
  return Utf8Of(fs::current_path(unknown));
}

std::string ResolveLinks(const std::string& path) {
  static constexpr int kMostLinks = 40;
  fs::path target = PathOf(path);
  for (int links = 0; links < kMostLinks; ++links) {
    std::error_code noLink;
    const auto next = fs::read_symlink(target, noLink);
    if (noLink) {
      break;
    }
    target = target.parent_path() / next;
  }
  return Utf8Of(target);
}

void MakeFolder(const std::string& folder, std::string_view action) {
  std::error_code failure;
  fs::create_directory(PathOf(folder), failure);
  Require(failure, folder, action);
}

void MakeFolderPath(const std::string& folder, std::string_view action) {
  std::error_code failure;
  fs::create_directories(PathOf(folder), failure);
  Require(failure, folder, action);
}

bool TryMakeFolderPath(const std::string& folder) {
  std::error_code failure;
  fs::create_directories(PathOf(folder), failure);
  return FolderExists(folder);
}

void RestrictToOwner(const std::string& folder) noexcept {
  std::error_code failure;
  fs::permissions(PathOf(folder), fs::perms::owner_all, failure);
}

void RenameFile(const std::string& from, const std::string& to, std::string_view action) {
  std::error_code failure;
  fs::rename(PathOf(from), PathOf(to), failure);
  Require(failure, from, action);
}

void RemoveFile(const std::string& path) {
  std::error_code failure;
  fs::remove(PathOf(path), failure);
  Require(failure, path, "removing");
}

void TryRemoveFile(const std::string& path) noexcept {
  std::error_code failure;
  fs::remove(PathOf(path), failure);
}

void RemoveFolder(const std::string& folder) noexcept {
  std::error_code failure;
  fs::remove_all(PathOf(folder), failure);
}

FolderContent ReadFolder(const std::string& folder) {
  FolderContent content;
  const auto failure = ForEachEntry(folder, [&](const fs::directory_entry& entry) {
    std::error_code unknown;  // a broken link is no folder
    auto& names = entry.is_directory(unknown) ? content.Folders : content.Files;
    names.push_back(Utf8Of(entry.path().filename()));
  });
  Require(failure, folder + "/", "reading the folder");
  std::sort(content.Folders.begin(), content.Folders.end(), SortsBefore);
  std::sort(content.Files.begin(), content.Files.end(), SortsBefore);
  return content;
}

std::vector<std::string> NewestFiles(const std::string& folder, std::string_view extension) {
  std::vector<std::pair<fs::file_time_type, std::string>> found;
  ForEachEntry(folder, [&](const fs::directory_entry& entry) {
    std::error_code unknown;
    if (entry.path().extension() == PathOf(extension)) {
      found.emplace_back(entry.last_write_time(unknown), Utf8Of(entry.path()));
    }
  });
  std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [time, name] : found) {
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace korva
