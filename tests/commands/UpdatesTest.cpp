// The update check from its first question to the start of the setup program.
#include <gtest/gtest.h>

#include <filesystem>

#include "commands/CommandBench.h"
#include "commands/Updates.h"
#include "files/FileReader.h"
#include "files/SafeWriter.h"
#include "support/SignedSetup.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

class UpdatesTest : public CommandBench {
 protected:
  UpdatesTest() {
    fs::create_directories(folder / "Documents/MyFolvane");
    korva.Places.DataRoot = folder / "Documents/MyFolvane/";
    korva.Updates = {"https://example.invalid/page/", "https://example.invalid/files/",
                     std::string(test::kSetupKey)};
    korva.Preferences.DisplayHistoryWin = true;
  }

  std::string File() const { return korva.Places.DataRoot + "../../Downloads/KORVA-STROND1106.exe"; }
  std::string Fetched() const { return ports.Fetches.Asked.back().Address; }

  // The window's way up to the end of the download.
  void CheckAndDownload() {
    updates.Check();
    ports.Messages.Expect("A new version is available. Download?", MessageButtons::kYesNoCancel,
                          MessageAnswer::kYes);
    ports.Fetches.Give("1106\r\n");
    ports.Fetches.Give(std::string(test::kSetupSignature));
    ports.Messages.Expect("Download completed. Program at: " + File());
    ports.Fetches.Give(std::string(test::kSetup));
  }
  int changes = 0;
  int ended = 0;
  Updates updates{korva, ports.All, [this] { ++changes; }, [this] { ++ended; }};
};

TEST_F(UpdatesTest, TheStartAsksOnlyAboutANewerVersion) {
  EXPECT_FALSE(CompareServerVersion(korva, ports.Messages, "1105\r\n"));
  EXPECT_FALSE(CompareServerVersion(korva, ports.Messages, "<html>404 not found</html>"));
  ports.Messages.Expect("A new KORVA-STROND version is available. \r\nNote that",
                        MessageButtons::kYesNoCancel, MessageAnswer::kNo);
  EXPECT_FALSE(CompareServerVersion(korva, ports.Messages, "999"));
  EXPECT_FALSE(korva.AutoUpdate);
  ports.Messages.Expect("A new KORVA-STROND version", MessageButtons::kYesNoCancel, MessageAnswer::kYes);
  EXPECT_TRUE(CompareServerVersion(korva, ports.Messages, "1106"));
  EXPECT_TRUE(korva.AutoUpdate);
  EXPECT_TRUE(
      korva.SessionHistory.Text.starts_with("1. Server/Current: 1105/1105\r\n2. Server/Current: /1105\r\n"));
}

TEST_F(UpdatesTest, DownloadsAndStartsASignedSetup) {
  CheckAndDownload();
  EXPECT_TRUE(updates.View().MayInstall && !updates.View().Busy);
  EXPECT_EQ(updates.View().LastVersion, "Server Version: 1106 / Current Version: 1105");
  EXPECT_EQ(ReadWholeFile(File(), 1000), test::kSetup);
  EXPECT_EQ(ports.Documents.Opened.size(), 0U) << "nothing is started before Install";
  updates.Install();
  EXPECT_EQ(ports.Documents.Opened, std::vector<std::string>{File()});
  EXPECT_EQ(ended, 1);
}

TEST_F(UpdatesTest, ReplacesALinkUnderTheSetupsName) {
  fs::create_directories(folder / "Downloads");
  folder.Put("own.txt", "mine");
  fs::create_symlink(folder / "own.txt", folder / "Downloads/KORVA-STROND1106.exe");
  fs::create_symlink(folder / "own.txt", folder / "Downloads/KORVA-STROND1106.exe.minisig");
  CheckAndDownload();
  EXPECT_EQ(TempFolder::Bytes(folder / "own.txt"), "mine");
  EXPECT_EQ(ReadWholeFile(File(), 1000), test::kSetup);
}

TEST_F(UpdatesTest, StartsNothingThatChangedSinceItsDownload) {
  CheckAndDownload();
  WriteFileSafely(File(), "something else");
  ports.Messages.Expect("Update file: " + File() +
                        " was not started: the signature does not belong to the file");
  updates.Install();
  fs::remove(File() + ".minisig");
  ports.Messages.Expect("Update file: " + File() + " was not started: its signature is missing");
  updates.Install();
  fs::remove(File());
  ports.Messages.Expect("Update file: " + File() + " not found");
  updates.Install();
  EXPECT_TRUE(ports.Documents.Opened.empty());
  EXPECT_EQ(ended, 0);
}

