#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <filesystem>

#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "commands/PlanCommands.h"
#include "commands/SettingsCommands.h"
#include "commands/SweepCommand.h"
#include "desktop/FormBench.h"
#include "desktop/options/frmKORVAOpts.h"
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
  auto& messages = bench_.Outside.Messages;
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

TEST_F(OptionsForm, StoresEveryChoiceAndSurvivesARestart) {
  {
    frmKORVAOpts form(bench_.Forms);
    form.show();
    for (const char* box : {"Check1", "chkInputCancel", "Check2", "Check3", "Check4", "Check6", "Check7",
                            "Check8", "chkOffice", "Check5"}) {
      Button(form, box).click();
    }
    EXPECT_FALSE(Button(form, "Check7").isEnabled()) << "without crosscut dimensions";
    for (const char* option : {"Option1(1)", "Option2(0)", "Option3(0)", "Option4(2)", "optTmpDir(1)"}) {
      Button(form, option).click();
    }
    The<QLineEdit>(form, "Text1").setText(QStringLiteral("40"));
    The<QLineEdit>(form, "Text2").setText(QStringLiteral("120"));
    Click(form, "Command2");
    EXPECT_FALSE(form.isVisible());
  }
  EXPECT_EQ(Options().RoundKORVASF, FactorRounding{2});
  EXPECT_NE(bench_.History().find("Options Modified"), std::string::npos);
  Options() = {};
  Start();
  const OptionSettings& o = Options();
  const std::vector<int> flags = {o.ShowInputScreenOnLoad, o.IssueWarningCancel, o.ViewChildWindow,
                                  o.PrintModuleHeader,     o.PlotEntryDims,      o.PlotXcutDims,
                                  o.PlotGobDims,           o.PlotSingleXcutDims, o.PrintPlotReminder,
                                  o.AskOfficeInstall};
  EXPECT_EQ(flags, std::vector<int>(10, 0));
  EXPECT_EQ(Options().OutputStrUnits, StressUnit{1});
  EXPECT_EQ(Options().OutputStrGradUnits, LoadUnit{0});
  EXPECT_EQ(Options().PlotGobExtLoose, 0);
  EXPECT_EQ(Options().iOptDir, SolverFolder{1});
  EXPECT_EQ(Options().PlotRangeMin, 40);
  EXPECT_EQ(Options().PlotRangeMax, 120);
  EXPECT_EQ(Options().RoundKORVASF, FactorRounding{0}) << "each start begins with two decimals";
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

TEST_F(OptionsForm, KeepsWhatItDoesNotShow) {
  Options().CellSizeEnglish = 7;
  Options().CellSizeMetric = 0.25F;
  Options().Strond2DViewOutput = true;
  frmKORVAOpts form(bench_.Forms);
  form.show();
  The<QTabWidget>(form, "SSTab1").setCurrentIndex(3);
  EXPECT_FALSE(The<QLineEdit>(form, "txtCellSizeEng").isVisible());
  EXPECT_FALSE(Button(form, "chkStrond2DOut").isVisible());
  Click(form, "Command2");
  EXPECT_EQ(Options().CellSizeEnglish, 7);
  EXPECT_EQ(Options().CellSizeMetric, 0.25F);
  EXPECT_EQ(Options().Strond2DViewOutput, 1);
}

TEST_F(OptionsForm, RefusesARangeThatIsNone) {
  frmKORVAOpts form(bench_.Forms);
  form.show();
  The<QLineEdit>(form, "Text1").setText(QStringLiteral("1"));
  bench_.Outside.Messages.Expect("Value '1' is outside input range");
  Click(form, "Command2");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(The<QTabWidget>(form, "SSTab1").currentIndex(), 2);
  EXPECT_EQ(bench_.Outside.Messages.Shown.back().title, "Program Options: Range Error");
  The<QLineEdit>(form, "Text1").setText(QStringLiteral("150"));
  bench_.Outside.Messages.Expect("Invalid range for parametric graphs. Min Value should be < Max Value");
  Click(form, "Command2");
  EXPECT_TRUE(form.isVisible());
}

// Switches options in the dialog and looks at what changes elsewhere.
class OptionsAct : public OptionsForm {
 protected:
  OptionsAct() {
    bench_.State.ProjectFileName = KORVA_EXAMPLES "/two-side-gobs.KVL";
    FileOpen(bench_.State, bench_.Outside.Messages);
  }

  void Choose(std::initializer_list<const char*> names) {
    frmKORVAOpts form(bench_.Forms);
    form.show();
    for (const char* name : names) {
      Button(form, name).click();
    }
    Click(form, "Command2");
  }

  std::string Page(int page) {
    EXPECT_TRUE(CalculateStabilityFactors(bench_.State, bench_.Outside.Messages));
    return bench_.State.OutBuf[page];
  }

  // The texts of the plan, and how far its side gobs reach.
  std::string PlanTexts() {
    const auto plan = DrawPlan(PlanRequestOf(bench_.State, true));
    std::string texts;
    for (const DrawText& text : plan->Panel.Texts) {
      texts += text.Text + "|";
    }
    for (const PlanGob& gob : plan->Gobs) {
      texts += fmt::format("{:.1f}|", gob.Outline.at(1).X - gob.Outline.at(0).X);
    }
    return texts;
  }

  static bool Holds(const std::string& text, const char* part) { return text.find(part) != text.npos; }
};

TEST_F(OptionsAct, OnPages) {
  EXPECT_TRUE(Holds(Page(0), "module build"));
  EXPECT_TRUE(Holds(Page(3), "View Plots->Settings"));
  EXPECT_TRUE(Holds(Page(3), "(psi)") && Holds(Page(3), "(tons)"));
  EXPECT_TRUE(Holds(Page(1), ".....  2.21"));
  Choose({"Check3", "Check8", "Option1(1)", "Option2(0)", "Option4(2)"});
  EXPECT_FALSE(Holds(Page(0), "module build"));
  EXPECT_FALSE(Holds(Page(3), "View Plots"));
  EXPECT_TRUE(Holds(Page(3), "(psf)") && Holds(Page(3), "(lbs)"));
  EXPECT_TRUE(Holds(Page(1), ".....  2.20")) << "\"Do not round\" truncates";
  Choose({"Option4(1)"});
  EXPECT_TRUE(Holds(Page(1), ".....  2.21")) << "\"Truncate to two decimals\" leaves the value to the page";
}

TEST_F(OptionsAct, OnThePlan) {
  Page(1);
  std::string before = PlanTexts();
  for (const char* name : {"Check4", "Check6", "Check7", "Check5", "Option3(0)"}) {
    Choose({name});
    const std::string after = PlanTexts();
    EXPECT_NE(after, before) << name;
    before = after;
  }
}

TEST_F(OptionsAct, OnGraphsAndTheSolversFiles) {
  frmKORVAOpts form(bench_.Forms);
  form.show();
  The<QLineEdit>(form, "Text1").setText(QStringLiteral("80"));
  The<QLineEdit>(form, "Text2").setText(QStringLiteral("90"));
  Button(form, "optTmpDir(0)").click();
  Click(form, "Command2");
  const auto job = PrepareSweep(bench_.State, bench_.Outside.Messages, kDepthGraph);
  EXPECT_EQ(job->Range.Min, 80);
  EXPECT_EQ(job->Range.Max, 90);
  EXPECT_EQ(job->Place.iOptDir, SolverFolder{0});
}

class CaseImportInTheForm : public OptionsForm {
 protected:
  CaseImportInTheForm() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directory(folder_ / "cases");
    std::filesystem::current_path(folder_ / "cases");
    form_.show();
    The<QTabWidget>(form_, "SSTab1").setCurrentIndex(1);
    bench_.Outside.Messages.Expect("This operation will override current data. Proceed?",
                                   MessageButtons::kYesNo, MessageAnswer::kYes);
    bench_.Outside.Files.Expect(KORVA_EXAMPLES "/cases.xlsx");
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
