#include <gtest/gtest.h>

#include <algorithm>
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
  std::fill(korva.OutBuf.begin(), korva.OutBuf.end(), "earlier");
  return korva;
}

TEST(FileNew, ResetsTheProjectAndItsPages) {
  Korva korva = WithProject();
  korva.Preferences.DefaultUnits = kMetric;
  FileNew(korva, {false, false});
  EXPECT_EQ(korva.ProjectFileName, "old.KVL");
  EXPECT_EQ(korva.Stored.ProjectUnits, kEnglish);
  FileNew(korva);
  EXPECT_EQ(korva.ProjectFileName, "Untitled");
  EXPECT_TRUE(korva.ProjectSaved && korva.ProjectEmpty && !korva.ProjectUnitsLocked);
  Project empty = EmptyProject(kMetric);
  empty.LoadingConditionAux = 7;  // nothing but a file touches it
  EXPECT_EQ(korva.Stored.ProjectInput, empty);
  EXPECT_EQ(korva.OutBuf[0], "earlier");
  EXPECT_EQ(korva.OutBuf[1] + korva.OutBuf[2] + korva.OutBuf[3] + korva.OutBuf[4] + korva.OutBuf[5], "");
}

TEST(FileOpen, ForeignOrTornFileLeavesAnEmptyProject) {
  const TempFolder folder;
  Korva korva = WithProject();
  korva.ProjectFileName = folder.Put("notes.txt", "korva_603\nabc\n");
  ScriptedMessages messages;
  messages.Expect("Invalid file format");
  EXPECT_FALSE(FileOpen(korva, messages));
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_EQ(korva.ProjectCalc, DevelopmentPanel());

  const std::string whole = ComposeProject(Stored(TwoSideGobs()));
  korva.ProjectFileName = folder.Put("panel.KVL", whole);
  EXPECT_TRUE(FileOpen(korva, messages));
  EXPECT_EQ(korva.ProjectCalc, TwoSideGobs());
  EXPECT_TRUE(korva.ProjectSaved && !korva.ProjectEmpty && korva.ProjectUnitsLocked);

  korva = WithProject();
  korva.ProjectFileName = folder.Put("torn.KVL", whole.substr(0, whole.find("\r\n900\r\n") + 2));
  ExpectError(ErrorNumber::kInputPastEnd, [&] { FileOpen(korva, messages); });
  EXPECT_EQ(korva.Stored.ProjectInput.EntryHeight, 6);  // what stands in front
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 0);
  EXPECT_TRUE(korva.ProjectEmpty && !korva.ProjectUnitsLocked);
  EXPECT_EQ(korva.ProjectCalc, DevelopmentPanel());
}

TEST(FileOpen, AByteOrderMarkIsToldWithTheWayOut) {
  const TempFolder folder;
  Korva korva;
  for (const auto read : {FileOpen, FileOpenVOSK}) {
    for (const char* bytes : {"\xEF\xBB\xBFKORVA_605\n", "\xEF\xBB\xBFVOSK_103\n", "\xFF\xFEV"}) {
      korva.ProjectFileName = folder.Put("a", bytes);
      ScriptedMessages messages;
      messages.Expect("Invalid file format: the file begins with a byte-order mark");
      EXPECT_FALSE(read(korva, messages));
    }
    korva.ProjectFileName = folder.Put("a", "no project");
    ScriptedMessages messages;
    messages.Expect("Invalid file format");
    EXPECT_FALSE(read(korva, messages));
    EXPECT_EQ(messages.Shown.at(0).text, "Invalid file format");
  }
}

TEST(FileSave, WritesAndConvertRenames) {
  const TempFolder folder;
  Korva korva = WithProject();
  korva.ProjectFileName = folder / "gone/new.KVL";
  ExpectError(ErrorNumber::kPathNotFound, [&] { FileSave(korva); });
  EXPECT_FALSE(korva.ProjectSaved);
  korva.ProjectFileName = folder / "new.KVL";
  FileSave(korva);
  EXPECT_TRUE(korva.ProjectSaved);
  EXPECT_EQ(TempFolder::Bytes(korva.ProjectFileName), ComposeProject(korva.Stored));
  ConvertProject(korva, kMetric);
  EXPECT_EQ(korva.ProjectFileName, "Metric_new.KVL");
  EXPECT_FALSE(korva.ProjectSaved);
}

}  // namespace
}  // namespace korva
