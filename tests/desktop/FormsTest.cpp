// The smaller forms, each alone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>
#include <numeric>

#include "commands/Calculate.h"
#include "commands/SettingsCommands.h"
#include "desktop/FormBench.h"
#include "desktop/files/frmSet.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/reports/SheetView.h"
#include "desktop/reports/frmPopUp.h"
#include "desktop/reports/frmResTxtPlt.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/frmDisclaimer.h"
#include "desktop/services/frmPath.h"
#include "desktop/services/frmPreview.h"
#include "desktop/services/frmResource.h"
#include "files/UtilINI.h"
#include "services/HelpTexts.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

class Forms : public testing::Test {
 protected:
  Forms() {
    bench.State.Places.IniFile = folder / "KORVA-STROND.INI";
    bench.State.Places.ProductFolder = bench.State.Preferences.DataPath = folder / "";
    bench.State.Preferences.DisplayFont.Name = "Liberation Sans";
  }
  std::string SavedSetting(const char* key) {
    return GetIniValue(TempFolder::Bytes(bench.State.Places.IniFile), "Settings", key, "none");
  }

  TempFolder folder;
  FormBench bench;
};

TEST_F(Forms, DescriptionIsStoredAndUntouchedTextSurvives) {
  Korva& korva = bench.State;
  korva.Stored.ProjectTitle = "Panel 7";
  korva.Stored.ProjectDescription = std::string(1200, 'x') + "\r\nlast";
  korva.ProjectUnitsLocked = true;
  {
    frmKORVADesc form(bench.Forms);
    EXPECT_FALSE(The<QRadioButton>(form, "Option1(1)").isEnabled());
    EXPECT_TRUE(The<QRadioButton>(form, "Option1(0)").isChecked());
    QTest::keyClicks(&The<QPlainTextEdit>(form, "Text2"), QStringLiteral("y"));  // no room
    Click(form, "Command2");
  }
  EXPECT_EQ(korva.Stored.ProjectDescription, std::string(1200, 'x') + "\r\nlast");
  EXPECT_FALSE(korva.ProjectSaved || korva.ProjectEmpty);

  frmKORVADesc form(bench.Forms);
  auto& text = The<QPlainTextEdit>(form, "Text2");
  text.selectAll();
  QGuiApplication::clipboard()->setText(QStringLiteral("a\nb"));
  text.paste();
  The<FieldBox>(form, "Text1").setText(QStringLiteral("Panel\n7a"));
  Click(form, "Command4");
  EXPECT_EQ(korva.Stored.ProjectDescription, "a\r\nb");
  EXPECT_EQ(korva.Stored.ProjectTitle, "Panel 7a");
  EXPECT_EQ(bench.Main.ParametersOpened, 1);
}

TEST_F(Forms, TabGoesAlongTheButtonsAsTheyStand) {
  const frmKORVADesc form(bench.Forms);
  QStringList names;
  for (const QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
    if (qobject_cast<const QPushButton*>(next) != nullptr) {
      names << next->objectName();
    }
  }
  EXPECT_EQ(names.join(' ').toStdString(), "Command3 Command2 Command4 Command1");
}

TEST_F(Forms, OtherUnitsResetAnUnlockedProjectTextsIncluded) {
  Korva& korva = bench.State;
  {
    frmKORVADesc form(bench.Forms);
    QTest::keyClicks(&The<FieldBox>(form, "Text1"), QStringLiteral("lost"));
    QTest::keyClick(&form, Qt::Key_Escape);
  }
  EXPECT_TRUE(korva.ProjectEmpty);
  EXPECT_EQ(bench.History(), "1. Editing Project Description\r\n2. Project Description Not Modified\r\n");
  frmKORVADesc form(bench.Forms);
  QTest::keyClicks(&The<FieldBox>(form, "Text1"), QStringLiteral("lost"));
  The<QRadioButton>(form, "Option1(1)").setChecked(true);
  Click(form, "Command2");
  EXPECT_EQ(korva.Stored.ProjectUnits, kMetric);
  EXPECT_EQ(korva.Stored.ProjectTitle, "");
  EXPECT_NEAR(korva.Stored.ProjectInput.CoalStrength, 6.2052831, 1e-6);
  EXPECT_FALSE(korva.ProjectSaved || korva.ProjectEmpty);
  EXPECT_TRUE(korva.ProjectUnitsLocked);
}

