// The window of updates, and the check at the start.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <filesystem>

#include "core/Korva.h"
#include "desktop/FormBench.h"
#include "desktop/services/frmUpdate.h"
#include "support/SignedSetup.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

struct UpdateBench : FormBench {
  UpdateBench() {
    std::filesystem::create_directories(Folder / "Documents/MyFolvane");
    State.Places.DataRoot = Folder / "Documents/MyFolvane/";
    State.Places.IniFile = Folder / "KORVA-STROND.INI";
    State.Updates = {"https://example.invalid/page/", "https://example.invalid/files/",
                     std::string(test::kSetupKey)};
  }
  TempFolder Folder;
};

std::string TextOf(const QWidget& form, const char* label) {
  return The<QLabel>(form, label).text().toStdString();
}

bool IsEnabled(const QWidget& form, const char* button) {
  return The<QPushButton>(form, button).isEnabled();
}

TEST(UpdateForm, ShowsEachStepAndEndsTheProgramForTheSetup) {
  UpdateBench bench;
  frmUpdate form(bench.Forms);
  form.show();
  EXPECT_FALSE(IsEnabled(form, "cmdDownUpdate") || IsEnabled(form, "cmdInstall"));
  EXPECT_TRUE(bench.Ports.Fetches.Asked.empty()) << "nothing is asked before a button is pressed";
  EXPECT_FALSE(The<QWidget>(form, "ProgressBar1").isVisible()) << "an idle bar looks like a box for text";
  Click(form, "lblURL");
  EXPECT_EQ(bench.Ports.Documents.Opened, std::vector<std::string>{"https://example.invalid/page/"});
  Click(form, "cmdCheck");
  EXPECT_FALSE(IsEnabled(form, "cmdCheck")) << "one fetch at a time";
  EXPECT_TRUE(The<QWidget>(form, "ProgressBar1").isVisible());
  bench.Ports.Messages.Expect("A new version is available. Download?", MessageButtons::kYesNoCancel,
                              MessageAnswer::kCancel);
  bench.Ports.Fetches.Give("1106");
  EXPECT_TRUE(IsEnabled(form, "cmdDownUpdate"));
  EXPECT_FALSE(The<QWidget>(form, "ProgressBar1").isVisible());
  Click(form, "cmdDownUpdate");
  bench.Ports.Fetches.Give(std::string(test::kSetupSignature));
  bench.Ports.Fetches.Tell(40000);
  EXPECT_EQ(TextOf(form, "lblbytes"), "40000");
  EXPECT_EQ(The<QProgressBar>(form, "ProgressBar1").value(), 3);
  EXPECT_FALSE(IsEnabled(form, "cmdInstall"));
  bench.Ports.Messages.Expect("Download completed. Program at: ");
  bench.Ports.Fetches.Give(std::string(test::kSetup));
  Click(form, "cmdInstall");
  EXPECT_EQ(bench.Main.Ended, 1);
}

TEST(UpdateForm, KeysNeverReachCloseWhileSomethingIsFetched) {
  UpdateBench bench;
  frmUpdate form(bench.Forms);
  form.show();
  QApplication::setActiveWindow(&form);
  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  EXPECT_TRUE(The<QPushButton>(form, "cmdCheck").hasFocus());
  press(Qt::Key_Return);
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
    press(key);
    EXPECT_TRUE(form.isVisible() && bench.Ports.Fetches.IsRunning());
  }
  bench.Ports.Messages.Expect("A new version is available. Download?", MessageButtons::kYesNoCancel,
                              MessageAnswer::kCancel);
  bench.Ports.Fetches.Give("1106");
  EXPECT_TRUE(The<QPushButton>(form, "cmdDownUpdate").hasFocus()) << "the next step";
  press(Qt::Key_Space);
  press(Qt::Key_Space);
  EXPECT_TRUE(form.isVisible());
  bench.Ports.Fetches.Fail("the server closed the connection");
  EXPECT_TRUE(The<QPushButton>(form, "cmdDownUpdate").hasFocus());
  EXPECT_EQ(TextOf(form, "lblbytes"),
            "Download failed: its signature could not be fetched: the server closed the connection");
}

TEST(UpdateForm, KeepsKeysWaitingAlsoBeforeItIsShownAndBehindOthers) {
  UpdateBench bench;
  frmUpdate form(bench.Forms);
  form.RunAll();
  form.show();
  QApplication::setActiveWindow(&form);
  EXPECT_EQ(QApplication::focusWidget(), &The<QWidget>(form, "ProgressBar1"));
  QWidget other;
  other.show();
  QApplication::setActiveWindow(&other);
  bench.State.AutoUpdate = false;
  bench.Ports.Messages.Expect("A new version is available. Download?", MessageButtons::kYesNoCancel,
                              MessageAnswer::kNo);
  bench.Ports.Fetches.Give("1106");
  QApplication::setActiveWindow(&form);
  EXPECT_TRUE(The<QPushButton>(form, "cmdDownUpdate").hasFocus());
}

TEST(UpdateForm, ClosingEndsAFetchAndWritesTheSettings) {
  UpdateBench bench;
  {
    frmUpdate form(bench.Forms);
    form.show();
    Click(form, "cmdCheck");
    The<QCheckBox>(form, "chkShow").setChecked(true);
    Click(form, "Command1");
  }
  EXPECT_FALSE(bench.Ports.Fetches.IsRunning());
  EXPECT_EQ(bench.State.Preferences.RemindAnnualUpdates, 0);
  EXPECT_TRUE(std::filesystem::exists(bench.State.Places.IniFile));
}

}  // namespace
}  // namespace korva::desktop
