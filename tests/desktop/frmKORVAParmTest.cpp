#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTabBar>
#include <QWheelEvent>
#include <filesystem>
#include <memory>
#include <set>

#include "commands/FileCommands.h"
#include "desktop/FormBench.h"
#include "desktop/input/frmKORVAParm.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

class ParameterForm : public testing::Test {
 protected:
  ParameterForm() {
    bench.State.Stored = test::Stored(test::DevelopmentPanel());
    bench.State.ProjectEmpty = false;
  }
  ~ParameterForm() override { delete form.data(); }

  frmKORVAParm& Open() {
    form = new frmKORVAParm(bench.Forms);
    bench.Main.Enabled = false;
    form->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    return *form;
  }
  FieldBox& Box(const char* name) { return The<FieldBox>(*form, name); }
  QCheckBox& Check(const char* name) { return The<QCheckBox>(*form, name); }
  void Type(const char* name, const char* text) {
    Box(name).selectAll();
    if (*text == '\0') {
      QTest::keyClick(&Box(name), Qt::Key_Delete);
    }
    QTest::keyClicks(&Box(name), QLatin1String(text));
  }
  bool Shown(const char* name) { return !The<QWidget>(*form, name).isHidden(); }
  void Expect(const char* text) { bench.Ports.Messages.Expect(text); }
  int ShownPicture() {
    int shown = -1;
    for (int i = 0; i < 29; ++i) {
      shown = The<QWidget>(*form, ("Picture2(" + std::to_string(i) + ")").c_str()).isHidden() ? shown : i;
    }
    return shown;
  }
  const Project& Input() const { return bench.State.Stored.ProjectInput; }

  FormBench bench;
  QPointer<frmKORVAParm> form;
};

TEST_F(ParameterForm, OpeningAndOKChangesNothing) {
  bench.State.Stored = test::Stored(test::TwoSideGobs());
  bench.State.Stored.ProjectInput.ExtentFirstGob = 134.115;  // longer than may be typed
  Project& input = bench.State.Stored.ProjectInput;
  for (int i = input.NumberEntries; i <= kMaxRows; ++i) {
    input.XcutCenters[i] = 60 + i;
  }
  const Project before = input;
  Open();
  EXPECT_EQ(Box("txtExtentFirstGob").Text(), "134.115");
  Click(*form, "cmdOK");
  EXPECT_TRUE(form.isNull() || form->isHidden());
  EXPECT_EQ(Input(), before);
  EXPECT_TRUE(bench.State.ProjectSaved);
  EXPECT_TRUE(bench.State.ProjectUnitsLocked);
  EXPECT_TRUE(bench.Main.Enabled);
  EXPECT_EQ(bench.History(), "1. Editing Project Parameters\r\n2. Project Parameters Not Modified\r\n");
}

TEST_F(ParameterForm, DependentFieldsFollowWhatIsTyped) {
  Open();
  Type("txtDepthCover", "1000");
  EXPECT_EQ(Box("txtBreadthAMZ").Text(), "158");
  EXPECT_EQ(Box("txtArchFactor").Text(), "0.52");  // 1 - 0.28 ln(1000 / 180)
  EXPECT_FALSE(Box("txtBreadthAMZ").isEnabled());
  EXPECT_EQ(Box("Text10").Text(), "50.0");
  Type("txtEntryWidth", "30");
  EXPECT_EQ(Box("Text10").Text(), "68.8");
  Type("txtXcutAngle", "");
  EXPECT_EQ(Box("Text10").Text(), "");

  The<QComboBox>(*form, "Combo1").setCurrentText(QStringLiteral("6"));
  EXPECT_EQ(Box("txtNumberEntries").Text(), "6");
  EXPECT_EQ(Box("txtXcutCenters(5)").Text(), "60");  // filled from the first
  EXPECT_FALSE(Box("Text10").hasFrame() || Box("Text15(6)").hasFrame()) << "nothing to type in";
  EXPECT_TRUE(Shown("txtXcutCenters(5)") && Shown("Text15(6)") && Shown("Label23(5)"));
  EXPECT_FALSE(Shown("txtXcutCenters(6)") || Shown("Text15(7)") || Shown("Line1(7)"));
  QTest::mouseClick(&Check("chkEqual"), Qt::LeftButton, {}, QPoint(8, Check("chkEqual").height() / 2));
  Type("txtXcutCenters(1)", "75");
  EXPECT_EQ(Box("txtXcutCenters(5)").Text(), "75");
  EXPECT_FALSE(Box("txtXcutCenters(2)").isEnabled());
  Check("chkEqual").setChecked(false);
  EXPECT_TRUE(Box("txtXcutCenters(2)").isEnabled());
  bench.Ports.Messages.Expect("Changes in Input Data will be discarded. Proceed?", MessageButtons::kYesNo,
                              MessageAnswer::kYes);
  form->close();
}