TEST_F(Forms, ResultsPageThroughCopyAndReturn) {
  bench.State.Stored = test::Stored(test::DevelopmentPanel());
  bench.State.ProjectEmpty = false;
  ASSERT_TRUE(CalculateStabilityFactors(bench.State, bench.Ports.Messages));
  bench.State.WarningText = std::string(1024, 'w');
  QWidget caller;
  caller.setEnabled(false);
  QPointer<frmResTxtPlt> form = new frmResTxtPlt(bench.Forms, &caller);
  bench.Ports.Messages.Expect("wwww");
  form->show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !bench.Ports.Messages.Shown.empty(); }));
  EXPECT_EQ(bench.Ports.Messages.Shown[0].title, "KORVA Warnings");

  auto& page = The<QPlainTextEdit>(*form, "RichTextBox1");
  auto& next = The<QPushButton>(*form, "cmdNextPage");
  auto& previous = The<QPushButton>(*form, "Command5");
  const auto shown = [&] { return page.toPlainText().section(QLatin1Char('\n'), 0, 0); };
  const auto label = [&form](const char* name) { return The<QLabel>(*form, name).text(); };
  EXPECT_EQ(shown(), QStringLiteral("[KORVA STABILITY FACTORS]"));
  EXPECT_EQ(label("lblPage"), QStringLiteral("1 of 5: Stability factors"));
  EXPECT_EQ(label("lblPageEmpty"), QString());
  EXPECT_TRUE(next.isEnabled() && previous.isEnabled());
  Click(*form, "Command5");
  EXPECT_FALSE(previous.isEnabled());
  Click(*form, "cmdCopyPage");
  EXPECT_EQ(bench.Ports.Clipboard.Text, bench.State.OutBuf[0]);
  for (int i = 0; i < 5; ++i) {
    Click(*form, "cmdNextPage");
  }
  EXPECT_FALSE(next.isEnabled());
  EXPECT_TRUE(label("lblPageEmpty").contains(QStringLiteral("no side gob")));
  Click(*form, "cmdCopyAll");
  const OutputPages& pages = bench.State.OutBuf;
  EXPECT_EQ(bench.Ports.Clipboard.Text, std::accumulate(pages.begin(), pages.end(), std::string()));
  EXPECT_NE(bench.History().find("Output page # 0copied to clipboard"), std::string::npos);
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_TRUE(caller.isEnabled() && caller.isVisible());
}

TEST_F(Forms, KeysOnTheLastPageReachNoOtherButton) {
  frmResTxtPlt form(bench.Forms, nullptr);
  form.setAttribute(Qt::WA_DeleteOnClose, false);
  form.show();
  QApplication::setActiveWindow(&form);
  EXPECT_TRUE(The<QWidget>(form, "cmdNextPage").hasFocus());
  for (const auto& [button, last] : {std::pair{"cmdNextPage", "5 of 5"}, {"Command5", "0 of 5"}}) {
    The<QWidget>(form, button).setFocus();
    for (int press = 0; press < 8; ++press) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    }
    EXPECT_TRUE(The<QLabel>(form, "lblPage").text().startsWith(QLatin1String(last))) << "and not back";
    EXPECT_TRUE(The<QWidget>(form, "RichTextBox1").hasFocus());
  }
  EXPECT_EQ(bench.Ports.Clipboard.Text, "");
}

