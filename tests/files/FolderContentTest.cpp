#include <gtest/gtest.h>

#include <filesystem>

#include "files/FolderContent.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

TEST(ReadFolder, ListsFoldersAndTheRestSorted) {
  const TempFolder folder;
  for (const char* name : {"b", "B2", "a10", "A", "C", "\xFF"}) {
    folder.Put(name, "");
  }
  std::filesystem::create_symlink("nowhere", folder / "ab");
  std::filesystem::create_directory(folder / "Old");
  std::filesystem::create_directory_symlink(folder / "Old", folder / "new");
  const FolderContent content = ReadFolder(folder / "");
  EXPECT_EQ(content.Files, (std::vector<std::string>{"A", "a10", "ab", "b", "B2", "C", "\xFF"}));
  EXPECT_EQ(content.Folders, (std::vector<std::string>{"new", "Old"}));
  ExpectError(ErrorNumber::kPathNotFound, [&] { ReadFolder(folder / "none"); });
  ExpectError(ErrorNumber::kPathNotFound, [&] { ReadFolder(folder / "b"); });
}

}  // namespace
}  // namespace korva
