#include <gtest/gtest.h>

#include <string>

#include "commands/FileCommands.h"
#include "files/ProjectFile.h"
#include "support/ExpectError.h"
#include "support/Panels.h"
#include "support/ScriptedMessages.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

using test::DevelopmentPanel;
using test::Stored;
using test::TwoSideGobs;

// A program with an edited project and pages of an earlier run.
Korva WithProject() {
  Korva korva;
  korva.Stored = Stored(TwoSideGobs());
  korva.Stored.ProjectInput.LoadingConditionAux = 7;
  korva.Stored.ProjectDescription = "Edited";
  korva.ProjectCalc = DevelopmentPanel();
  korva.ProjectFileName = "old.KVL";
  korva.ProjectSaved = korva.ProjectEmpty = false;
  korva.ProjectUnitsLocked = true;
  for (std::string& page : korva.OutBuf) {
    page = "earlier";
  }
  return korva;
}

std::string FileOf(const Project& project, std::int16_t units = kEnglish) {
  return ComposeProject(Stored(project, units));
}

TEST(FileNew, ResetsTheProjectAndItsPages) {
  Korva korva = WithProject();
  korva.Preferences.DefaultUnits = kMetric;
  FileNew(korva, true, true);
  EXPECT_EQ(korva.ProjectFileName, "Untitled");
  EXPECT_TRUE(korva.ProjectSaved);
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_FALSE(korva.ProjectUnitsLocked);
  EXPECT_EQ(korva.ProjectFileMode, 1);
  EXPECT_EQ(korva.Stored.ProjectUnits, kMetric);
  EXPECT_EQ(korva.Stored.ProjectInput.CoalStrength, 6.205283178097832);
  EXPECT_EQ(korva.Stored.ProjectInput.UnitWeight, 25.446482633742956);
  EXPECT_EQ(korva.Stored.ProjectInput.NumberEntries, 2);
  EXPECT_EQ(korva.Stored.ProjectInput.LoadingConditionAux, 7);  // nothing but a file touches it
  EXPECT_EQ(korva.Stored.ProjectTitle + korva.Stored.ProjectDescription, "");
  EXPECT_EQ(korva.ProjectCalc, DevelopmentPanel());
  EXPECT_EQ(korva.OutBuf[0], "earlier");
  for (int page = 1; page <= 5; ++page) {
    EXPECT_EQ(korva.OutBuf[page], "") << page;
  }
}

TEST(FileNew, KeepsNameAndUnitsOnDemand) {
  Korva korva = WithProject();
  korva.Preferences.DefaultUnits = kMetric;
  FileNew(korva, false, false);
  EXPECT_EQ(korva.ProjectFileName, "old.KVL");
  EXPECT_EQ(korva.Stored.ProjectUnits, kEnglish);
  EXPECT_EQ(korva.Stored.ProjectInput.CoalStrength, 900);
}

TEST(FileOpen, ReadsIntoProjectAndWorkingCopy) {
  const TempFolder folder;
  Project project = TwoSideGobs();
  project.LoadingConditionAux = 3;
  Korva korva = WithProject();
  korva.ProjectFileName = folder.Put("panel.KVL", FileOf(project));
  ScriptedMessages messages;
  EXPECT_TRUE(FileOpen(korva, messages));
  EXPECT_EQ(korva.Stored.ProjectInput, project);
  EXPECT_EQ(korva.ProjectCalc, project);
  EXPECT_EQ(korva.Stored.ProjectTitle, "Sample panel");
  EXPECT_TRUE(korva.ProjectSaved);
  EXPECT_FALSE(korva.ProjectEmpty);
  EXPECT_TRUE(korva.ProjectUnitsLocked);
  EXPECT_EQ(korva.ProjectFormatVersion, 54);
  EXPECT_EQ(korva.OutBuf[1], "");
}