// A text that would be a heading and a link if it were read as rich text.
TEST_F(Forms, NoPartOfAMessageIsReadAsRichText) {
  const QString odd = QStringLiteral("<h1>big</h1><a href='file:///etc'>there</a>");
  QStringList plain;
  QTimer::singleShot(0, qApp, [&] {
    for (const QLabel* label : QApplication::activeModalWidget()->findChildren<QLabel*>()) {
      if (label->text() == odd && label->textFormat() == Qt::PlainText) {
        plain << label->objectName();
      }
    }
    QApplication::activeModalWidget()->close();
  });
  QtMessages().Show({.text = odd.toStdString(), .detail = odd.toStdString()});
  EXPECT_EQ(plain.size(), 2) << "text and detail";
}

TEST_F(Forms, ResultsArePrintedAndSaved) {
  KeptPrinter& printer = bench.Ports.Printer;
  for (int page = 0; page <= 5; ++page) {
    bench.State.OutBuf[page] = "page " + std::to_string(page) + "\r\n";
  }
  bench.State.ProjectFileName = "/mine/panel.KVL";
  frmResTxtPlt form(bench.Forms, nullptr);
  form.setAttribute(Qt::WA_DeleteOnClose, false);
  const auto printed = [&printer] {
    std::vector<std::string> lines;
    for (const SheetText& text : printer.Printed.back().Sheets.at(0).Texts) {
      lines.push_back(text.Text);
    }
    return std::vector(lines.begin() + 2, lines.end());  // behind the header
  };
  Click(form, "Command3");
  EXPECT_EQ(printed(), std::vector<std::string>{"page 1"});
  The<QPlainTextEdit>(form, "RichTextBox1").setPlainText(QStringLiteral("stale"));
  Click(form, "Command6");
  EXPECT_EQ(printed(),
            (std::vector<std::string>{"page 0", "page 1", "page 2", "page 3", "page 4", "page 5"}));
  EXPECT_TRUE(The<QPlainTextEdit>(form, "RichTextBox1").toPlainText().startsWith(QStringLiteral("page 1")));
  EXPECT_TRUE(bench.History().ends_with("3. All pages printed\r\n")) << bench.History();
  bench.Ports.Files.Expect(folder / "all.pdf");
  Click(form, "cmdSavePdf");
  EXPECT_TRUE(TempFolder::Bytes(folder / "all.pdf").starts_with("%PDF"));
  EXPECT_EQ(bench.Ports.Files.Asked[0].Name, "panel.pdf");
  bench.Ports.Files.Expect(folder / "none/all.pdf");
  bench.Ports.Messages.Expect("Error occurred: Path not found (76). Procedure Terminated");
  Click(form, "cmdSavePdf");
}

TEST_F(Forms, PreviewShowsCopiesPrintsAndSavesPage0) {
  KeptPrinter& printer = bench.Ports.Printer;
  bench.State.OutBuf[0] = "first\r\nsecond\r\n";
  frmPreview form(bench.Forms);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Print Preview"));
  auto& text = The<QPlainTextEdit>(form, "RichTextBox1");
  EXPECT_TRUE(text.isReadOnly());
  EXPECT_EQ(text.toPlainText(), QStringLiteral("first\nsecond\n"));
  Click(form, "Command2");
  EXPECT_EQ(bench.Ports.Clipboard.Text, bench.State.OutBuf[0]);
  printer.Failures = 1;
  bench.Ports.Messages.Expect("Error occurred: Printer error (482)", MessageButtons::kRetryCancel,
                              MessageAnswer::kRetry);
  Click(form, "Command3");
  ASSERT_EQ(printer.Printed.size(), 1U);
  EXPECT_EQ(printer.Printed[0].Sheets.at(0).Texts.back().Text, "second");
  form.show();
  const auto& sheets = The<SheetView>(form, "SheetView1");
  The<QTabWidget>(form, "tabPages").setCurrentIndex(1);
  const int high = sheets.widget()->height();
  printer.Loaded = {16838, 11906};
  Click(form, "Command3");
  EXPECT_LT(sheets.widget()->height(), high) << "landscape now";
  bench.Ports.Files.Expect(folder / "inputs.pdf");
  Click(form, "cmdSavePdf");
  EXPECT_TRUE(TempFolder::Bytes(folder / "inputs.pdf").starts_with("%PDF"));
  EXPECT_EQ(bench.History().find("1. Preview displayed\r\n2. Output copied to clipboard\r\n"), 0U);
  Click(form, "Command1");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(Forms, WarningsTooLongForABoxHaveAWindow) {
  bench.State.WarningText = std::string(1025, 'w');
  frmResTxtPlt form(bench.Forms, nullptr);
  form.setAttribute(Qt::WA_DeleteOnClose, false);
  std::string seen;
  QTimer::singleShot(50, &form, [&] {
    if (auto* popUp = form.findChild<QDialog*>(QStringLiteral("frmPopUp"))) {
      seen = popUp->windowTitle().toStdString() +
             The<QPlainTextEdit>(*popUp, "RichTextBox1").toPlainText().toStdString();
      Click(*popUp, "cmdOK");
    }
  });
  form.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !seen.empty(); }));
  EXPECT_EQ(seen, "KORVA Warnings" + bench.State.WarningText);
}

