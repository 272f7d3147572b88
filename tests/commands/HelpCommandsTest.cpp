#include <gtest/gtest.h>

#include <filesystem>

#include "commands/CommandBench.h"
#include "commands/HelpCommands.h"
#include "services/HelpTexts.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class HelpCommands : public CommandBench {
 protected:
  HelpCommands() {
    fs::create_directory(folder / "bin");
    fs::create_directory(folder / "docs");
    korva.Places.AppPath = folder / "bin/";
    korva.Places.Docs = folder / "docs/";
  }
};

TEST_F(HelpCommands, DocumentsLieBesideTheProgramOrInTheirFolder) {
  const std::string shared = folder.Put("docs/KORVA-STROND.PDF", "%PDF");
  OpenManual(korva, ports.All);
  const std::string beside = folder.Put("bin/KORVA-STROND.PDF", "%PDF");
  OpenManual(korva, ports.All);
  const std::string cases = folder.Put("docs/res_casebase_n646.xls", "x");
  OpenResource(korva, ports.All, 8);
  EXPECT_EQ(ports.Documents.Opened, (Names{shared, beside, cases}));
}

TEST_F(HelpCommands, WhatIsNotThereIsSaid) {
  ports.Messages.Expect("Help file (KORVA-STROND.PDF) not available");
  OpenManual(korva, ports.All);
  fs::create_directory(folder / "bin/res_stump_2001.pdf");
  ports.Messages.Expect("Resource file (" + (folder / "bin/res_stump_2001.pdf") + ") not available");
  OpenResource(korva, ports.All, 0);
  korva.Places.Docs.clear();  // the current folder is none of ours
  ports.Messages.Expect("Help file (korva-strond.qch) not available");
  ShowHelpNotAvailable(korva, ports.Messages);
  EXPECT_EQ(DocumentPath(korva.Places, "CHANGELOG.md"), folder / "bin/CHANGELOG.md");
  EXPECT_TRUE(ports.Documents.Opened.empty());
  for (const int index : {-1, kResources}) {
    ExpectError(ErrorNumber::kSubscript, [&] { OpenResource(korva, ports.All, index); });
  }
}

TEST_F(HelpCommands, AViewerThatFailsIsTold) {
  folder.Put("bin/KORVA-STROND.PDF", "%PDF");
  ports.Documents.CanOpen = false;
  ports.Messages.Expect("Operation Failed");
  OpenManual(korva, ports.All);
}

TEST_F(HelpCommands, AboutIsAnInformation) {
  ports.Messages.Expect("KORVA-STROND\r\n\nVersion: ");
  ShowAbout(korva, ports.Messages);
  EXPECT_EQ(ports.Messages.Shown[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(ports.Messages.Shown[0].title, "About the KORVA-STROND Program");
}

}  // namespace
}  // namespace korva
