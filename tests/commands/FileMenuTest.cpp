#include <gtest/gtest.h>

#include <filesystem>

#include "commands/MenuBench.h"
#include "core/FileNames.h"
#include "support/VoskPanel.h"

namespace korva {
namespace {

class FileMenuTest : public MenuBench {
 protected:
  double DepthIn(const std::string& path) {
    Korva other;
    other.ProjectFileName = path;
    ScriptedMessages none;
    EXPECT_TRUE(FileOpen(other, none));
    return other.Stored.ProjectInput.DepthCover;
  }

  std::string LongNames() const {
    std::string names;
    for (const std::string& name : korva.Preferences.FileMenu.LastFileLong) {
      names += FileBaseName(name, false) + "|";
    }
    return names;
  }
};

TEST_F(FileMenuTest, SaveAsksForANameOnlyWhereThereIsNone) {
  Edit(500);
  korva.ProjectFileName = "untitled";
  ports.Files.Expect(folder / "a.KVL");
  EXPECT_TRUE(menu->Save(false));
  Edit(600);
  EXPECT_TRUE(menu->Save(false));
  EXPECT_EQ(DepthIn(folder / "a.KVL"), 600);
  const FileQuestion& asked = ports.Files.Asked.at(0);
  EXPECT_TRUE(asked.Save);
  EXPECT_EQ(asked.Name + "|" + asked.Folder + "/", "untitled|" + (folder / ""));
  EXPECT_EQ(asked.Filters.at(asked.ActiveFilter), "KORVA-STROND Files (*.KVL)");
  EXPECT_EQ(asked.DefaultExtension, "KVL");
}

TEST_F(FileMenuTest, ACancelledDialogStripsTheNameAndChangesNothingElse) {
  ASSERT_TRUE(menu->OpenPath(PutProject("a.KVL")));
  Edit(700);
  ports.Files.Expect(std::nullopt);
  EXPECT_FALSE(menu->Open());
  EXPECT_EQ(korva.ProjectFileName, "a.KVL");
  EXPECT_EQ(korva.ProjectPreviousFileName, folder / "a.KVL");
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 700);
  EXPECT_FALSE(korva.ProjectSaved);
}

TEST_F(FileMenuTest, OpeningOverUnsavedWorkAsksAndKeepsWhatIsDropped) {
  const std::string a = PutProject("a.KVL");
  const std::string b = PutProject("b.KVL");
  ASSERT_TRUE(menu->OpenPath(a));
  Edit(510);
  ports.Messages.Expect("Save changes to: " + a + "?", kYesNo, MessageAnswer::kYes);
  EXPECT_TRUE(menu->OpenPath(b));
  EXPECT_EQ(DepthIn(a), 510);
  EXPECT_EQ(korva.ProjectFileName, b);

  Edit(520);
  ports.Messages.Expect("Save changes to: " + b + "?", kYesNo, MessageAnswer::kNo);
  EXPECT_TRUE(menu->OpenPath(a));
  EXPECT_EQ(DepthIn(b), 400);

  // A save that was asked for and failed leaves the project open.
  Edit(530);
  std::filesystem::remove(a);
  std::filesystem::create_directory(a);
  ports.Messages.Expect("Save changes to: " + a + "?", kYesNo, MessageAnswer::kYes)
      .Expect(a + " exists already", kYesNo, MessageAnswer::kYes)
      .Expect("Error occurred: Path/File access error (75). Procedure Terminated");
  korva.OpenFile = {};
  EXPECT_FALSE(menu->OpenPath(b));
  EXPECT_EQ(korva.ProjectFileName, a);
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 530);
  EXPECT_FALSE(korva.ProjectSaved);

  recovery->EndCleanly();
  Recovery next(korva);
  korva.ProjectSaved = true;
  ports.Messages.Expect("Unsaved work on " + b, MessageButtons::kYesNo, MessageAnswer::kYes);
  EXPECT_TRUE(next.OfferCopies(ports.Messages));
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 520);
  EXPECT_EQ(korva.ProjectFileName, b);
  EXPECT_FALSE(korva.ProjectSaved);
  EXPECT_FALSE(next.OfferCopies(ports.Messages)) << "offered twice";
}

