#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <random>

#include "commands/CommandBench.h"
#include "commands/ExternalViewer.h"

namespace korva {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

class ExternalViewer : public CommandBench {
 protected:
  ExternalViewer() {
    korva.Places.TempRoot = folder / "Temp/";
    korva.Preferences.ExternalEditor = "ed -r";
    scratch = folder / "Temp/~tmpbr.tmp";
  }
  bool View(const std::string& file) { return ViewExternally(korva, ports.All, file); }
  Words Call(const std::string& setting) {
    ProgramCall call = CallOfEditor(setting);
    call.Arguments.insert(call.Arguments.begin(), call.Program);
    return call.Arguments;
  }

  std::string scratch;
};

TEST_F(ExternalViewer, TheSettingIsAProgramWithItsArguments) {
  EXPECT_EQ(Call("Notepad.exe"), Words{"Notepad.exe"});
  EXPECT_EQ(Call("  gedit  --new-window -s "), (Words{"gedit", "--new-window", "-s"}));
  EXPECT_EQ(Call(R"("/opt/no such/ed" -t "my title" a"b c"d)"),
            (Words{"/opt/no such/ed", "-t", "my title", "ab cd"}));
  EXPECT_EQ(Call("  "), Words{""});
  folder.Put("my", "");
  folder.Put("my ed", "");
  EXPECT_EQ(Call(folder / "my ed"), Words{folder / "my ed"});
  EXPECT_EQ(Call(folder / "my ed -n 1"), (Words{folder / "my ed", "-n", "1"}));
  EXPECT_EQ(Call(folder / "my tool"), (Words{folder / "my", "tool"}));
}

TEST_F(ExternalViewer, AProgramThatIsNotThereIsKnownBeforeItIsUsed) {
  folder.Put("my ed", "");
  for (const std::string& there :
       {std::string("sh"), std::string("sh -c"), folder / "my ed -n", std::string()}) {
    EXPECT_EQ(ViewerRemark(there), std::nullopt) << there;
  }
  for (const std::string& missing :
       {std::string("Notepad.exe"), std::string("no-such-viewer -r"), folder / "none"}) {
    EXPECT_EQ(ViewerRemark(missing), "not found on this machine") << missing;
  }
}

TEST_F(ExternalViewer, StartsOnACopyWithLineEndsOfItsOwn) {
  std::string bytes = "a\nb\r\n\rc";
  std::mt19937 random(3);
  for (int i = 0; i < 5000; ++i) {
    bytes += static_cast<char>(random());
  }
  const std::string file = folder.Put("my file.txt", bytes);
  EXPECT_TRUE(View(file));
  const std::string copy = TempFolder::Bytes(scratch);
  EXPECT_TRUE(copy.starts_with("a\r\nb\r\n\r\nc"));
  const auto bare = [](std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
  };
  EXPECT_EQ(bare(copy), bare(bytes));
  EXPECT_TRUE(copy.ends_with("\r\n"));
  EXPECT_EQ(TempFolder::Bytes(file), bytes);
  EXPECT_EQ(fs::status(scratch).permissions(), fs::perms(0600));
  korva.Preferences.ExternalEditor = "joe";
  EXPECT_TRUE(View(scratch)) << "even on the copy itself";
  EXPECT_EQ(TempFolder::Bytes(scratch), copy);
  EXPECT_EQ(ports.Programs.Calls, (std::vector<Words>{{"ed", "-r", scratch}, {"joe", scratch}}));
}

TEST_F(ExternalViewer, NeverWritesThroughALink) {
  const std::string file = folder.Put("panel.KVL", "mine\n");
  fs::create_directory(folder / "Temp");
  fs::create_symlink(file, scratch);
  EXPECT_TRUE(View(file));
  EXPECT_FALSE(fs::is_symlink(scratch));
  EXPECT_EQ(TempFolder::Bytes(file), "mine\n");
  fs::remove(scratch);
  fs::create_hard_link(file, scratch);
  EXPECT_TRUE(View(file));
  fs::remove(scratch);
  fs::create_symlink(folder / "made by nobody", scratch);
  EXPECT_TRUE(View(file));
  EXPECT_EQ(TempFolder::Bytes(file), "mine\n");
  EXPECT_EQ(TempFolder::Bytes(scratch), "mine\r\n");
  EXPECT_FALSE(fs::exists(folder / "made by nobody"));
}

TEST_F(ExternalViewer, EachFailureIsToldAndNothingElseHappens) {
  ports.Messages.Expect("Requested File not found: " + folder / "none.txt");
  EXPECT_FALSE(View(folder / "none.txt"));
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  const auto refuse = [this](const char* text) {
    ports.Messages.Expect(text, MessageButtons::kRetryCancel, MessageAnswer::kCancel);
  };
  ports.Messages.Expect("Error occurred: Path/File access error (75)");
  EXPECT_FALSE(View(folder / "pipe"));
  const std::string file = folder.Put("file", "x");
  fs::create_directories(scratch);
  ports.Messages.Expect("Error occurred: Path/File access error (75)");
  EXPECT_FALSE(View(file));
  EXPECT_TRUE(ports.Programs.Calls.empty());

  fs::remove(scratch);
  ports.Programs.CanRun = false;
  refuse("Error occurred: File not found (53)");
  EXPECT_FALSE(View(file));
  EXPECT_NE(ports.Messages.Shown.back().detail.find("ed -r"), std::string::npos);
  korva.Preferences.ExternalEditor = file;
  refuse("Error occurred: Permission denied (70)");
  EXPECT_FALSE(View(file));
  ports.Programs.CanRun = true;
  korva.Preferences.ExternalEditor = " ";
  refuse("Error occurred: File not found (53)");
  EXPECT_FALSE(View(file));
  EXPECT_EQ(ports.Programs.Calls.size(), 2U) << "no program, no start";
}

}  // namespace
}  // namespace korva
