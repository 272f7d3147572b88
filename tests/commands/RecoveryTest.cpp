#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "commands/AcceptForms.h"
#include "commands/MenuBench.h"
#include "files/ProjectFile.h"
#include "support/VoskPanel.h"

namespace korva {
namespace {

// While a dialog or a question is open, the copies are looked at as the timer of a window would write them.
class RecoveryTest : public MenuBench {
 protected:
  RecoveryTest() {
    std::filesystem::current_path(folder / "");
    ports.Messages.WhileShown = ports.Files.WhileShown = [this] { Tick(); };
  }

  // An unsaved depth over the project `file`.
  void OpenAndEdit(const std::string& file, double depth) {
    korva.ProjectSaved = true;
    ASSERT_TRUE(menu->OpenPath(file));
    Edit(depth);
  }
  void Tick() {
    recovery->KeepCopy();
    for (const auto& entry : std::filesystem::directory_iterator(folder / "sessions")) {
      const std::string name = Utf8Of(entry.path().filename());
      if (name.ends_with(".KVL") && !name.starts_with("kept-")) {
        const std::string copy = TempFolder::Bytes(Utf8Of(entry.path()));
        StoredProject project;
        std::vector<FileNotice> notices;
        ReadProject(copy, name, 54, project, notices);
        std::string owner = copy.substr(copy.find("##Recovery##") + 12);
        owner.resize(owner.find_first_of("\r\n"));
        seen.insert(fmt::format("{} of {}", project.ProjectInput.DepthCover,
                                owner.front() == '/' ? Utf8Of(std::filesystem::relative(owner)) : owner));
      }
    }
  }
  // What the copies have been since the last call.
  std::string Seen() {
    Tick();
    std::string all;
    for (const std::string& copy : std::exchange(seen, {})) {
      all += (all.empty() ? "" : ", ") + copy;
    }
    return all;
  }

