#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "files/FileReplacement.h"
#include "files/SafeWriter.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

enum class Step { kCreate, kWrite, kFlush, kClose, kRename, kNone };

// The system's way to replace a file, on a disk that gives up at one step; a write gives up half way.
class FailingReplacement final : public FileReplacement {
 public:
  explicit FailingReplacement(Step failing) : failing_(failing) {}

  void CreateBeside(const std::string& target, std::uint32_t mode) override {
    FailAt(Step::kCreate);
    system_->CreateBeside(target, mode);
  }
  void Write(std::string_view bytes) override {
    system_->Write(bytes.substr(0, failing_ == Step::kWrite ? bytes.size() / 2 : bytes.size()));
    FailAt(Step::kWrite);
  }
  void Flush() override {
    FailAt(Step::kFlush);
    system_->Flush();
  }
  void Close() override {
    FailAt(Step::kClose);
    system_->Close();
  }
  void Rename(const std::string& target) override {
    FailAt(Step::kRename);
    system_->Rename(target);
  }
  void Discard() noexcept override { system_->Discard(); }

 private:
  void FailAt(Step step) const {
    if (step == failing_) {
      throw RuntimeError(ErrorNumber::kDiskFull, "no space left");
    }
  }

  Step failing_;
  std::unique_ptr<FileReplacement> system_ = SystemFileReplacement();
};

std::uint32_t Mode(const std::string& path) {
  return static_cast<std::uint32_t>(fs::status(path).permissions());
}

TEST(WriteFileSafely, AFailureAtAnyStepLeavesTheOldFileAlone) {
  for (const Step step : {Step::kCreate, Step::kWrite, Step::kFlush, Step::kClose, Step::kRename}) {
    const TempFolder folder;
    const std::string path = folder.Put("panel.kvl", "old bytes");
    FailingReplacement failing(step);
    EXPECT_EQ(ExpectError(ErrorNumber::kDiskFull, [&] { WriteFileSafely(path, "new content", failing); }),
              "no space left");
    EXPECT_EQ(TempFolder::Bytes(path), "old bytes");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"panel.kvl"});
  }
}

TEST(WriteFileSafely, ReplacesTheContentAndKeepsThePermissions) {
  const TempFolder folder;
  const std::string bytes("\0\r\n\xFF", 4);
  const std::string path = folder.Put("panel.kvl", "a longer old content");
  ::chmod(path.c_str(), 0640);
  WriteFileSafely(path, bytes);
  EXPECT_EQ(TempFolder::Bytes(path), bytes);
  EXPECT_EQ(Mode(path), 0640U);
  WriteFileSafely(path, "");
  EXPECT_EQ(TempFolder::Bytes(path), "");

  const mode_t mask = ::umask(027);
  WriteFileSafely(folder / "new.kvl", bytes);
  ::umask(mask);
  EXPECT_EQ(Mode(folder / "new.kvl"), 0640U);
  EXPECT_EQ(folder.Names().size(), 2U);
}

TEST(WriteFileSafely, FollowsSymbolicLinks) {
  const TempFolder folder;
  fs::create_directory(folder / "mines");
  fs::create_symlink("mines/panel.kvl", folder / "link");
  fs::create_symlink("link", folder / "link to link");
  for (const char* content : {"first", "new"}) {  // makes the file to which it leads, too
    WriteFileSafely(folder / "link to link", content);
    EXPECT_EQ(TempFolder::Bytes(folder / "mines/panel.kvl"), content);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "link to link"));
  }
}

TEST(WriteFileSafely, RefusesWhatIsNoFile) {
  const TempFolder folder;
  fs::create_directory(folder / "panel.kvl");
  folder.Put("file", "x");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  fs::create_symlink("loop", folder / "loop");
  for (const std::string& path :
       {folder / "panel.kvl", folder / "pipe", folder / "loop", std::string("/dev/null")}) {
    ExpectError(ErrorNumber::kPathFileAccess, [&] { WriteFileSafely(path, "x"); });
  }
  for (const char* name : {"none/panel.kvl", "file/panel.kvl"}) {
    ExpectError(ErrorNumber::kPathNotFound, [&] { WriteFileSafely(folder / name, "x"); });
  }
  EXPECT_TRUE(fs::is_directory(folder / "panel.kvl"));
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_EQ(folder.Names().size(), 4U);
}

}  // namespace
}  // namespace korva