TEST_F(UpdatesTest, KeepsNothingWithoutAValidSignature) {
  updates.Check();
  ports.Messages.Expect("A new version is available.", MessageButtons::kYesNoCancel, MessageAnswer::kNo);
  ports.Fetches.Give("1106");
  EXPECT_TRUE(updates.View().MayDownload);
  for (const std::string_view signature : {test::kOtherNameSignature, std::string_view("<html>404</html>")}) {
    updates.Download();
    EXPECT_TRUE(Fetched().ends_with("KORVA-STROND1106.exe.minisig"));
    ports.Fetches.Give(std::string(signature));
    EXPECT_TRUE(Fetched().ends_with("/files/KORVA-STROND1106.exe"));
    ports.Fetches.Tell(16385);
    EXPECT_EQ(updates.View().Bytes, "16385");
    EXPECT_EQ(updates.View().Progress, 2);
    ports.Fetches.Give(std::string(test::kSetup));
    EXPECT_TRUE(updates.View().Bytes.starts_with("Download failed: the signature ")) << updates.View().Bytes;
    EXPECT_FALSE(updates.View().MayInstall || updates.View().Busy || fs::exists(File()));
  }
  const std::size_t asked = ports.Fetches.Asked.size();
  for (const char* key : {"", "no key"}) {
    korva.Updates.PublicKey = key;
    updates.Download();
    EXPECT_EQ(ports.Fetches.Asked.size(), asked) << "a program without a key fetches nothing";
    EXPECT_EQ(updates.View().Bytes, "Download failed: this program has no key to check signatures with");
  }
}

TEST_F(UpdatesTest, SaysWhatCameOfTheCheck) {
  updates.Check();
  ports.Fetches.Fail("the server did not answer");
  EXPECT_EQ(updates.View().LastVersion, "Internet Connection Failed");
  EXPECT_EQ(updates.View().Bytes, "The check failed: the server did not answer");
  EXPECT_TRUE(updates.View().LastVersionIsRed);
  EXPECT_TRUE(
      korva.SessionHistory.Text.ends_with("Internet Connection Failed: the server did not answer\r\n"));
  updates.Check();
  EXPECT_EQ(updates.View().LastVersion, "Version Available: ") << "nothing of an earlier check stays";
  EXPECT_TRUE(updates.View().Bytes.empty());
  ports.Messages.Expect("Invalid information for new version. Check with developer.");
  ports.Fetches.Give("../../etc/passwd");
  EXPECT_FALSE(updates.View().MayDownload);
  EXPECT_EQ(updates.View().LastVersion, "Version Available: ");
  updates.Check();
  ports.Messages.Expect("Program is up to date", MessageButtons::kOkCancel);
  ports.Fetches.Give("1105\n");
  EXPECT_FALSE(updates.View().MayDownload || updates.View().MayInstall);
}

TEST_F(UpdatesTest, TheStartsYesRunsAllSteps) {
  updates.RunAll();
  ports.Fetches.Give("1106");
  ports.Fetches.Give(std::string(test::kSetupSignature));
  ports.Messages.Expect("Download completed.")
      .Expect("KORVASTROND will now close to install the new update.");
  ports.Fetches.Give(std::string(test::kSetup));
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(korva.AutoUpdate);
}

TEST_F(UpdatesTest, AFailedRunReportsTheMissingFileAndGoesOn) {
  updates.RunAll();
  ports.Fetches.Give("1106");
  ports.Messages.Expect("Update file: " + File() + " not found");
  ports.Fetches.Fail("the server answered with status 404");
  EXPECT_EQ(ended, 0);
  EXPECT_FALSE(korva.AutoUpdate);
  updates.RunAll();
  ports.Fetches.Give("1106");
  ports.Fetches.Give(std::string(test::kSetupSignature));
  ports.Messages.Expect("Download completed.")
      .Expect("KORVASTROND will now close")
      .Expect("Operation Failed");
  ports.Documents.CanOpen = false;
  ports.Fetches.Give(std::string(test::kSetup));
  EXPECT_EQ(ended, 0) << "the program ends only for a setup that runs";
}

TEST_F(UpdatesTest, ADownloadThatCannotBeWrittenIsTold) {
  WriteFileSafely(folder / "Downloads", "a file where the folder belongs");
  updates.Check();
  ports.Messages.Expect("A new version is available.", MessageButtons::kYesNoCancel, MessageAnswer::kYes);
  ports.Fetches.Give("1106");
  ports.Fetches.Give(std::string(test::kSetupSignature));
  ports.Messages.Expect("Error occurred: ");
  ports.Fetches.Give(std::string(test::kSetup));
  EXPECT_EQ(updates.View().Bytes, "Download failed: the setup program could not be written");
  EXPECT_FALSE(updates.View().MayInstall);
}

}  // namespace
}  // namespace korva
