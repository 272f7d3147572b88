#include <gtest/gtest.h>

#include <filesystem>

#include "commands/CaseImport.h"
#include "commands/CommandBench.h"
#include "commands/FileCommands.h"
#include "commands/Formats.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

constexpr const char* kQuestion = "This operation will override current data. Proceed?";

// Works in a folder of its own, which gets the files.
class CaseImportTest : public CommandBench {
 protected:
  CaseImportTest() {
    Formats();  // which may have been named from the folder that the tests began in
    fs::current_path(folder / "");
    korva.Preferences.DataPath = folder / "";
    FileNew(korva);
    steps.KeepWork = [this] { ++kept; };
    steps.MayContinue = [this](const CaseImportState& state) { return state.Row < stopAt; };
  }

  CaseImportState Import(const std::string& row, const std::string& workbook = KORVA_EXAMPLES "/cases.xlsx") {
    ports.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kYes);
    ports.Files.Expect(workbook);
    return ImportCases(korva, ports.All, row, steps);
  }

  // A sheet of two rows, 3 and 4, of the same case number and mine.
  static Sheet TwoAlike(const std::string& mine) {
    Sheet sheet;
    for (const int row : {3, 4}) {
      sheet.Set(row, 1, {CellKind::kNumber, 8, {}});
      sheet.Set(row, 3, {CellKind::kText, 0, mine});
    }
    return sheet;
  }

  CaseImportSteps steps;
  int kept = 0;
  int stopAt = 1000;
};

TEST_F(CaseImportTest, TheDialogTakesTheFirstCaseOrAllRows) {
  const CaseImportState first = Import("0");
  EXPECT_EQ(first.Text, "3:completed");
  EXPECT_EQ(folder.Names().size(), 1U);
  EXPECT_EQ(kept, 1);
  EXPECT_TRUE(korva.ProjectSaved && !korva.ProjectEmpty);
  EXPECT_TRUE(fs::exists(korva.ProjectFileName)) << "a bare name in the current folder";
  EXPECT_EQ(korva.ProjectFileName.find('/'), std::string::npos);
  const FileQuestion& asked = ports.Files.Asked.at(0);
  EXPECT_EQ(asked.Filters.at(asked.ActiveFilter), "Excel Files (*.XLS)");
  EXPECT_EQ(asked.Folder + "/", folder / "");
  EXPECT_FALSE(asked.Save);

  const CaseImportState all = Import("999");
  EXPECT_EQ(all.Text, "647:completed");
  const std::size_t files = folder.Names().size();
  EXPECT_GE(files, 6U);
  Import("999");
  EXPECT_EQ(folder.Names().size(), files) << "done again it is the same files";
  EXPECT_EQ(ports.Files.Asked.at(1).Name, "cases.xlsx");
  EXPECT_TRUE(
      korva.Stored.ProjectDescription.starts_with("Data Import from KORVA Database Excel file, row: "));
}

TEST_F(CaseImportTest, WhatImportsNothing) {
  korva.Stored.ProjectInput.DepthCover = 700;
  korva.ProjectSaved = korva.ProjectEmpty = false;
  ports.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kNo);
  EXPECT_EQ(ImportCases(korva, ports.All, "0", steps).Text, "");
  ports.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kYes);
  ports.Files.Expect(std::nullopt);
  EXPECT_EQ(ImportCases(korva, ports.All, "0", steps).Text, "0:canceled");
  const CaseImportState missing = Import("0", folder / "gone.xls");
  EXPECT_EQ(missing.Text, "0:canceled");
  EXPECT_NE(missing.Reason.find("File not found"), std::string::npos) << missing.Reason;
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 700) << "nothing was begun";
  EXPECT_EQ(kept, 0);

  stopAt = 0;
  const CaseImportState stopped = Import("0");
  EXPECT_EQ(stopped.Text, "0:canceled");
  EXPECT_NE(stopped.Reason.find("reading it was ended"), std::string::npos) << stopped.Reason;
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 700) << "the workbook was still being read";
  stopAt = 1000;

  const CaseImportState other = Import("10");
  EXPECT_EQ(other.Text, "0:canceled");
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 0);
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_EQ(kept, 1);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(CaseImportTest, RowsThatAreDoneStay) {
  // Row 5 of this workbook holds a text in place of a number.
  const CaseImportState ended = Import("999", KORVA_WORKBOOKS "/cases.xlsx");
  EXPECT_EQ(ended.Text, "5:canceled");
  EXPECT_NE(ended.Reason.find("row 5, column 20 (T): \"deep\""), std::string::npos) << ended.Reason;
  EXPECT_NE(ended.Reason.find("2 projects written to"), std::string::npos) << ended.Reason;
  EXPECT_EQ(folder.Names().size(), 2U);
  EXPECT_TRUE(korva.ProjectEmpty);

  stopAt = 4;
  const CaseImportState stopped = Import("999");
  EXPECT_EQ(stopped.Text, "4:canceled");
  EXPECT_EQ(folder.Names().size(), 4U);
}

TEST_F(CaseImportTest, NoFileOfAnotherRowIsReplaced) {
  const Sheet sheet = TwoAlike("../a/b");
  EXPECT_EQ(ImportCase(korva, sheet, 3, folder / ""), folder / "008-.._a_b.KVL");
  EXPECT_EQ(ImportCase(korva, sheet, 4, folder / ""), folder / "008-.._a_b (row 4).KVL");
  EXPECT_EQ(ImportCase(korva, sheet, 4, folder / ""), folder / "008-.._a_b (row 4).KVL");
  // What somebody has changed stays, and so does what a link leads to.
  folder.Put("008-.._a_b.KVL", "changed");
  fs::create_symlink(folder / "elsewhere", folder / "008-.._a_b (row 3).KVL");
  EXPECT_EQ(ImportCase(korva, sheet, 3, folder / ""), folder / "008-.._a_b (row 3, 2).KVL");
  EXPECT_FALSE(fs::exists(folder / "elsewhere"));
  EXPECT_EQ(TempFolder::Bytes(folder / "008-.._a_b.KVL"), "changed");

  ExpectError(ErrorNumber::kPathNotFound, [&] { ImportCase(korva, sheet, 3, folder / "gone"); });
  fs::create_symlink("loop", folder / "loop");
  ExpectError(ErrorNumber::kPathFileAccess, [&] { ImportCase(korva, sheet, 3, folder / "loop"); });
  EXPECT_EQ(korva.Stored.ProjectTitle, "../a/b") << "what could not be saved is still there";
  EXPECT_FALSE(korva.ProjectSaved);
}

}  // namespace
}  // namespace korva
