#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "files/PlatformFile.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

TEST(ReadWholeFile, ReadsUpToItsLimit) {
  const TempFolder folder;
  const std::string bytes = std::string("a\0\r\n", 4) + std::string(200000, 'x');
  const std::string path = folder.Put("panel.kvl", bytes);
  EXPECT_EQ(ReadWholeFile(path, bytes.size()), bytes);
  EXPECT_NE(ExpectError(ErrorNumber::kOutOfMemory, [&] { ReadWholeFile(path, bytes.size() - 1); }).find(path),
            std::string::npos);
  EXPECT_EQ(ReadWholeFile(folder.Put("empty", ""), 0), "");
}

TEST(ReadWholeFile, TellsAMissingFileFromAMissingFolder) {
  const TempFolder folder;
  folder.Put("file", "x");
  ExpectError(ErrorNumber::kFileNotFound, [&] { ReadWholeFile(folder / "none.kvl", 10); });
  ExpectError(ErrorNumber::kFileNotFound, [] { ReadWholeFile("no such panel.kvl", 10); });
  ExpectError(ErrorNumber::kPathNotFound, [&] { ReadWholeFile(folder / "none/panel.kvl", 10); });
  ExpectError(ErrorNumber::kPathNotFound, [&] { ReadWholeFile(folder / "file/panel.kvl", 10); });
}

TEST(ReadWholeFile, RefusesWhatIsNoFileWithoutWaitingForIt) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("loop", folder / "loop");
  for (const std::string& path : {folder / "", folder / "pipe", folder / "loop", std::string("/dev/zero")}) {
    ExpectError(ErrorNumber::kPathFileAccess, [&] { ReadWholeFile(path, 10); });
  }
}

TEST(ReadWholeFile, NeedsThePermission) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "nothing is forbidden to this user";
  }
  const TempFolder folder;
  const std::string path = folder.Put("panel.kvl", "x");
  ::chmod(path.c_str(), 0);
  ExpectError(ErrorNumber::kPermissionDenied, [&] { ReadWholeFile(path, 10); });
}

TEST(SystemErrors, BecomeTheirRuntimeErrors) {
  const TempFolder folder;
  const std::pair<int, ErrorNumber> cases[] = {
      {EACCES, ErrorNumber::kPermissionDenied},
      {EPERM, ErrorNumber::kPermissionDenied},
      {EROFS, ErrorNumber::kPermissionDenied},
      {EISDIR, ErrorNumber::kPathFileAccess},
      {ENOSPC, ErrorNumber::kDiskFull},
      {EDQUOT, ErrorNumber::kDiskFull},
      {EIO, ErrorNumber::kDeviceIo},
      {ENOTDIR, ErrorNumber::kPathNotFound},
      {ENOENT, ErrorNumber::kFileNotFound},
      {ENOMEM, ErrorNumber::kOutOfMemory},
  };
  for (const auto& c : cases) {
    const std::string detail =
        ExpectError(c.second, [&] { ThrowSystemError(c.first, folder / "panel.kvl", "writing"); });
    EXPECT_TRUE(detail.starts_with(folder / "panel.kvl: writing: ")) << detail;
  }
  ExpectError(ErrorNumber::kPathNotFound,
              [&] { ThrowSystemError(ENOENT, folder / "none/panel.kvl", "opening"); });
}

TEST(StateOfFile, FollowsLinksAndKnowsOneFileByTwoNames) {
  const TempFolder folder;
  folder.Put("panel.kvl", "four");
  std::filesystem::create_symlink("panel.kvl", folder / "link");
  const FileState state = StateOfFile(folder / "link");
  EXPECT_TRUE(state.isRegular);
  EXPECT_EQ(state.size, 4U);
  EXPECT_EQ(state.node, StateOfFile(folder / "panel.kvl").node);
  EXPECT_TRUE(StateOfFile(folder / "").isFolder);
  EXPECT_FALSE(StateOfFile(folder / "none").exists);
  EXPECT_FALSE(StateOfFile(folder / "none/panel.kvl").exists);
}

}  // namespace
}  // namespace korva
