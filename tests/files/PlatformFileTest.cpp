#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "files/FileReader.h"
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
  ExpectError(ErrorNumber::kOutOfMemory, [&] { ReadWholeFile(path, bytes.size() - 1); });
  EXPECT_EQ(ReadWholeFile(folder.Put("empty", ""), 0), "");
  // One that holds more than its size says, as one that grows does.
  static constexpr const char* kGrown = "/proc/self/status";
  EXPECT_TRUE(ReadWholeFile(kGrown, 65536).starts_with("Name:"));
  ExpectError(ErrorNumber::kOutOfMemory, [] { ReadWholeFile(kGrown, 100); });
}

TEST(ReadWholeFile, RefusesWhatIsNoFileWithoutWaitingForIt) {
  const TempFolder folder;
  folder.Put("file", "x");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  const std::pair<std::string, ErrorNumber> cases[] = {{folder / "none.kvl", ErrorNumber::kFileNotFound},
                                                       {"no such panel.kvl", ErrorNumber::kFileNotFound},
                                                       {folder / "none/a.kvl", ErrorNumber::kPathNotFound},
                                                       {folder / "file/a.kvl", ErrorNumber::kPathNotFound},
                                                       {folder / "", ErrorNumber::kPathFileAccess},
                                                       {folder / "pipe", ErrorNumber::kPathFileAccess},
                                                       {"/dev/zero", ErrorNumber::kPathFileAccess}};
  for (const auto& [path, number] : cases) {
    ExpectError(number, [&path = path] { ReadWholeFile(path, 10); });
  }
}

TEST(SystemErrors, BecomeTheirRuntimeErrors) {
  using enum ErrorNumber;
  const std::pair<int, ErrorNumber> cases[] = {
      {EACCES, kPermissionDenied}, {EPERM, kPermissionDenied}, {EROFS, kPermissionDenied},
      {EISDIR, kPathFileAccess},   {ELOOP, kPathFileAccess},   {ENOSPC, kDiskFull},
      {EDQUOT, kDiskFull},         {EIO, kDeviceIo},           {ENOMEM, kOutOfMemory}};
  for (const auto& [code, number] : cases) {
    const std::string detail =
        ExpectError(number, [code = code] { ThrowSystemError(code, "panel.kvl", "writing"); });
    EXPECT_TRUE(detail.starts_with("panel.kvl: writing: ")) << detail;
  }
}

TEST(StateOfFile, FollowsLinks) {
  const TempFolder folder;
  folder.Put("panel.kvl", "four");
  std::filesystem::create_symlink("panel.kvl", folder / "link");
  const FileState state = StateOfFile(folder / "link");
  EXPECT_TRUE(state.isRegular);
  EXPECT_TRUE(StateOfFile(folder / "").isFolder);
  EXPECT_FALSE(StateOfFile(folder / "none/panel.kvl").exists);
}

}  // namespace
}  // namespace korva
