#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "commands/CommandBench.h"
#include "commands/FileAssociation.h"
#include "files/SafeWriter.h"
#include "services/DesktopTexts.h"
#include "support/Environment.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEntry = "data/applications/korva-strond.desktop";
constexpr const char* kType = "data/mime/packages/korva-strond.xml";
constexpr const char* kList = "config/mimeapps.list";

class FileAssociation : public CommandBench {
 protected:
  FileAssociation() {
    korva.Places.AppPath = folder / "opt/korva strond/";
    PutIn("opt/korva strond/korva-strond", "");
    korva.Places.DataHome = folder / "data/";
    korva.Places.ConfigHome = folder / "config/";
    korva.Preferences.DisplayHistoryWin = true;
    Tool("update-mime-database", "echo mime >> " + (folder / "tools.log"));
    Tool("update-desktop-database", "echo desktop >> " + (folder / "tools.log"));
  }

  void Tool(const std::string& name, const std::string& command) {
    fs::create_directories(folder / "bin");
    folder.Put("bin/" + name, "#!/bin/sh\n" + command + "\n");
    fs::permissions(folder / ("bin/" + name), fs::perms(0755));
  }
  void PutIn(const std::string& name, std::string_view bytes) {
    fs::create_directories((folder.Path() / name).parent_path());
    folder.Put(name, bytes);
  }
  std::string Of(const char* name) { return TempFolder::Bytes(folder / name); }

  // All files of the user and what they hold.
  std::map<std::string, std::string> Files() {
    std::map<std::string, std::string> files;
    for (const char* home : {"data", "config"}) {
      std::error_code none;
      for (const auto& entry : fs::recursive_directory_iterator(folder / home, none)) {
        if (entry.is_regular_file()) {
          files[Utf8Of(entry.path())] = TempFolder::Bytes(Utf8Of(entry.path()));
        }
      }
    }
    return files;
  }

  void ExpectQuestion(MessageAnswer answer, const std::string& extension = "KVL") {
    ports.Messages.Expect("This operation may break an existing association of file extension " + extension +
                              " with other programs on this computer. Proceed?",
                          MessageButtons::kYesNo, answer);
  }
  void Associate(const std::string& extension = "KVL") {
    korva.Preferences.FileExtension = extension;
    ExpectQuestion(MessageAnswer::kYes, extension);
    ports.Messages.Expect(
        "The " + extension +
        " file extensions has been associated to korva-strond\r\n\r\nNote: if order for this function "
        "to be successfully completed the user needs to have access to the registry");
    AskFileAssociation(korva, ports.All, kPictures);
  }
  void Dissociate(const std::string& extension = "KVL") {
    ports.Messages.Expect("Files with the extension " + extension + " will open as they did before",
                          MessageButtons::kYesNo, MessageAnswer::kYes);
    ports.Messages.Expect("The association of file extension " + extension + " has been removed");
    AskFileDissociation(korva, ports.All);
  }
  // An association that does not come about, and what the message names as its cause.
  std::string Fail(const char* error, MessageButtons buttons = MessageButtons::kOk) {
    ExpectQuestion(MessageAnswer::kYes);
    ports.Messages.Expect(std::string("Error occurred: ") + error, buttons, MessageAnswer::kCancel);
    AskFileAssociation(korva, ports.All, kPictures);
    return ports.Messages.Shown.back().detail;
  }

  inline static const AssociationPictures kPictures{"<svg>program</svg>", "<svg>project</svg>"};

 private:
  EnvironmentValue path_{"PATH", folder / "bin"};
};