TEST_F(Forms, EverySettingIsStoredAndSaved) {
  frmSet form(bench.Forms);
  EXPECT_EQ(The<QRadioButton>(form, "optUnits(1)").text(), QStringLiteral("m, cm, kN, MPa, kN/m3"));
  The<QRadioButton>(form, "optUnits(1)").setChecked(true);
  auto& extension = The<FieldBox>(form, "Text1");
  extension.selectAll();
  QTest::keyClicks(&extension, QStringLiteral("abc"));
  The<FieldBox>(form, "Text2").setText(QStringLiteral("/tmp"));
  The<FieldBox>(form, "Text3").setText(QStringLiteral("5000"));
  The<FieldBox>(form, "Text4").setText(QStringLiteral("gedit"));
  Click(form, "cmdOK");
  const Settings& now = bench.State.Preferences;
  EXPECT_EQ(now.DefaultUnits, kMetric);
  EXPECT_EQ(now.FileExtension + now.DataPath + now.ExternalEditor, "ABC/tmp/gedit");
  EXPECT_EQ(now.MaxDisplaySize, 5000);
  EXPECT_EQ(bench.Main.Applied, 1);
  EXPECT_EQ(SavedSetting("MaxDisplaySize") + SavedSetting("FileExtension"), "5000ABC");
}

TEST_F(Forms, EachCheckBoxIsOfItsOwnSetting) {
  const std::pair<const char*, decltype(&Settings::MaxMainMenu)> boxes[] = {
      {"chkDispHist", &Settings::DisplayHistoryWin},
      {"chkMaxMenu", &Settings::MaxMainMenu},
      {"chkEnableTB", &Settings::EnableMainMenuToolbar},
      {"chkShowDiscl", &Settings::ShowDisclaim},
      {"chkKeepRecentFL", &Settings::KeepFileNames},
      {"chkShortNames", &Settings::ShortRecentFiles},
      {"chkLoadLastInputFile", &Settings::LoadLastInputFile},
      {"chkCopyExamples", &Settings::CopyExampleFiles},
      {"chkUpdate", &Settings::RemindAnnualUpdates}};
  Settings& now = bench.State.Preferences;
  now.MaxDisplaySize = 4096;
  for (const auto& [name, setting] : boxes) {
    for (const auto& box : boxes) {
      now.*box.second = box.second == setting;
    }
    frmSet form(bench.Forms);
    for (const auto& box : boxes) {
      EXPECT_EQ(The<QCheckBox>(form, box.first).isChecked(), box.second == setting) << box.first;
      now.*box.second = false;
    }
    EXPECT_EQ(The<QCheckBox>(form, "chkShortNames").isEnabled(), setting == &Settings::KeepFileNames);
    Click(form, "cmdOK");
    for (const auto& box : boxes) {
      EXPECT_EQ(now.*box.second, box.second == setting) << name << " stored as " << box.first;
    }
  }
  frmSet form(bench.Forms);
  bench.Ports.Messages.Expect("Option will take effect upon restarting this program");
  The<QCheckBox>(form, "chkShortNames").toggle();
}

