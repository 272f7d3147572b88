#include <gtest/gtest.h>

#include <filesystem>

#include "files/FileTree.h"
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

// Names beyond ASCII go to the system and come back as they are.
TEST(FileTree, MakesFindsRenamesAndRemovesByName) {
  const TempFolder folder;
  const std::string made = folder / "Grube \u00dcber\u2013Tag/\u0448\u0430\u0445\u0442\u0430";
  MakeFolderPath(made);
  const std::string file = folder.Put("panel.kvl", "four");
  const std::string moved = made + "/\u7164.KVL";
  RenameFile(file, moved);
  std::filesystem::create_symlink(moved, folder / "link");
  EXPECT_TRUE(IsFile(moved) && IsFile(folder / "link") && !IsFile(made) && !IsFile(file));
  EXPECT_TRUE(IsLink(folder / "link") && !IsLink(moved));
  EXPECT_TRUE(IsSameFile(moved, folder / "link"));
  EXPECT_FALSE(IsSameFile(file, file));
  EXPECT_EQ(ResolveLinks(folder / "link"), moved);
  EXPECT_EQ(ReadFolder(made).Files, std::vector<std::string>{"\u7164.KVL"});
  EXPECT_EQ(NewestFiles(made, ".KVL"), std::vector<std::string>{moved});
  EXPECT_EQ(FullFolderName("/a//\u00dc/./x/../"), "/a/\u00dc");
  RemoveFile(moved);
  RemoveFile(moved);
  EXPECT_FALSE(IsFile(moved));
}

TEST(FileTree, FailuresCarryTheSystemsErrorAndWhatWasTried) {
  const TempFolder folder;
  folder.Put("file", "");
  std::string detail =
      ExpectError(ErrorNumber::kPathNotFound, [&] { MakeFolder(folder / "none/new", "making it"); });
  EXPECT_TRUE(detail.starts_with((folder / "none/new") + ": making it: ")) << detail;
  ExpectError(ErrorNumber::kPathNotFound, [&] { MakeFolderPath(folder / "file/new"); });
  ExpectError(ErrorNumber::kFileNotFound, [&] { RenameFile(folder / "none", folder / "other"); });
  ExpectError(ErrorNumber::kPathFileAccess, [&] { RemoveFile(folder / ""); });
  EXPECT_FALSE(TryMakeFolderPath(folder / "file"));
}

}  // namespace
}  // namespace korva