TEST(FileOpen, OldFormatKeepsWhatItLacks) {
  const TempFolder folder;
  Korva korva = WithProject();
  korva.ProjectFileName = folder.Put(
      "old.KVL",
      "KORVA_500\n0\nOld\n##StartDesc##\n\n##EndDesc##\n6\n400\n90\n20\n80\n2\n60\n900\n162\n100\n1\n0\n"
      "0\n21\n0\n21\n0\n0\n0\n21\n0\n0\n");
  ScriptedMessages messages;
  EXPECT_TRUE(FileOpen(korva, messages));
  EXPECT_EQ(korva.ProjectFormatVersion, 50);
  EXPECT_EQ(korva.Stored.ProjectInput.LoadingConditionAux, 7);  // carried over from the project before
  EXPECT_EQ(korva.Stored.ProjectInput.ArchFactor, 1);
  EXPECT_EQ(korva.Stored.ProjectInput.ArchAuto, 1);
}

TEST(FileOpen, ForeignFileLeavesAnEmptyProjectUnderItsName) {
  const TempFolder folder;
  Korva korva = WithProject();
  korva.ProjectFileName = folder.Put("notes.txt", "korva_603\nabc\n");
  ScriptedMessages messages;
  messages.Expect("Invalid file format");
  EXPECT_FALSE(FileOpen(korva, messages));
  EXPECT_EQ(messages.Shown.front().title, ProgramTitle);
  EXPECT_EQ(korva.ProjectFileName, folder / "notes.txt");
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_EQ(korva.ProjectCalc, DevelopmentPanel());
}

TEST(FileOpen, TornFileKeepsWhatStandsInFront) {
  const TempFolder folder;
  const std::string whole = FileOf(TwoSideGobs());
  Korva korva = WithProject();
  korva.ProjectFileName = folder.Put("torn.KVL", whole.substr(0, whole.find("\r\n900\r\n") + 2));
  ScriptedMessages messages;
  ExpectError(ErrorNumber::kInputPastEnd, [&] { FileOpen(korva, messages); });
  EXPECT_EQ(korva.Stored.ProjectInput.EntryHeight, 6);
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 0);
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_FALSE(korva.ProjectUnitsLocked);
  EXPECT_EQ(korva.ProjectCalc, DevelopmentPanel());
}

TEST(FileSave, WritesWhatReadsBack) {
  const TempFolder folder;
  Korva korva = WithProject();
  korva.ProjectFileName = folder / "new.KVL";
  korva.Stored.ProjectInput.NumberEntries = 0;
  FileSave(korva);
  EXPECT_TRUE(korva.ProjectSaved);
  EXPECT_EQ(korva.Stored.ProjectInput.NumberEntries, 1);
  Korva other;
  other.ProjectFileName = korva.ProjectFileName;
  ScriptedMessages messages;
  ASSERT_TRUE(FileOpen(other, messages));
  EXPECT_EQ(other.Stored.ProjectInput.NumberEntries, 1);
  EXPECT_EQ(other.Stored.ProjectInput.LoadingConditionAux, 7);
  EXPECT_EQ(other.Stored.ProjectDescription, "Edited\r\n");
}

TEST(FileSave, FailureLeavesTheProjectUnsaved) {
  Korva korva = WithProject();
  korva.ProjectFileName = TempFolder() / "gone/new.KVL";
  ExpectError(ErrorNumber::kPathNotFound, [&] { FileSave(korva); });
  EXPECT_FALSE(korva.ProjectSaved);
}

TEST(ConvertProject, RenamesAndMarksUnsaved) {
  Korva korva = WithProject();
  korva.ProjectSaved = true;
  korva.ProjectFileName = "/mine/north/Metric_p.KVL";
  ConvertProject(korva, kMetric);
  EXPECT_EQ(korva.ProjectFileName, "Metric_Metric_p.KVL");
  EXPECT_EQ(korva.Stored.ProjectUnits, kMetric);
  EXPECT_FALSE(korva.ProjectSaved);
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 274.32);
}

}  // namespace
}  // namespace korva