  std::set<std::string> seen;
};

TEST_F(RecoveryTest, ACopyHasTheNameOfItsOwnProjectWhileAnotherIsChosen) {
  const std::string a = PutProject("a.KVL");
  const std::string b = PutProject("b.KVL");
  std::filesystem::create_directory(folder / "d");
  const std::string broken = folder.Put("broken.KVL", "no project");
  const std::string question = "Save changes to: " + a + "?";
  korva.Preferences.FileMenu.LastFileLong[2] = b;

  OpenAndEdit(a, 510);
  ports.Messages.Expect(question, kYesNo, MessageAnswer::kNo);
  EXPECT_TRUE(menu->OpenRecent(2));
  EXPECT_EQ(Seen(), "510 of a.KVL");

  // A save that the person does not go on with leaves the project open.
  OpenAndEdit(a, 520);
  std::ofstream(a, std::ios::app) << "changed";
  ports.Files.Expect(b);
  ports.Messages.Expect(question, kYesNo, MessageAnswer::kYes)
      .Expect(a + " has been", kYesNo, MessageAnswer::kNo);
  EXPECT_FALSE(menu->Open());
  Edit(521);
  EXPECT_EQ(Seen(), "510 of a.KVL, 520 of a.KVL, 521 of a.KVL");

  // A cancelled dialog takes the folder, or the name, from the project, not from its copy.
  for (const bool import : {false, true}) {
    ports.Files.Expect(std::nullopt);
    EXPECT_FALSE(import ? menu->ImportVosk() : menu->Open());
    EXPECT_EQ(korva.ProjectFileName, import ? kUntitled : "a.KVL");
    Edit(530);
    EXPECT_EQ(Seen(), "510 of a.KVL, 521 of a.KVL, 530 of a.KVL");
    Edit(521);
    Seen();
  }

  // Nor does a name that nothing could be written under.
  ports.Files.Expect(folder / "d");
  ports.Messages.Expect("Error occurred: Path/File access error (75). Procedure Terminated");
  EXPECT_FALSE(menu->Save(true));
  EXPECT_EQ(Seen(), "510 of a.KVL, 521 of a.KVL");
  ports.Files.Expect(folder / "c.KVL");
  EXPECT_TRUE(menu->Save(true));
  Edit(540);
  EXPECT_EQ(Seen(), "510 of a.KVL, 521 of a.KVL, 540 of c.KVL");

  // What could not be read has taken the place of the project all the same.
  ports.Messages.Expect("Save changes to: ", kYesNo, MessageAnswer::kNo).Expect("Invalid file format");
  EXPECT_FALSE(menu->OpenPath(broken));
  Edit(550);
  EXPECT_EQ(Seen(), "510 of a.KVL, 540 of c.KVL, 550 of broken.KVL");
}

TEST_F(RecoveryTest, APanelOfTheSiblingNewUnitsAndAConversionHaveNamesOfTheirOwn) {
  OpenAndEdit(PutProject("a.KVL"), 510);
  ports.Files.Expect(folder.Put("b.VSK", test::VoskPanel()));
  ports.Messages.Expect("Save changes to: ", kYesNo, MessageAnswer::kNo);
  EXPECT_TRUE(menu->ImportVosk());
  EXPECT_EQ(Seen(), "510 of a.KVL");
  Edit(600);
  EXPECT_EQ(Seen(), "510 of a.KVL, 600 of Untitled");

  OpenAndEdit(folder / "a.KVL", 100);
  ConvertProject(korva, kMetric);
  EXPECT_EQ(Seen(), "30.48 of Metric_a.KVL, 510 of a.KVL");

  AcceptDescription(korva, {"title", "", kEnglish});
  EXPECT_EQ(Seen(), "0 of Untitled, 510 of a.KVL");
}

TEST_F(RecoveryTest, OtherSessionsKnowEachProjectThatHasTakenThePlace) {
  Korva second;
  second.Places = korva.Places;
  const Recovery other(second);
  const auto isOpen = [&](const std::string& file) {
    second.ProjectFileName = file;
    return other.IsOpenElsewhere();
  };
  const std::string a = PutProject("a.KVL");
  OpenAndEdit(a, 510);
  ports.Files.Expect(std::nullopt);
  EXPECT_FALSE(menu->Open());  // takes the folder from the name
  recovery->RecordOpenFile();
  EXPECT_TRUE(isOpen(a));
  korva.ProjectFileName = folder / "1-case.KVL";
  FileSave(korva);
  Tick();
  EXPECT_TRUE(!isOpen(a) && isOpen(folder / "1-case.KVL"));
}

TEST_F(RecoveryTest, ARestoredProjectKnowsItsFile) {
  recovery->EndCleanly();
  for (const auto& [name, changed] :
       {std::pair("a.KVL", false), {"two\nlines.KVL", false}, {"a.KVL", true}}) {
    const std::string a = PutProject(name);
    OpenAndEdit(a, 700);
    Recovery(korva).EndKeepingWork();
    if (changed) {
      std::ofstream(a, std::ios::app) << "by another";
    }
    Korva next;
    next.Places = korva.Places;
    Recovery recovered(next);
    ScriptedPorts answers;
    FileMenu nextMenu(next, answers.All, recovered);
    answers.Messages.Expect("Unsaved work on " + a, MessageButtons::kYesNo, MessageAnswer::kYes);
    ASSERT_TRUE(recovered.OfferCopies(answers.Messages));
    EXPECT_EQ(next.ProjectFileName, a);
    if (changed) {
      answers.Messages.Expect(a + " has been changed by another", kYesNo, MessageAnswer::kYes);
    }
    EXPECT_TRUE(nextMenu.Save(false));
    EXPECT_EQ(next.Stored.ProjectInput.DepthCover, 700);
  }
}

TEST_F(RecoveryTest, TheDraftOfAFormIsKeptAtTheEnd) {
  ASSERT_TRUE(menu->OpenPath(PutProject("a.KVL")));
  recovery->Draft = [this] {
    StoredProject draft = korva.Stored;
    draft.ProjectInput.DepthCover = 800;
    return draft;
  };
  recovery->EndKeepingWork();
  Korva next;
  next.Places = korva.Places;
  Recovery recovered(next);
  ports.Messages.Expect("Unsaved work on " + (folder / "a.KVL"), MessageButtons::kYesNo, MessageAnswer::kYes);
  EXPECT_TRUE(recovered.OfferCopies(ports.Messages));
  EXPECT_EQ(next.Stored.ProjectInput.DepthCover, 800);
}

}  // namespace
}  // namespace korva