TEST_F(FileAssociation, TellsTheDesktopAndIsTakenBackToTheByte) {
  PutIn(kList,
        "# by hand\n[Default Applications]\napplication/x-korva-strond=ed.desktop\r\ntext/plain=ed.desktop");
  PutIn(kEntry, "[Desktop Entry]\nName=Somebody's own\n");
  PutIn("data/mime/packages/other.xml", "<other/>");
  const auto before = Files();
  EXPECT_FALSE(HasFileAssociation(korva));

  Associate();
  EXPECT_EQ(Of(kEntry), ProgramEntryText(korva.Places.AppPath + "korva-strond"));
  EXPECT_EQ(Of(kType), ProjectTypeText("KVL", kAskedWeight));
  EXPECT_EQ(Of("data/icons/hicolor/scalable/apps/korva-strond.svg"), kPictures.Program);
  EXPECT_EQ(Of("data/icons/hicolor/scalable/mimetypes/application-x-korva-strond.svg"), kPictures.Project);
  EXPECT_EQ(
      Of(kList),
      "# by hand\n[Default Applications]\napplication/x-korva-strond=korva-strond.desktop;ed.desktop;\r\n"
      "text/plain=ed.desktop");
  EXPECT_EQ(Of("tools.log"), "mime\ndesktop\n");
  EXPECT_TRUE(korva.SessionHistory.Text.ends_with("KVL korva-strond " + korva.Places.AppPath + "\r\n"));
  EXPECT_TRUE(ports.Messages.Shown.back().detail.empty());

  Associate("K2");  // once more, with another extension: what was before it all stays known
  EXPECT_EQ(Of(kType), ProjectTypeText("K2", kAskedWeight));
  EXPECT_TRUE(HasFileAssociation(korva));
  Dissociate("K2");
  EXPECT_EQ(Files(), before);
  EXPECT_FALSE(HasFileAssociation(korva));
  AskFileDissociation(korva, ports.All);  // nothing left to ask
}

TEST_F(FileAssociation, LeavesWhatOthersHaveWrittenSince) {
  Associate();
  const std::string own = Of(kList);
  folder.Put(kList, own + "text/html=web.desktop;\n");
  folder.Put(kType, "<mine/>");
  fs::remove(folder / kEntry);
  Associate();  // the list with a stranger's line is what was before, but for this program in it
  folder.Put(kType, "<mine, again/>");
  folder.Put(kList, Of(kList) + "image/png=view.desktop;\n");
  Dissociate();
  EXPECT_EQ(Of(kList), "[Default Applications]\ntext/html=web.desktop;\nimage/png=view.desktop;\n");
  EXPECT_EQ(Of(kType), "<mine, again/>");
  EXPECT_NE(ports.Messages.Shown.back().detail.find(folder / kType), std::string::npos);
  EXPECT_FALSE(fs::exists(folder / kEntry));
  EXPECT_FALSE(HasFileAssociation(korva));
}

// What the user had chosen before, such as the installed program for the same files, is the user's.
TEST_F(FileAssociation, GivesTheUsersOwnChoiceBack) {
  PutIn(kList, "[Default Applications]\napplication/x-korva-strond=ed.desktop;korva-strond.desktop;\n");
  const auto before = Files();
  Associate();
  EXPECT_TRUE(Of(kList).ends_with("=korva-strond.desktop;ed.desktop;\n"));
  Dissociate();
  EXPECT_EQ(Files(), before);
  Associate();
  folder.Put(kList, Of(kList) + "text/html=web.desktop;\n");
  Associate();
  folder.Put(kList, Of(kList) + "image/png=view.desktop;\n");
  Dissociate();
  EXPECT_EQ(Of(kList),
            "[Default Applications]\napplication/x-korva-strond=ed.desktop;korva-strond.desktop;\n"
            "text/html=web.desktop;\nimage/png=view.desktop;\n");
  fs::remove(folder / kList);
  fs::create_symlink("elsewhere.list", folder / kList);  // to a file that is not there
  Associate();
  EXPECT_TRUE(fs::exists(folder / "config/elsewhere.list"));
  Dissociate();
  EXPECT_TRUE(fs::is_symlink(folder / kList));
  EXPECT_FALSE(fs::exists(folder / "config/elsewhere.list"));
}

TEST_F(FileAssociation, FailingWholeLeavesNothingBehind) {
  PutIn(kList, "[Added Associations]\n");
  PutIn(kEntry, "mine");
  const auto before = Files();
  const auto unchanged = [&] {
    EXPECT_EQ(Files(), before);
    EXPECT_FALSE(HasFileAssociation(korva));
  };
  // A folder in the place of a file, of each file in turn.
  for (const char* name : {"data/icons/hicolor/scalable/apps/korva-strond.svg",
                           "data/icons/hicolor/scalable/mimetypes/application-x-korva-strond.svg", kType,
                           "data/korva-strond/file-association"}) {
    fs::create_directories(folder / name);
    EXPECT_NE(Fail("Path/File access error (75)").find(folder / name), std::string::npos);
    unchanged();
    fs::remove(folder / name);
  }
  // A list that cannot be read whole is not written; the question comes before anything is done.
  fs::resize_file(folder / kList, std::uintmax_t{5} << 20);
  Fail("Out of memory (7)");
  EXPECT_EQ(fs::file_size(folder / kList), std::uintmax_t{5} << 20);
  folder.Put(kList, "[Added Associations]\n");
  unchanged();
  // The last step of all: the tool that the desktops rely on.
  Tool("update-mime-database", "exit 1");
  EXPECT_NE(Fail("Path/File access error (75)").find("update-mime-database"), std::string::npos);
  unchanged();
  korva.Places.AppPath = "/opt/50%/";
  Fail("Invalid procedure call or argument (5)");
  unchanged();
  korva.Places.AppPath = folder / "moved/";
  Fail("File not found (53)", MessageButtons::kRetryCancel);
  unchanged();
  EXPECT_EQ(korva.SessionHistory.Text.find("KVL korva-strond"), std::string::npos) << "never said to be done";
}