TEST_F(Forms, SettingsRefuseAndCancelLeavesAllButTheExtensionForEditors) {
  frmSet form(bench.Forms);
  form.show();
  The<FieldBox>(form, "Text2").setText(QStringLiteral("/no/such/folder"));
  bench.Ports.Messages.Expect("Invalid Path for Data Files");
  Click(form, "cmdOK");
  EXPECT_EQ(bench.Ports.Messages.Shown.back().title, "Error");
  EXPECT_EQ(form.focusWidget()->objectName(), QStringLiteral("Text2"));
  EXPECT_TRUE(form.isVisible());
  The<QCheckBox>(form, "chkDispHist").setChecked(false);
  EXPECT_FALSE(The<QWidget>(form, "Text3").isEnabled() || The<QWidget>(form, "Command5").isEnabled());
  Click(form, "cmdSetDefault");
  bench.Ports.Files.Expect("/usr/bin/vi");
  Click(form, "cmdSelect");
  EXPECT_EQ(The<FieldBox>(form, "Text4").Text(), "/usr/bin/vi");
  EXPECT_EQ(bench.Ports.Files.Asked[0].Title, "Select External Editor");
  Click(form, "cmdCancel");
  EXPECT_EQ(bench.State.Preferences.FileExtension, "EXE");
  EXPECT_EQ(bench.State.Preferences.ExternalEditor, "Notepad.exe");
  EXPECT_EQ(bench.State.Preferences.DisplayHistoryWin, 1);
  EXPECT_NE(bench.History().find("Settings Not Modified"), std::string::npos);
}

TEST_F(Forms, WhatIsNotThereIsSaidAtOnce) {
  bench.State.Places.AppPath = folder / "";
  folder.Put(std::string(ResourceFiles[1]), "%PDF");
  const frmResource resources(bench.Forms);
  EXPECT_EQ(The<QLabel>(resources, "lblState(0)").text(), QStringLiteral("not installed"));
  EXPECT_EQ(The<QLabel>(resources, "lblState(1)").text(), QString());
  bench.State.Preferences.ExternalEditor = "no-such-viewer -r";
  frmSet settings(bench.Forms);
  auto& editor = The<FieldBox>(settings, "Text4");
  EXPECT_TRUE(editor.toolTip().endsWith(QStringLiteral("not found on this machine")));
  editor.setText(QStringLiteral("sh"));
  EXPECT_FALSE(editor.toolTip().contains(QStringLiteral("not found")));
}

TEST_F(Forms, PathTakesAFolder) {
  {
    frmPath form(bench.Forms, "/usr/share/");
    EXPECT_TRUE(The<QRadioButton>(form, "Option1(2)").isChecked());
    The<QRadioButton>(form, "Option1(0)").setChecked(true);
    Click(form, "Command1");
    EXPECT_EQ(form.LastPath(), "/usr/share/");
  }
  frmPath form(bench.Forms, "/usr/share/");
  The<QRadioButton>(form, "Option1(0)").setChecked(true);
  Click(form, "Command2");
  EXPECT_EQ(PathOf(form.LastPath()), canonical(folder.Path()) / "");
}

TEST_F(Forms, TheDisclaimerIsAcceptedByItsButtonAlone) {
  bench.State.Preferences.ShowDisclaim = true;
  for (const bool closed : {true, false}) {
    frmDisclaimer form(bench.Forms);
    form.show();
    The<QCheckBox>(form, "chkShow").setChecked(true);
    closed ? static_cast<void>(form.close()) : Click(form, "cmdNoAccept");
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_EQ(bench.State.Preferences.ShowDisclaim, 1);
  }
  frmDisclaimer form(bench.Forms);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Disclaimer for KORVA-STROND"));
  The<QCheckBox>(form, "chkShow").setChecked(true);
  Click(form, "Command1");
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(SavedSetting("ShowDisclaim"), "0");
}

}  // namespace
}  // namespace korva::desktop
