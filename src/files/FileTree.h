// Files and folders by their names, UTF-8 with "/" between folders. All that is asked of the standard library
// about them stands here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva {

// Whether `path` names a regular file, links followed; any failure counts as no.
bool IsFile(const std::string& path);

// Whether `path` itself is a symbolic link; any failure counts as no.
bool IsLink(const std::string& path);

// Whether both names lead to one existing file; any failure counts as no.
bool IsSameFile(const std::string& a, const std::string& b);

// `name` behind the current folder, if it does not begin at the root; as it is if there is no such folder.
std::string FullName(const std::string& name);

// From the root on, without ".", ".." and a separator at its end.
std::string FullFolderName(const std::string& folder);

// Empty if it is gone.
std::string CurrentFolder();

// The file that `path` leads to through symbolic links, whether it is there or not; `path` itself if it is
// none.
std::string ResolveLinks(const std::string& path);

// Makes a folder that is missing. Run-time error of the system, which says `action` was tried.
void MakeFolder(const std::string& folder, std::string_view action = "making the folder");
// The folder and all above it.
void MakeFolderPath(const std::string& folder, std::string_view action = "making the folder");
// The same without an error: whether it is there then.
bool TryMakeFolderPath(const std::string& folder);

// Takes other people's permissions off a folder, as far as that can be done.
void RestrictToOwner(const std::string& folder) noexcept;

// Gives a file another name, over one that has it. Run-time error of the system.
void RenameFile(const std::string& from, const std::string& to, std::string_view action = "renaming it");

// Removes a file; one that is not there is no failure. Run-time error of the system.
void RemoveFile(const std::string& path);
// The same without an error.
void TryRemoveFile(const std::string& path) noexcept;

// Removes a folder with all that is in it, as far as that can be done.
void RemoveFolder(const std::string& folder) noexcept;

// Names without their folder, sorted, capital and small letters alike.
struct FolderContent {
  std::vector<std::string> Folders;
  std::vector<std::string> Files;  // all that is no folder, broken links and pipes too
};

// Run-time errors 70 and 76.
FolderContent ReadFolder(const std::string& folder);

// The full names of the files of `folder` with that extension (".KVL"), the newest
// first; none if it cannot be read.
std::vector<std::string> NewestFiles(const std::string& folder, std::string_view extension);

}  // namespace korva