// A file stands where the folder of the list is to be, so that all else is written before it fails.
TEST_F(FileAssociation, TakesBackTheEarlierStepsOfAnAssociationThatFails) {
  Associate();
  const auto associated = Files();
  PutIn("elsewhere/korva-strond", "");
  korva.Places.AppPath = folder / "elsewhere/";
  fs::rename(folder / "config", folder / "config.away");
  folder.Put("config", "no folder");
  Fail("Path not found (76)");
  fs::remove(folder / "config");
  fs::rename(folder / "config.away", folder / "config");
  EXPECT_EQ(Files(), associated) << "the first association stands";
  Dissociate();
  EXPECT_TRUE(Files().empty());
}

TEST_F(FileAssociation, RefusesWhatIsNoExtensionAndHeedsANo) {
  for (const char* extension : {"", "kvl", "K.L", "KORV", "\xC3\x84", "K\n"}) {
    korva.Preferences.FileExtension = extension;
    ports.Messages.Expect("The file extension of the settings, \"" + std::string(extension));
    AskFileAssociation(korva, ports.All, kPictures);
  }
  korva.Preferences.FileExtension = "KVL";
  ExpectQuestion(MessageAnswer::kNo);
  AskFileAssociation(korva, ports.All, kPictures);
  EXPECT_TRUE(Files().empty());
  Associate();
  const auto associated = Files();
  ports.Messages.Expect("Files with the extension KVL", MessageButtons::kYesNo, MessageAnswer::kNo);
  AskFileDissociation(korva, ports.All);
  EXPECT_EQ(Files(), associated);
}

TEST_F(FileAssociation, NamesWhatMayKeepItFromBeingSeen) {
  std::optional<EnvironmentValue> desktop(std::in_place, "XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
  PutIn("config/gnome-mimeapps.list", "[Default Applications]\napplication/x-korva-strond=ed.desktop\n");
  PutIn("config/ubuntu-mimeapps.list",
        "[Default Applications]\napplication/x-korva-strond=korva-strond.desktop\n");
  Associate();
  EXPECT_EQ(ports.Messages.Shown.back().detail,
            "This desktop still opens the files with the program that these lists name:\n" +
                (folder / "config/gnome-mimeapps.list"));
  desktop.reset();
  fs::remove(folder / "bin/update-mime-database");
  Associate();
  EXPECT_NE(ports.Messages.Shown.back().detail.find("update-mime-database"), std::string::npos);
  EXPECT_EQ(ports.Messages.Shown.back().detail.find("update-desktop-database"), std::string::npos);
  Dissociate();
  korva.Places.DataHome.clear();
  EXPECT_FALSE(HasFileAssociation(korva));
  Fail("Path not found (76)");
}

// The record is a file like any other: what is wrong with it does no harm.
TEST_F(FileAssociation, ABrokenRecordIsNone) {
  Associate();
  const std::string record = Of("data/korva-strond/file-association");
  for (std::size_t size = 0; size < record.size(); ++size) {
    folder.Put("data/korva-strond/file-association", record.substr(0, size));
    EXPECT_FALSE(HasFileAssociation(korva)) << size;
  }
  std::string huge = record;
  huge.replace(huge.find("-\n"), 1, "99999999999999999999");
  folder.Put("data/korva-strond/file-association", huge);
  EXPECT_FALSE(HasFileAssociation(korva));
  Associate();
  EXPECT_TRUE(HasFileAssociation(korva));
}

}  // namespace
}  // namespace korva
