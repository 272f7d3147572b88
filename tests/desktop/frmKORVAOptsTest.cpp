#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>
#include <filesystem>

#include "commands/SettingsCommands.h"
#include "commands/SweepCommand.h"
#include "desktop/FormBench.h"
#include "desktop/options/frmKORVAOpts.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

class OptionsForm : public testing::Test {
 protected:
  OptionsForm() {
    bench_.State.Places.IniFile = folder_ / "program.ini";
    Start();
    bench_.State.Preferences.DisplayHistoryWin = true;
    bench_.State.SessionHistory.Text.clear();
  }

  // Reads the settings as a start does.
  void Start() {
    LoadSettings(bench_.State, {folder_ / "", [] { return std::string("Arial"); }});
  }

  OptionSettings& Options() { return bench_.State.Preferences.Options; }
  std::string File() const { return TempFolder::Bytes(folder_ / "program.ini"); }
  static QAbstractButton& Button(const QWidget& form, const char* name) {
    return The<QAbstractButton>(form, name);
  }

  TempFolder folder_;
  FormBench bench_;
};

TEST_F(OptionsForm, AssociatesProjectFilesAndTakesThatBack) {
  bench_.State.Places.AppPath = folder_ / "";
  folder_.Put("korva-strond", "");
  bench_.State.Places.DataHome = folder_ / "data/";
  bench_.State.Places.ConfigHome = folder_ / "config/";
  auto& messages = bench_.Ports.Messages;
  {
    frmKORVAOpts form(bench_.Forms);
    form.show();
    EXPECT_FALSE(Button(form, "cmdFileAssocUndo").isEnabled());
    messages.Expect("This operation may break", MessageButtons::kYesNo, MessageAnswer::kYes);
    messages.Expect("The KVL file extensions has been associated to korva-strond");
    Click(form, "cmdFileAssoc");
    EXPECT_TRUE(Button(form, "cmdFileAssocUndo").isEnabled());
    EXPECT_TRUE(
        TempFolder::Bytes(folder_ / "data/icons/hicolor/scalable/apps/korva-strond.svg").starts_with("<svg"));
  }
  frmKORVAOpts form(bench_.Forms);
  form.show();
  EXPECT_TRUE(Button(form, "cmdFileAssocUndo").isEnabled()) << "in the next session too";
  messages.Expect("Files with the extension KVL", MessageButtons::kYesNo, MessageAnswer::kYes);
  messages.Expect("The association of file extension KVL has been removed");
  Click(form, "cmdFileAssocUndo");
  EXPECT_FALSE(Button(form, "cmdFileAssocUndo").isEnabled());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "config/mimeapps.list"));
}

TEST_F(OptionsForm, EachCheckBoxIsOfItsOwnOption) {
  const std::pair<const char*, bool OptionSettings::*> boxes[] = {
      {"Check1", &OptionSettings::ShowInputScreenOnLoad},
      {"chkInputCancel", &OptionSettings::IssueWarningCancel},
      {"Check2", &OptionSettings::ViewChildWindow},
      {"Check3", &OptionSettings::PrintModuleHeader},
      {"Check4", &OptionSettings::PlotEntryDims},
      {"Check5", &OptionSettings::PlotXcutDims},
      {"Check6", &OptionSettings::PlotGobDims},
      {"Check7", &OptionSettings::PlotSingleXcutDims},
      {"Check8", &OptionSettings::PrintPlotReminder},
      {"chkOffice", &OptionSettings::AskOfficeInstall},
      {"chkStrond2DOut", &OptionSettings::Strond2DViewOutput},
      {"chkStrond2DProgress", &OptionSettings::Strond2DViewProgress},
      {"chkStrond2DProgOutput", &OptionSettings::Strond2DViewProgOutput}};
  for (const auto& [name, option] : boxes) {
    for (const auto& box : boxes) {
      Options().*box.second = box.second == option;
    }
    frmKORVAOpts form(bench_.Forms);
    EXPECT_TRUE(Button(form, name).isChecked()) << name;
    EXPECT_EQ(Button(form, "Check7").isEnabled(), option == &OptionSettings::PlotXcutDims);
    Options().*option = false;
    Click(form, "Command2");
    Start();
    for (const auto& box : boxes) {
      EXPECT_EQ(Options().*box.second, box.second == option) << name << " stored as " << box.first;
    }
  }
}