TEST_F(ParameterForm, AnErrorWhileTypingIsToldAndLeavesTheField) {
  Open();
  Expect("Error occurred: Invalid procedure call or argument (5). Procedure Terminated");
  Box("txtDepthCover").setText(QStringLiteral("-9"));
  EXPECT_EQ(Box("txtBreadthAMZ").Text(), "100");
}

TEST_F(ParameterForm, ConditionsShowTheirFieldsAndPictures) {
  Open();
  const auto choose = [this](int condition) {
    The<QRadioButton>(*form, IndexedName("optAnal", condition).toLatin1()).setChecked(true);
  };
  EXPECT_FALSE(Shown("fraActive") || Shown("fraBleeder") || Shown("fraFirst"));
  EXPECT_EQ(ShownPicture(), 0);
  choose(1);
  EXPECT_TRUE(Shown("fraActive") && Shown("fraBleeder"));
  EXPECT_FALSE(Shown("fraFirst") || Shown("chkRowC"));
  Check("chkRowB").setChecked(true);
  EXPECT_EQ(ShownPicture(), 3);
  choose(2);
  EXPECT_TRUE(Shown("fraFirst") && Shown("chkRowC") && !Shown("txtWidthC") && !Shown("chkRowD"));
  EXPECT_FALSE(Check("chkRowC").isEnabled());
  Type("txtBarrierFirstGob", "50");
  EXPECT_TRUE(Check("chkRowC").isEnabled());
  Check("chkRowC").setChecked(true);
  EXPECT_TRUE(Shown("txtWidthC") && Shown("lblwidRowC"));
  EXPECT_EQ(ShownPicture(), 11);
  Type("txtBarrierFirstGob", "0");
  EXPECT_FALSE(Check("chkRowC").isChecked() || Shown("txtWidthC"));
  for (int twice = 0; twice < 2; ++twice) {
    Expect("Warning: In the KORVA data base, of the 19 case histories");
    choose(3);
    EXPECT_TRUE(Shown("fraSecond") && Shown("chkRowD"));
    choose(1);
  }
  Expect("Warning: In the KORVA data base, of the 19 case histories");
  choose(3);
  Expect("Warning: In the KORVA data base, of the 19 case histories");
  The<QRadioButton>(*form, "optAnal(3)").click();
  Type("txtSlabcutFirstGob", "5");
  Expect("Cannot leave Row A pillars when a slab cut is taken from the first side barrier");
  Check("chkRowA").setChecked(true);
  EXPECT_FALSE(Check("chkRowA").isChecked());
}

TEST_F(ParameterForm, ALoadedPanelOfTwoSideGobsGivesNoWarning) {
  bench.State.Stored = test::Stored(test::TwoSideGobs());
  bench.State.Stored.ProjectInput.AMZAuto = bench.State.Stored.ProjectInput.ArchAuto = 0;
  Open();
  EXPECT_TRUE(Shown("fraSecond"));
  EXPECT_TRUE(Box("txtArchFactor").isEnabled() && Box("txtBreadthAMZ").isEnabled());
  Check("chkAMZ").setChecked(true);
  Expect("Warning: The KORVA case history data base was analyzed with the breadth");
  Check("chkAMZ").setChecked(false);
  Check("chkArch").setChecked(true);
  Expect("Warning: The KORVA case history data base was analyzed with the Pressure Arch Factor");
  Check("chkArch").setChecked(false);
}

TEST_F(ParameterForm, AWarningOnLeavingAFieldHoldsOffTheClickThatCausedIt) {
  Open();
  The<QTabWidget>(*form, "SSTab1").setCurrentIndex(1);
  Box("txtCoalStrength").setFocus();
  Type("txtCoalStrength", "800");
  Expect("Warning: The KORVA case history data base was analyzed with an in situ coal strength of 900 psi.");
  QTest::keyClick(&Box("txtCoalStrength"), Qt::Key_Return);
  ASSERT_FALSE(form->isHidden());
  EXPECT_EQ(Input().CoalStrength, 900);
  Click(*form, "cmdOK");
  EXPECT_EQ(Input().CoalStrength, 800);
  EXPECT_FALSE(bench.State.ProjectSaved);
  EXPECT_NE(bench.History().find("Project Parameters Modified"), std::string::npos);
}