TEST_F(FileMenuTest, AnImportedPanelHasNoNameAndAFailedOneTakesIt) {
  const std::string a = PutProject("a.KVL");
  const std::string sibling = folder.Put("b.VSK", test::VoskPanel());
  ASSERT_TRUE(menu->OpenPath(a));
  Edit(510);
  ports.Files.Expect(sibling);
  ports.Messages.Expect("Save changes to: " + a + "?", kYesNo, MessageAnswer::kYes);
  EXPECT_TRUE(menu->ImportVosk());
  EXPECT_EQ(DepthIn(a), 510);
  const FileQuestion& asked = ports.Files.Asked.at(0);
  EXPECT_EQ(asked.Title + "|" + asked.Name, "Import VOSK Project Files|a.KVL");
  EXPECT_EQ(asked.Filters.at(asked.ActiveFilter), "KORVA-STROND Files (*.VSK)");
  EXPECT_FALSE(asked.Save);
  EXPECT_EQ(korva.ProjectFileName, kUntitled);
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 812.5);
  EXPECT_EQ(korva.ProjectCalc.DepthCover, 400) << "the working copy stays";
  EXPECT_TRUE(korva.ProjectSaved && !korva.ProjectEmpty && korva.ProjectUnitsLocked);
  EXPECT_EQ(LongNames(), "a.KVL||||") << "no recent file";

  // Saving asks for a name, and never touches the sibling's file.
  ports.Files.Expect(folder / "b.KVL");
  EXPECT_TRUE(menu->Save(false));
  EXPECT_EQ(DepthIn(folder / "b.KVL"), 812.5);
  EXPECT_EQ(TempFolder::Bytes(sibling), test::VoskPanel());

  ports.Files.Expect(std::nullopt);
  EXPECT_FALSE(menu->ImportVosk());
  EXPECT_EQ(korva.ProjectFileName, kUntitled) << "a cancelled dialog takes the name, too";
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 812.5);

  ports.Files.Expect(a);
  ports.Messages.Expect("Invalid file format");
  EXPECT_FALSE(menu->ImportVosk());
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_EQ(korva.ProjectFileName, kUntitled);

  ports.Files.Expect(folder.Put("c.VSK", test::VoskPanel("##KORVA START##", "")));
  ports.Messages.Expect("Error occurred: Input past end of file (62)", MessageButtons::kRetryCancel,
                        MessageAnswer::kCancel);
  EXPECT_FALSE(menu->ImportVosk());
  EXPECT_EQ(korva.Stored.ProjectTitle, "North, \"four\"");
  EXPECT_EQ(korva.ProjectFileName, kUntitled);
}