TEST_F(OptionsForm, StoresEveryChoiceAndSurvivesARestart) {
  Options().CellSizeEnglish = 7;  // which it does not show
  Options().CellSizeMetric = 0.25F;
  {
    frmKORVAOpts form(bench_.Forms);
    form.show();
    for (const char* option : {"Option1(1)", "Option2(0)", "Option3(0)", "Option4(2)", "optTmpDir(0)"}) {
      Button(form, option).click();
    }
    The<QLineEdit>(form, "Text1").setText(QStringLiteral("40"));
    The<QLineEdit>(form, "Text2").setText(QStringLiteral("120"));
    The<QTabWidget>(form, "SSTab1").setCurrentIndex(3);
    EXPECT_FALSE(The<QLineEdit>(form, "txtCellSizeEng").isVisible());
    EXPECT_FALSE(Button(form, "chkStrond2DOut").isVisible());
    Click(form, "Command2");
    EXPECT_FALSE(form.isVisible());
  }
  EXPECT_EQ(Options().RoundKORVASF, FactorRounding{2});
  EXPECT_NE(bench_.History().find("Options Modified"), std::string::npos);
  Options() = {};
  Start();
  EXPECT_EQ(Options().OutputStrUnits, StressUnit{1});
  EXPECT_EQ(Options().OutputStrGradUnits, LoadUnit{0});
  EXPECT_EQ(Options().PlotGobExtLoose, 0);
  EXPECT_EQ(Options().iOptDir, SolverFolder{0});
  EXPECT_EQ(Options().RoundKORVASF, FactorRounding{0}) << "each start begins with two decimals";
  EXPECT_EQ(Options().CellSizeEnglish, 7);
  EXPECT_EQ(Options().CellSizeMetric, 0.25F);

  bench_.State.Stored = test::Stored(test::DevelopmentPanel());
  const auto job = PrepareSweep(bench_.State, bench_.Ports.Messages, kDepthGraph);
  EXPECT_EQ(job->Range.Min, 40);
  EXPECT_EQ(job->Range.Max, 120);
  EXPECT_EQ(job->Place.iOptDir, SolverFolder{0});
}

TEST_F(OptionsForm, CancelLeavesTheFileByteByByte) {
  const std::string before = File();
  frmKORVAOpts form(bench_.Forms);
  form.show();
  Button(form, "Check4").click();
  Click(form, "Command1");
  EXPECT_EQ(Options().PlotEntryDims, 1);
  EXPECT_EQ(File(), before);
  EXPECT_EQ(bench_.History(), "1. Editing KORVA Options\r\n2. Options Not Modified\r\n");
}

TEST_F(OptionsForm, RefusesARangeThatIsNone) {
  frmKORVAOpts form(bench_.Forms);
  form.show();
  The<QLineEdit>(form, "Text1").setText(QStringLiteral("1"));
  bench_.Ports.Messages.Expect("Value '1' is outside input range");
  Click(form, "Command2");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(The<QTabWidget>(form, "SSTab1").currentIndex(), 2);
  EXPECT_EQ(bench_.Ports.Messages.Shown.back().title, "Program Options: Range Error");
  The<QLineEdit>(form, "Text1").setText(QStringLiteral("150"));
  bench_.Ports.Messages.Expect("Invalid range for parametric graphs. Min Value should be < Max Value");
  Click(form, "Command2");
  EXPECT_TRUE(form.isVisible());
}

class CaseImportInTheForm : public OptionsForm {
 protected:
  CaseImportInTheForm() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directory(folder_ / "cases");
    std::filesystem::current_path(folder_ / "cases");
    form_.show();
    The<QTabWidget>(form_, "SSTab1").setCurrentIndex(1);
    bench_.Ports.Messages.Expect("This operation will override current data. Proceed?",
                                 MessageButtons::kYesNo, MessageAnswer::kYes);
    bench_.Ports.Files.Expect(KORVA_EXAMPLES "/cases.xlsx");
  }
  ~CaseImportInTheForm() override { std::filesystem::current_path(before_); }

  int Files() const {
    const std::filesystem::directory_iterator files(folder_ / "cases");
    return static_cast<int>(std::distance(begin(files), end(files)));
  }

  std::filesystem::path before_;
  frmKORVAOpts form_{bench_.Forms};
};

TEST_F(CaseImportInTheForm, TellsWhatWasWritten) {
  The<QLineEdit>(form_, "Text3").setText(QStringLiteral("999"));
  Click(form_, "cmdImport");
  EXPECT_EQ(The<QLabel>(form_, "Label4").text(), QStringLiteral("647:completed"));
  EXPECT_TRUE(The<QLabel>(form_, "lblImport").text().contains(QStringLiteral("projects written to")));
  EXPECT_GE(Files(), 6);
  EXPECT_EQ(bench_.Main.Kept, 1);
  EXPECT_GE(bench_.Main.Refreshed, 1);
  EXPECT_TRUE(Button(form_, "Command2").isEnabled());
  EXPECT_FALSE(Button(form_, "cmdCancelImport").isVisible());
}

TEST_F(CaseImportInTheForm, ClosingTheWindowStopsItBetweenRows) {
  The<QLineEdit>(form_, "Text3").setText(QStringLiteral("999"));
  QTimer::singleShot(0, &form_, [this] {
    EXPECT_FALSE(Button(form_, "Command2").isEnabled()) << "only the way to stop is open";
    EXPECT_FALSE(Button(form_, "Option1(0)").isEnabled());
    EXPECT_TRUE(Button(form_, "cmdCancelImport").isVisible());
    form_.close();
  });
  Click(form_, "cmdImport");
  EXPECT_TRUE(form_.isVisible());
  EXPECT_TRUE(The<QLabel>(form_, "Label4").text().endsWith(QStringLiteral(":canceled")));
  EXPECT_LT(Files(), 6);
  EXPECT_TRUE(Button(form_, "Option1(0)").isEnabled());
}

}  // namespace
}  // namespace korva::desktop