TEST_F(ParameterForm, AButtonPressedOnLeavingAFieldIsClickedAfterTheWarning) {
  bench.State.Stored.ProjectInput.ArchAuto = 0;
  Open();
  std::string refusal;
  const auto leaveBy = [&, this](const char* button) {
    The<FormTabs>(*form, "SSTab1").Choose(1);
    Box("txtCoalStrength").setFocus();
    Type("txtCoalStrength", "800");
    Expect("Warning: The KORVA case history data base was analyzed with an in situ coal strength");
    if (!refusal.empty()) {
      Expect(refusal.c_str());
    }
    // The box of the warning takes the release.
    bench.Ports.Messages.WhileShown = [this] { QTest::mouseRelease(form, Qt::LeftButton); };
    auto& pressed = The<QAbstractButton>(*form, button);
    QTest::mousePress(&pressed, Qt::LeftButton, {}, QPoint(8, pressed.height() / 2));
    bench.Ports.Messages.WhileShown = nullptr;
    QCoreApplication::processEvents();
    EXPECT_FALSE(pressed.isDown()) << button;
  };
  leaveBy("chkArch");
  EXPECT_TRUE(Check("chkArch").isChecked());
  leaveBy("cmdOK");
  EXPECT_FALSE(form->isHidden()) << "OK waits for a second click";
  Box("txtDepthCover").setText(QStringLiteral("0"));
  refusal = "Invalid depth of cover";
  leaveBy("cmdOK");  // and tells what it refuses
  refusal.clear();
  Box("txtDepthCover").setText(QStringLiteral("400"));
  leaveBy("cmdResults");
  EXPECT_TRUE(form->isHidden());
  EXPECT_EQ(bench.State.ProjectCalc.CoalStrength, 800);
}

