#include <gtest/gtest.h>

#include <filesystem>

#include "commands/CaseImport.h"
#include "commands/FileCommands.h"
#include "commands/Formats.h"
#include "support/ExpectError.h"
#include "support/ScriptedPorts.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

constexpr const char* kQuestion = "This operation will override current data. Proceed?";

// Works in a folder of its own, which gets the files.
class CaseImportTest : public testing::Test {
 protected:
  CaseImportTest() : before_(fs::current_path()) {
    Formats();  // which may have been named from the folder that the tests began in
    fs::current_path(folder_ / "");
    korva_.Preferences.DataPath = folder_ / "";
    FileNew(korva_);
    steps_.KeepWork = [this] { ++kept_; };
    steps_.GoOn = [this](const CaseImportState& state) { return state.Row < stopAt_; };
  }
  ~CaseImportTest() override { fs::current_path(before_); }

  CaseImportState Import(const std::string& row, const std::string& workbook = KORVA_EXAMPLES "/cases.xlsx") {
    ports_.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kYes);
    ports_.Files.Expect(workbook);
    return ImportCases(korva_, ports_.All, row, steps_);
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

  TempFolder folder_;
  fs::path before_;
  Korva korva_;
  ScriptedPorts ports_;
  CaseImportSteps steps_;
  int kept_ = 0;
  int stopAt_ = 1000;
};

TEST_F(CaseImportTest, TheDialogTakesTheFirstCaseOrAllRows) {
  const CaseImportState first = Import("0");
  EXPECT_EQ(first.Text, "3:completed");
  EXPECT_EQ(folder_.Names().size(), 1U);
  EXPECT_EQ(kept_, 1);
  EXPECT_TRUE(korva_.ProjectSaved && !korva_.ProjectEmpty);
  EXPECT_TRUE(fs::exists(korva_.ProjectFileName)) << "a bare name in the current folder";
  EXPECT_EQ(korva_.ProjectFileName.find('/'), std::string::npos);
  const FileQuestion& asked = ports_.Files.Asked.at(0);
  EXPECT_EQ(asked.Filters.at(asked.ActiveFilter), "Excel Files (*.XLS)");
  EXPECT_EQ(asked.Folder + "/", folder_ / "");
  EXPECT_FALSE(asked.Save);

  const CaseImportState all = Import("999");
  EXPECT_EQ(all.Text, "647:completed");
  const std::size_t files = folder_.Names().size();
  EXPECT_GE(files, 6U);
  Import("999");
  EXPECT_EQ(folder_.Names().size(), files) << "done again it is the same files";
  EXPECT_EQ(ports_.Files.Asked.at(1).Name, "cases.xlsx");
  EXPECT_TRUE(
      korva_.Stored.ProjectDescription.starts_with("Data Import from KORVA Database Excel file, row: "));
}

TEST_F(CaseImportTest, WhatImportsNothing) {
  korva_.Stored.ProjectInput.DepthCover = 700;
  korva_.ProjectSaved = korva_.ProjectEmpty = false;
  ports_.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kNo);
  EXPECT_EQ(ImportCases(korva_, ports_.All, "0", steps_).Text, "");
  ports_.Messages.Expect(kQuestion, MessageButtons::kYesNo, MessageAnswer::kYes);
  ports_.Files.Expect(std::nullopt);
  EXPECT_EQ(ImportCases(korva_, ports_.All, "0", steps_).Text, "0:canceled");
  const CaseImportState missing = Import("0", folder_ / "gone.xls");
  EXPECT_EQ(missing.Text, "0:canceled");
  EXPECT_NE(missing.Reason.find("File not found"), std::string::npos) << missing.Reason;
  EXPECT_EQ(korva_.Stored.ProjectInput.DepthCover, 700) << "nothing was begun";
  EXPECT_EQ(kept_, 0);

  stopAt_ = 0;
  const CaseImportState stopped = Import("0");
  EXPECT_EQ(stopped.Text, "0:canceled");
  EXPECT_NE(stopped.Reason.find("reading it was ended"), std::string::npos) << stopped.Reason;
  EXPECT_EQ(korva_.Stored.ProjectInput.DepthCover, 700) << "the workbook was still being read";
  stopAt_ = 1000;

  const CaseImportState other = Import("10");
  EXPECT_EQ(other.Text, "0:canceled");
  EXPECT_EQ(korva_.Stored.ProjectInput.DepthCover, 0);
  EXPECT_TRUE(korva_.ProjectEmpty);
  EXPECT_EQ(kept_, 1);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(CaseImportTest, RowsThatAreDoneStay) {
  // Row 5 of this workbook holds a text in place of a number.
  const CaseImportState ended = Import("999", KORVA_WORKBOOKS "/cases.xlsx");
  EXPECT_EQ(ended.Text, "5:canceled");
  EXPECT_NE(ended.Reason.find("row 5, column 20 (T): \"deep\""), std::string::npos) << ended.Reason;
  EXPECT_NE(ended.Reason.find("2 projects written to"), std::string::npos) << ended.Reason;
  EXPECT_EQ(folder_.Names().size(), 2U);
  EXPECT_TRUE(korva_.ProjectEmpty);

  stopAt_ = 4;
  const CaseImportState stopped = Import("999");
  EXPECT_EQ(stopped.Text, "4:canceled");
  EXPECT_EQ(folder_.Names().size(), 4U);
}

TEST_F(CaseImportTest, NoFileOfAnotherRowIsReplaced) {
  const Sheet sheet = TwoAlike("../a/b");
  EXPECT_EQ(ImportCase(korva_, sheet, 3, folder_ / ""), folder_ / "008-.._a_b.KVL");
  EXPECT_EQ(ImportCase(korva_, sheet, 4, folder_ / ""), folder_ / "008-.._a_b (row 4).KVL");
  EXPECT_EQ(ImportCase(korva_, sheet, 4, folder_ / ""), folder_ / "008-.._a_b (row 4).KVL");
  // What somebody has changed stays, and so does what a link leads to.
  folder_.Put("008-.._a_b.KVL", "changed");
  fs::create_symlink(folder_ / "elsewhere", folder_ / "008-.._a_b (row 3).KVL");
  EXPECT_EQ(ImportCase(korva_, sheet, 3, folder_ / ""), folder_ / "008-.._a_b (row 3, 2).KVL");
  EXPECT_FALSE(fs::exists(folder_ / "elsewhere"));
  EXPECT_EQ(TempFolder::Bytes(folder_ / "008-.._a_b.KVL"), "changed");

  ExpectError(ErrorNumber::kPathNotFound, [&] { ImportCase(korva_, sheet, 3, folder_ / "gone"); });
  fs::create_symlink("loop", folder_ / "loop");
  ExpectError(ErrorNumber::kPathFileAccess, [&] { ImportCase(korva_, sheet, 3, folder_ / "loop"); });
  EXPECT_EQ(korva_.Stored.ProjectTitle, "../a/b") << "what could not be saved is still there";
  EXPECT_FALSE(korva_.ProjectSaved);
}

}  // namespace
}  // namespace korva