TEST_F(FileMenuTest, NothingIsReplacedUnseen) {
  const std::string a = PutProject("a.KVL");
  ASSERT_TRUE(menu->OpenPath(a));
  Edit(500);
  std::ofstream(a, std::ios::app) << "changed by another";
  ports.Messages.Expect(a + " has been changed", kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(menu->Save(false));
  EXPECT_FALSE(korva.ProjectSaved);
  ports.Messages.Expect(a + " has been changed", kYesNo, MessageAnswer::kYes);
  EXPECT_TRUE(menu->Save(false));

  const std::string cut = folder.Put("cut.KVL", TempFolder::Bytes(a).substr(0, 120));
  ports.Messages.Expect("Error occurred: Input past end of file (62)", MessageButtons::kRetryCancel,
                        MessageAnswer::kCancel);
  EXPECT_FALSE(menu->OpenPath(cut));
  Edit(900);
  ports.Messages.Expect(cut + " could not be read whole", kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(menu->Save(false));
  EXPECT_EQ(TempFolder::Bytes(cut).size(), 120U);

  const std::string b = PutProject("b.KVL");
  korva.ProjectFileName = b;
  ports.Messages.Expect(b + " exists already", kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(menu->Save(false));
  ports.Files.Expect(b);  // the dialog has asked
  EXPECT_TRUE(menu->Save(true));
}

TEST_F(FileMenuTest, ExitAsksAboutUnsavedWorkAndEndsTheSession) {
  const struct {
    MessageAnswer answer;
    std::optional<std::string> name;
    bool exits;
  } cases[] = {{MessageAnswer::kCancel, "", false},
               {MessageAnswer::kNo, "", true},
               {MessageAnswer::kYes, std::nullopt, false},
               {MessageAnswer::kYes, folder / "a.KVL", true}};
  korva.Places.IniFile = folder / "settings.ini";
  double depth = 500;
  for (const auto& c : cases) {
    Edit(++depth);
    ports.Messages.Expect("Save changes to: Untitled?", MessageButtons::kYesNoCancel, c.answer);
    if (c.answer == MessageAnswer::kYes) {
      ports.Files.Expect(c.name);
    }
    recovery->KeepCopy();
    EXPECT_EQ(menu->Exit(), c.exits);
    EXPECT_EQ(std::filesystem::is_empty(folder / "sessions"), c.exits) << "the copy of what was given up";
    EXPECT_EQ(std::filesystem::remove(korva.Places.IniFile), c.exits) << "the recent files";
  }
}

TEST_F(FileMenuTest, RecentFilesSwapAndDropTheOldest) {
  std::vector<std::string> files;
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    files.push_back(PutProject(name));
    ASSERT_TRUE(menu->OpenPath(files.back()));
  }
  EXPECT_EQ(LongNames(), "e|d|c|b|");
  ASSERT_TRUE(menu->OpenRecent(3));
  EXPECT_EQ(LongNames(), "c|d|e|b|");
  EXPECT_EQ(menu->RecentCaptions()[1], files[2]);
  korva.Preferences.KeepFileNames = false;
  ASSERT_TRUE(menu->OpenPath(files[0]));
  EXPECT_EQ(LongNames(), "c|d|e|b|");
  korva.Preferences.KeepFileNames = korva.Preferences.ShortRecentFiles = true;
  ASSERT_TRUE(menu->OpenPath(files[0]));
  EXPECT_EQ(menu->RecentCaptions()[1], "a");
}

TEST_F(FileMenuTest, AFileOpenInTwoWindowsIsTold) {
  const std::string a = PutProject("a.KVL");
  ASSERT_TRUE(menu->OpenPath(a));
  Korva second;
  second.Places = korva.Places;
  Recovery other(second);
  ScriptedPorts others;
  FileMenu otherMenu(second, others.All, other);
  others.Messages.Expect(a + " is open in another window");
  EXPECT_TRUE(otherMenu.OpenPath(a));

  // Saving asks before it writes, under a name of a dialog too, and says nothing afterwards.
  second.Stored.ProjectInput.DepthCover = 610;
  const std::string question = a +
                               " is open in another window of this program. What is saved in one window "
                               "replaces what was saved in the other. Save it?";
  others.Messages.Expect(question, kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(otherMenu.Save(false));
  EXPECT_EQ(DepthIn(a), 400);
  second.ProjectFileName = folder / "mine.KVL";
  for (const bool saves : {false, true}) {
    others.Files.Expect(a);
    others.Messages.Expect(question, kYesNo, saves ? MessageAnswer::kYes : MessageAnswer::kNo);
    EXPECT_EQ(otherMenu.Save(true), saves);
    EXPECT_EQ(DepthIn(a), saves ? 610 : 400);
    EXPECT_EQ(second.ProjectFileName, saves ? a : folder / "mine.KVL") << "a name declined is not taken";
  }

  recovery->EndCleanly();
  EXPECT_TRUE(otherMenu.OpenPath(a));
  EXPECT_TRUE(otherMenu.Save(false));
}

TEST_F(FileMenuTest, TheOpenedFileIsKnownByEachOfItsNames) {
  const std::string a = PutProject("a.KVL");
  std::filesystem::current_path(folder / "");
  ASSERT_TRUE(menu->OpenPath(a));
  Edit(500);
  ports.Files.Expect(std::nullopt);
  EXPECT_FALSE(menu->Open());
  ASSERT_EQ(korva.ProjectFileName, "a.KVL");
  EXPECT_TRUE(menu->Save(false));
  EXPECT_EQ(DepthIn(a), 500);

  std::filesystem::create_symlink("a.KVL", folder / "link.KVL");
  korva.ProjectFileName = folder / "link.KVL";
  EXPECT_TRUE(menu->Save(false));
}

TEST_F(FileMenuTest, AKilledSessionsWorkIsOfferedAndARunningOnesIsNot) {
  Edit(640);
  korva.ProjectFileName = korva.ProjectOwnName = "/mine/panel \"7\".KVL";
  korva.Stored.ProjectDescription = "first\r\nsecond";
  recovery->KeepCopy();
  Korva second;
  second.Places = korva.Places;
  {
    Recovery other(second);
    EXPECT_FALSE(other.OfferCopies(ports.Messages));
  }
  recovery.reset();  // the lock goes, as it does when a process is killed
  Recovery next(second);
  ports.Messages.Expect("Unsaved work on /mine/panel", MessageButtons::kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(next.OfferCopies(ports.Messages));
  EXPECT_TRUE(second.ProjectEmpty);
}

TEST_F(FileMenuTest, ACleanExitLeavesNoCopyAndSavedWorkNone) {
  Edit(500);
  recovery->KeepCopy();
  korva.ProjectSaved = true;
  recovery->KeepCopy();
  Edit(600);
  recovery->KeepCopy();
  recovery->EndCleanly();
  EXPECT_TRUE(std::filesystem::is_empty(folder / "sessions"));
}

TEST(CaptionFileName, ShortensFrom51Characters) {
  const std::string longest(50, 'x');
  EXPECT_EQ(CaptionFileName(longest), longest);
  EXPECT_EQ(CaptionFileName("0123456789" + std::string(41, 'y')), "0123456789..." + std::string(37, 'y'));
}

}  // namespace
}  // namespace korva