TEST_F(ParameterForm, ATabThatIsChosenKeepsTheFocus) {
  bench.State.Stored.ProjectInput.CoalStrength = 800;
  bench.State.Stored.ProjectInput.AbutmentAngleActiveGob = 18;
  bench.State.Stored.ProjectInput.LoadingCondition = PanelLoading{1};
  Open();
  auto& tabs = The<FormTabs>(*form, "SSTab1");
  QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
  EXPECT_EQ(tabs.currentIndex(), 1);
  EXPECT_EQ(QApplication::focusWidget(), tabs.tabBar());
  QTest::mouseClick(&Box("txtUnitWeight"), Qt::LeftButton);
  QCoreApplication::processEvents();
  QTest::keyClicks(&Box("txtUnitWeight"), QStringLiteral("162"));
  EXPECT_EQ(Box("txtUnitWeight").Text(), "162") << "the click selects what stands there";
  QTest::keyClick(&Box("txtUnitWeight"), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(tabs.currentIndex(), 2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(The<QRadioButton>(*form, "optAnal(1)").isChecked());
  EXPECT_EQ(QApplication::focusWidget(), tabs.tabBar());
  QWheelEvent turn(QPointF(5, 5), tabs.tabBar()->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton,
                   {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(tabs.tabBar(), &turn);
  EXPECT_EQ(tabs.currentIndex(), 2);
}

TEST_F(ParameterForm, TabGoesToTheConditionThatIsSet) {
  bench.State.Stored = test::Stored(test::TwoSideGobs());
  Open();
  auto& tabs = The<FormTabs>(*form, "SSTab1");
  tabs.Choose(2);
  tabs.tabBar()->setFocus();
  QTest::keyClick(tabs.tabBar(), Qt::Key_Tab);
  const QPointer<QWidget> focus = QApplication::focusWidget();
  EXPECT_EQ(focus->objectName(), QStringLiteral("optAnal(3)"));
  QTest::keyClick(focus, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("txtExtentActiveGob"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(QApplication::focusWidget(), focus);
}

TEST_F(ParameterForm, TheWheelChangesNoValue) {
  Open();
  auto& entries = The<QComboBox>(*form, "Combo1");
  const int before = entries.currentIndex();
  for (const int way : {-120, 120}) {
    QWheelEvent turn(QPointF(5, 5), entries.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, way), Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&entries, &turn);
    EXPECT_EQ(entries.currentIndex(), before);
  }
}

TEST_F(ParameterForm, ARefusedFieldIsSeenWhateverTheCondition) {
  bench.State.Stored = test::Stored(test::TwoSideGobs());
  Project& input = bench.State.Stored.ProjectInput;
  input.LoadingCondition = PanelLoading{1};
  input.SlabcutFirstGob = input.SlabcutSecondGob = 0;
  input.RowC = 1;
  input.WidthRowC = 0;
  Open();
  form->resize(400, 300);  // most of the page is scrolled out
  EXPECT_FALSE(Box("txtWidthC").isVisible());
  Expect("Invalid Pillar Width for Row C");
  Click(*form, "cmdOK");
  EXPECT_TRUE(Box("txtWidthC").isVisible() && Check("chkRowC").isVisible() && Shown("lblwidRowC"));
  EXPECT_EQ(QApplication::focusWidget(), &Box("txtWidthC"));
  QCoreApplication::processEvents();
  EXPECT_EQ(Box("txtWidthC").visibleRegion().boundingRect(), Box("txtWidthC").rect()) << "scrolled into view";
  Type("txtWidthC", "50");
  Click(*form, "optAnal(0)");
  EXPECT_FALSE(Box("txtWidthC").isVisible());
  Box("txtExtentActiveGob").Fill("-1");
  Expect("Invalid extent of active gob");
  Click(*form, "cmdOK");
  EXPECT_TRUE(Box("txtExtentActiveGob").isVisible());
  bench.State.Preferences.Options.IssueWarningCancel = false;
}

TEST_F(ParameterForm, TheHoldEndsByItself) {
  Open();
  The<QTabWidget>(*form, "SSTab1").setCurrentIndex(1);
  Box("txtUnitWeight").setFocus();
  Type("txtUnitWeight", "170");
  Expect("Warning: The KORVA case history data base was analyzed with an overburden unit weight of 162 pcf.");
  Box("txtCoalStrength").setFocus();
  auto& timer = The<QTimer>(*form, "Timer1");
  EXPECT_EQ(timer.interval(), 200);
  EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.isActive(); }));
  Click(*form, "cmdOK");
  EXPECT_EQ(Input().UnitWeight, 170);
}

TEST_F(ParameterForm, ARefusalGoesToItsFieldAndStoresNothing) {
  Open();
  Type("txtDepthCover", "300");
  Check("chkArch").setChecked(true);
  The<QTabWidget>(*form, "SSTab1").setCurrentIndex(2);
  Type("txtXcutSpacing", "20");
  Expect("Invalid crosscut spacing");
  Click(*form, "cmdOK");
  EXPECT_EQ(bench.Ports.Messages.Shown.back().title, "Project Parameters: Range Error");
  EXPECT_EQ(bench.Ports.Messages.Shown.back().icon, MessageIcon::kCritical);
  EXPECT_EQ(The<QTabWidget>(*form, "SSTab1").currentIndex(), 0);
  EXPECT_EQ(form->focusWidget(), &Box("txtXcutSpacing"));
  EXPECT_EQ(Input().DepthCover, 400);

  bench.Ports.Messages.Expect("Changes in Input Data will be discarded. Proceed?", MessageButtons::kYesNo,
                              MessageAnswer::kNo);
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_FALSE(form->isHidden());
  bench.State.Preferences.Options.IssueWarningCancel = false;
  Click(*form, "cmdCancel");
  EXPECT_EQ(Input().DepthCover, 400);
  EXPECT_TRUE(bench.Main.Enabled);
}

TEST_F(ParameterForm, AChangeOfTheArchFactorAloneIsDiscarded) {
  bench.State.Stored.ProjectInput.ArchAuto = 0;
  Open();
  Type("txtArchFactor", "0.5");
  Click(*form, "cmdOK");
  EXPECT_EQ(Input().ArchFactor, 1);
  EXPECT_TRUE(bench.State.ProjectSaved);
}

TEST_F(ParameterForm, ResultsCalculateTheFormWithoutStoringIt) {
  Open();
  Type("txtDepthCover", "500");
  Click(*form, "cmdResults");
  EXPECT_EQ(bench.Main.ResultsReturnTo, form.data());
  EXPECT_TRUE(form->isHidden());
  EXPECT_EQ(bench.State.ProjectCalc.DepthCover, 500);
  EXPECT_EQ(Input().DepthCover, 400);
  EXPECT_NE(bench.State.OutBuf[1].find("[KORVA STABILITY FACTORS]"), std::string::npos);
  ASSERT_TRUE(form->Draft());
  EXPECT_EQ(form->Draft()->ProjectInput.DepthCover, 500);
}

TEST_F(ParameterForm, NumbersThatTheFormRoundsAreNoDraft) {
  bench.State.Stored.ProjectUnits = kMetric;
  bench.State.Stored.ProjectInput.CoalStrength = 6.205283178097832;
  bench.State.Stored.ProjectInput.UnitWeight = 25.446482633742956;
  Open();
  EXPECT_FALSE(form->Draft());
  Type("txtDepthCover", "123");
  ASSERT_TRUE(form->Draft());
  EXPECT_EQ(form->Draft()->ProjectInput.DepthCover, 123);
}

TEST_F(ParameterForm, ResultsOpenOnlyForARunThatWasWantedAndDone) {
  const TempFolder folder;
  bench.State.Places.TempRoot = folder / "";
  bench.State.OutBuf[1] = "earlier";
  Open();
  Click(*form, "optLam(1)");
  const auto run = [this](MessageAnswer answer) {
    bench.Ports.Messages.Expect("The laminated model will invoke Strondel in the background",
                                MessageButtons::kYesNo, answer);
    Click(*form, "cmdResults");
  };
  run(MessageAnswer::kNo);
  EXPECT_TRUE(form->isVisible());
  std::filesystem::create_directory(folder / "Untitled.KVSD");  // where the exchange file belongs
  bench.Ports.Messages.WhileShown = [this] {
    bench.Ports.Messages.WhileShown = nullptr;
    Expect("Error occurred: Path/File access error (75). Procedure Terminated");
  };
  run(MessageAnswer::kYes);
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(bench.State.OutBuf[1], "earlier");
  std::filesystem::remove(folder / "Untitled.KVSD");
  run(MessageAnswer::kYes);
  EXPECT_TRUE(form->isHidden());
  EXPECT_EQ(bench.Main.ResultsReturnTo, form.data());
}

TEST_F(ParameterForm, CopyClipPutsAPictureOnTheClipboard) {
  Open();
  Expect("Screenshot of dialog copied to clipboard");
  Click(*form, "cmdCopyClip");
  EXPECT_EQ(QImage::fromData(QByteArrayView(bench.Ports.Clipboard.Picture)).size(), form->size());
}

TEST_F(ParameterForm, ItsTabsHaveOneLeftEdgeAndItsNumbersOne) {
  Open();
  std::set<int> edges;
  for (const auto& [tab, frame] : {std::pair{0, "Frame1"}, {1, "Frame2"}, {2, "Frame5"}}) {
    The<QTabWidget>(*form, "SSTab1").setCurrentIndex(tab);
    QCoreApplication::processEvents();
    edges.insert(The<QGroupBox>(*form, frame).mapTo(form, QPoint()).x());
  }
  EXPECT_EQ(edges.size(), 1U);
  EXPECT_EQ(The<QLineEdit>(*form, "txtXcutCenters(1)").alignment(),
            The<QLineEdit>(*form, "txtEntryWidth").alignment());
}

TEST_F(ParameterForm, TabGoesAsAPersonReads) {
  Open();
  std::string order;
  for (int i = 0; i < 18; ++i) {
    order += QApplication::focusWidget()->objectName().toStdString() + " ";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(
      order.substr(0, order.find("SSTab1")),
      "txtEntryHeight txtDepthCover txtXcutAngle txtEntryWidth txtXcutSpacing Combo1 optLam(0) chkEqual "
      "txtXcutCenters(1) txtXcutCenters(2) txtXcutCenters(3) cmdResults cmdCopyClip cmdView cmdCancel "
      "cmdOK cmdHelp qt_tabwidget_tabbar ");
}

TEST_F(ParameterForm, AnEmptyMetricProjectShowsItsUnitsAndRoundedDefaults) {
  bench.State.Preferences.DefaultUnits = kMetric;
  FileNew(bench.State);
  Open();
  EXPECT_EQ(The<QLabel>(*form, "Label7").text(), QStringLiteral("In situ coal strength (MPa)"));
  EXPECT_EQ(Box("txtCoalStrength").Text(), "6.21");
  EXPECT_EQ(Box("txtUnitWeight").Text(), "25.45");
  EXPECT_EQ(The<QComboBox>(*form, "Combo1").currentText(), QStringLiteral("2"));
  for (QLineEdit* box : form->findChildren<QLineEdit*>()) {
    EXPECT_FALSE(box->accessibleName().isEmpty()) << qPrintable(box->objectName());
    EXPECT_FALSE(box->toolTip().isEmpty()) << qPrintable(box->objectName());
  }
}

}  // namespace
}  // namespace korva::desktop
