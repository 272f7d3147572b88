#include <gtest/gtest.h>

#include <filesystem>

#include "commands/Attempt.h"
#include "commands/CommandBench.h"
#include "commands/PrintCommands.h"
#include "core/Text.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

class PrintCommands : public CommandBench {
 protected:
  PrintCommands() {
    korva.Stored = test::Stored(test::DevelopmentPanel());
    korva.ProjectEmpty = false;
    korva.ProjectFileName = "/mine/panel.KVL";
    korva.Preferences.DisplayHistoryWin = true;
    korva.Preferences.DataPath = folder / "";
  }

  // All lines of a printed document behind its headers.
  std::string PrintedText() const {
    std::string text;
    for (const PrintedSheet& sheet : ports.Printer.Printed.at(0).Sheets) {
      for (const SheetText& line : sheet.Texts) {
        text += line.Bold ? "" : line.Text + "|";
      }
    }
    return text;
  }
};

TEST_F(PrintCommands, TheInputsAreThoseOfTheProjectAsItStands) {
  korva.OutBuf[0] = "an older page";
  korva.Stored.ProjectInput.DepthCover = 777;
  EXPECT_TRUE(PrintInputPage(korva, ports.All));
  EXPECT_EQ(korva.ProjectCalc.DepthCover, 777);
  EXPECT_NE(korva.OutBuf[0].find("...777 (ft)"), std::string::npos);
  EXPECT_NE(PrintedText().find("...777 (ft)|"), std::string::npos);
  EXPECT_EQ(ports.Printer.Printed[0].Title, "panel");
  EXPECT_TRUE(ports.Printer.Dialogs.empty());
}

TEST_F(PrintCommands, AnEmptyProjectIsPrintedOnYesAlone) {
  korva.ProjectEmpty = true;
  ports.Messages.Expect("Current file is empty. Continue?", MessageButtons::kYesNoDefaultNo,
                        MessageAnswer::kNo);
  EXPECT_FALSE(PrintInputPage(korva, ports.All));
  EXPECT_EQ(korva.OutBuf[0], "");
  EXPECT_EQ(korva.ProjectCalc.DepthCover, 0);
  EXPECT_TRUE(ports.Printer.Printed.empty());
  ports.Messages.Expect("Current file is empty. Continue?", MessageButtons::kYesNoDefaultNo,
                        MessageAnswer::kYes);
  ports.Printer.Failures = 1;
  ports.Messages.Expect("Error occurred: Printer error (482)", MessageButtons::kRetryCancel,
                        MessageAnswer::kRetry);
  EXPECT_TRUE(PrintInputPage(korva, ports.All)) << "asked once";
  EXPECT_EQ(ports.Printer.Printed.size(), 1U);
}

TEST_F(PrintCommands, PagesFollowEachOtherWithoutABreak) {
  for (int page = 0; page <= 5; ++page) {
    korva.OutBuf[page] = "page " + std::to_string(page) + "\r\n";
  }
  korva.OutBuf[5] = "last";
  PrintPages(korva, ports.All, 1, 5);
  EXPECT_EQ(PrintedText(), "page 1|page 2|page 3|page 4|last|");
  EXPECT_EQ(ports.Printer.Printed[0].Sheets.size(), 1U);
  EXPECT_EQ(ports.Printer.Dialogs, std::vector<std::string>{"print"});
}

TEST_F(PrintCommands, ACancelledDialogPrintsNothing) {
  ports.Printer.Cancels = true;
  PrintText(korva, ports.All, "text");
  EXPECT_TRUE(ports.Printer.Printed.empty());
  EXPECT_EQ(korva.SessionHistory.Text, "1. Printing aborted\r\n");
}

TEST_F(PrintCommands, AFailedPrinterCanBeTriedAgain) {
  ports.Printer.Failures = 1;
  ports.Messages.Expect("Error occurred: Printer error (482)", MessageButtons::kRetryCancel,
                        MessageAnswer::kRetry);
  EXPECT_EQ(Attempt(korva, ports.Messages, [&] { PrintText(korva, ports.All, "text"); }),
            AttemptResult::kDone);
  EXPECT_EQ(PrintedText(), "text|");
  ports.Printer.Failures = 1;
  ports.Messages.Expect("Error occurred: Printer error (482)", MessageButtons::kRetryCancel,
                        MessageAnswer::kCancel);
  EXPECT_EQ(Attempt(korva, ports.Messages, [&] { PrintText(korva, ports.All, "text"); }),
            AttemptResult::kFailed);
  EXPECT_EQ(ports.Printer.Printed.size(), 1U);
}

TEST_F(PrintCommands, SavesWhatWouldBePrinted) {
  const std::string file = folder / "out.pdf";
  const auto save = [&] {
    ports.Files.Expect(file);
    SaveTextAsPdf(korva, ports.All, "text");
    return TempFolder::Bytes(file);
  };
  EXPECT_NE(save().find("[ 0 0 612 792 ]"), std::string::npos) << "the printer's paper";
  const FileQuestion& asked = ports.Files.Asked.at(0);
  EXPECT_TRUE(asked.Save);
  EXPECT_EQ(asked.Folder + asked.Name + asked.DefaultExtension, folder / "panel.pdfpdf");
  EXPECT_EQ(korva.SessionHistory.Text, "1. Output saved to file: " + file + "\r\n");
  ports.Printer.Loaded.reset();
  EXPECT_NE(save().find("[ 0 0 612 792 ]"), std::string::npos) << "English units";
  korva.Stored.ProjectUnits = kMetric;
  EXPECT_NE(save().find("[ 0 0 595.3 841.9 ]"), std::string::npos);

  ports.Files.Expect(std::nullopt);
  SaveTextAsPdf(korva, ports.All, "text");
  EXPECT_EQ(korva.SessionHistory.HistoryCounter, 3);
}

TEST_F(PrintCommands, APdfHasTheTitleOfTheProject) {
  const std::string file = folder / "out.pdf";
  const auto saved = [&](const std::string& title) {
    korva.Stored.ProjectTitle = title;
    ports.Files.Expect(file);
    SaveTextAsPdf(korva, ports.All, "text");
    return TempFolder::Bytes(file);
  };
  EXPECT_NE(saved("Panel 7").find("/Title (Panel 7)"), std::string::npos);
  EXPECT_NE(saved("  ").find("/Title (panel)"), std::string::npos) << "the project's file, not the PDF's";
}

TEST_F(PrintCommands, APdfThatCannotBeWrittenLeavesTheOldOne) {
  std::filesystem::create_directory(folder / "full.pdf");
  ports.Files.Expect(folder / "full.pdf");
  ExpectError(ErrorNumber::kPathFileAccess, [&] { SaveTextAsPdf(korva, ports.All, "text"); });
  ports.Files.Expect(folder / "none/out.pdf");
  ExpectError(ErrorNumber::kPathNotFound, [&] { SaveTextAsPdf(korva, ports.All, "text"); });
  EXPECT_EQ(korva.SessionHistory.Text, "");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"full.pdf"});
}

}  // namespace
}  // namespace korva
