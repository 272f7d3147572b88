#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSessionManager>
#include <QTimer>
#include <QToolButton>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>

#include "commands/FileCommands.h"
#include "desktop/FormBench.h"
#include "desktop/core/frmMain.h"
#include "desktop/support/EndSignals.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/Icons.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

const std::string kStopped = "The calculations were stopped: ";

constexpr int kLongestSweep = 60'000;  // milliseconds, on a busy machine

class MainForm : public testing::Test {
 protected:
  MainForm() {
    InitResources();
    korva.Places.IniFile = folder / "KORVA-STROND.INI";
    korva.Places.StateFolder = folder / "sessions/";
    korva.Preferences.DataPath = folder / "";
    korva.Preferences.DisplayHistoryWin = true;
    korva.Preferences.ShowDisclaim = false;
    std::filesystem::copy(KORVA_EXAMPLES "/development.KVL", folder / "development.KVL");
  }

  // Windows that were closed go before the state that they work on.
  ~MainForm() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  frmMain& Begin(const std::string& file = {}) {
    main = std::make_unique<frmMain>(korva, ports.All, pictures);
    main->Begin(file);
    return *main;
  }
  QAction& Item(const char* name) { return The<QAction>(*main, name); }
  void Choose(const char* name) { Item(name).trigger(); }
  static QWidget* FindWindow(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String(name) && window->isVisible()) {
        return window;
      }
    }
    return nullptr;
  }
  // Has the time to the next question about a new version run out. Whether there will be another one.
  bool AsksLater() const {
    auto& timer = The<QTimer>(*main, "answerTimer");
    if (timer.isActive()) {
      QTimerEvent out(timer.timerId());
      QCoreApplication::sendEvent(&timer, &out);
    }
    return timer.isActive();
  }
  // All that is kept of unsaved work, with line ends as here.
  std::string Copy() const {
    std::string copies;
    for (const auto& entry : std::filesystem::directory_iterator(korva.Places.StateFolder)) {
      copies += entry.path().extension() == ".KVL" ? TempFolder::Bytes(Utf8Of(entry.path())) : "";
    }
    std::erase(copies, '\r');
    return copies;
  }
  // The only other window that is open.
  static QWidget* Window(const char* name) {
    QWidget* window = FindWindow(name);
    EXPECT_NE(window, nullptr) << "no window " << name;
    return window;
  }

  // Presses a button of a modal window once that is open.
  void PressLater(const char* window, const char* button) {
    QTimer::singleShot(0, main.get(), [window, button] {
      if (QWidget* modal = Window(window)) {
        Click(*modal, button);
      }
    });
  }

  TempFolder folder;
  Korva korva;
  ScriptedPorts ports;
  KeptPictures pictures;
  std::unique_ptr<frmMain> main;
};

TEST_F(MainForm, AWholeDay) {
  Begin();
  EXPECT_EQ(main->windowTitle(), QStringLiteral("KORVA: Untitled"));
  const std::string file = folder / "development.KVL";
  ports.Files.Expect(file);
  Choose("mnuFileItem(1)");
  QWidget* form = Window("frmKORVAParm");
  EXPECT_FALSE(main->isEnabled());
  auto& depth = The<FieldBox>(*form, "txtDepthCover");
  depth.selectAll();
  QTest::keyClicks(&depth, QStringLiteral("450"));
  Click(*form, "cmdResults");
  QWidget* results = Window("frmResTxtPlt");
  EXPECT_TRUE(The<QPlainTextEdit>(*results, "RichTextBox1")
                  .toPlainText()
                  .contains(QStringLiteral("Development (KORVA)")));
  Click(*results, "Command1");
  EXPECT_TRUE(form->isVisible());
  EXPECT_FALSE(main->isEnabled());
  Click(*form, "cmdOK");
  EXPECT_TRUE(main->isEnabled());
  EXPECT_EQ(main->windowTitle().toStdString(), "KORVA: " + CaptionFileName(file) + "*");

  ports.Files.Expect(folder / "mine.KVL");
  Choose("mnuFileItem(3)");
  EXPECT_EQ(main->windowTitle().toStdString(), "KORVA: " + CaptionFileName(folder / "mine.KVL"));
  EXPECT_EQ(Item("mnuFileArray(1)").text().toStdString(), folder / "mine.KVL");
  EXPECT_TRUE(Item("mnuFileArray(0)").isVisible() && Item("mnuFileArray(2)").isVisible());
  EXPECT_FALSE(Item("mnuFileArray(3)").isVisible());

  PressLater("frmKORVADesc", "Command1");
  Choose("mnuFileItem(0)");
  Choose("mnuFileArray(1)");
  EXPECT_EQ(korva.Stored.ProjectInput.DepthCover, 450);
  Click(*Window("frmKORVAParm"), "cmdCancel");
  Choose("mnuCalcItem(0)");
  QTest::keyClick(Window("frmResTxtPlt"), Qt::Key_Escape);
  EXPECT_TRUE(main->isEnabled());
}

TEST_F(MainForm, BeginsWithTheLastFileAndThenTheOneOfTheCall) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  korva.Preferences.LoadLastInputFile = true;
  korva.Preferences.FileMenu.MaxLastFiles = 1;
  korva.Preferences.FileMenu.LastFile[1] = korva.Preferences.FileMenu.LastFileLong[1] =
      folder / "development.KVL";
  Begin();
  EXPECT_EQ(korva.ProjectFileName, folder / "development.KVL");
  ports.Messages.Expect("Error occurred: File not found (53)", MessageButtons::kRetryCancel,
                        MessageAnswer::kCancel);
  korva.ProjectSaved = true;
  Begin(folder / "none.KVL");
  EXPECT_EQ(main->windowTitle().toStdString(), "KORVA: " + CaptionFileName(folder / "none.KVL"));
  EXPECT_TRUE(korva.ProjectEmpty);
}

TEST_F(MainForm, MenusAndToolbarAreAsTheCommandsExpect) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin();
  EXPECT_EQ(Item("mnuFileItem(2)").text(), QStringLiteral("&Save "));
  EXPECT_TRUE(Item("mnuFileItem(10)").isSeparator() && Item("mnuUtilItem(4)").isSeparator());
  EXPECT_EQ(Item("mnuCalcGrafItem(5)").text(), QStringLiteral("SFBAR2 vs Second Barrier Width"));
  EXPECT_FALSE(Item("mnuCalcGrafItem(4)").isEnabled());
  EXPECT_TRUE(Item("mnuCalcGrafItem(3)").isEnabled());
  EXPECT_FALSE(The<QToolButton>(*main, "Toolbar1(4)").icon().isNull());
  Choose("Toolbar1(3)");  // does nothing but refresh the menus
  for (const auto& [item, text] : {std::pair{"mnuCalcItem(0)", "Current file is empty"},
                                   {"mnuUtilItem(3)", "Current file is empty"},
                                   {"mnuHelpItem(2)", "Help file (KORVA-STROND.PDF) not available"},
                                   {"mnuHelpItem(10)", "KORVA-STROND\r\n\nVersion: "}}) {
    ports.Messages.Expect(text);
    Choose(item);
  }
  PressLater("frmTextBrow", "cmdOK");
  Choose("mnuFileItem(11)");
  EXPECT_NE(TempFolder::Bytes(korva.Places.IniFile).find("BrowseDefaultFilter=*.KVL"), std::string::npos);
  PressLater("frmResource", "Command2");
  Choose("mnuHelpItem(4)");
  for (const auto& [item, form] :
       {std::pair{"mnuUtilItem(1)", "frmKORVAOpts"}, {"mnuUtilItem(2)", "frmUnits"}}) {
    PressLater(form, "Command1");
    Choose(item);
  }
  korva.ProjectEmpty = korva.ProjectSaved = false;
  ports.Messages.Expect("Save Current File before accessing this option");
  Choose("mnuUtilItem(3)");
}

TEST_F(MainForm, PrintsTheInputs) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin();
  Choose("mnuFileItem(7)");
  EXPECT_EQ(ports.Printer.Dialogs, std::vector<std::string>{"set-up"});
  EXPECT_TRUE(ports.Printer.Printed.empty());
  for (const char* item : {"mnuFileItem(8)", "mnuFileItem(9)"}) {
    ports.Messages.Expect("Current file is empty. Continue?", MessageButtons::kYesNoDefaultNo,
                          MessageAnswer::kNo);
    Choose(item);
  }
  EXPECT_EQ(FindWindow("frmPreview"), nullptr);
  EXPECT_TRUE(ports.Printer.Printed.empty());

  // The graph menu follows the working copy, but not behind a No.
  korva.Stored.ProjectInput.LoadingCondition = PanelLoading{3};
  ports.Messages.Expect("Current file is empty", MessageButtons::kYesNoDefaultNo, MessageAnswer::kNo);
  Choose("mnuFileItem(8)");
  EXPECT_FALSE(Item("mnuCalcGrafItem(4)").isEnabled());
  korva.ProjectEmpty = false;
  korva.Stored.ProjectInput.BarrierFirstGob = 60;
  Choose("mnuFileItem(8)");
  EXPECT_EQ(ports.Printer.Printed.size(), 1U);
  EXPECT_TRUE(Item("mnuCalcGrafItem(4)").isEnabled());

  PressLater("frmPreview", "Command3");
  QTimer::singleShot(50, main.get(), [] { Click(*Window("frmPreview"), "Command1"); });
  Choose("mnuFileItem(9)");
  EXPECT_EQ(ports.Printer.Printed.size(), 2U);
}

TEST_F(MainForm, ASweepEndsInItsGraph) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  korva.Places.TempRoot = folder / "";
  Begin();
  ports.Messages.Expect("Invalid entry height");
  Choose("mnuCalcGrafItem(0)");
  EXPECT_TRUE(main->isEnabled());
  ports.Files.Expect(folder / "development.KVL");
  Choose("mnuFileItem(1)");
  Choose("mnuCalcGrafItem(1)");
  EXPECT_FALSE(main->isEnabled()) << "from the click on";
  ASSERT_TRUE(QTest::qWaitFor([] { return FindWindow("frmGraph") != nullptr; }));
  Window("frmGraph")->close();
  EXPECT_TRUE(main->isEnabled());

  korva.Stored.ProjectInput.CalcMode = kLaminatedModel;
  Choose("mnuCalcGrafItem(1)");
  EXPECT_EQ(Window("frmStrondCalc")->windowTitle(), QStringLiteral("KORVA-STROND Calculations"));
  EXPECT_EQ(FindWindow("frmGraph"), nullptr);
  ASSERT_TRUE(QTest::qWaitFor([] { return FindWindow("frmGraph") != nullptr; }));
  EXPECT_EQ(FindWindow("frmStrondCalc"), nullptr);
  EXPECT_EQ(korva.Sweep.CurveCount, 4);
  Window("frmGraph")->close();

  korva.Sweep.GraphIndex = kBarrierDepthGraph;
  korva.Stored.ProjectInput = test::TwoSideGobs();  // every step takes a while
  korva.Stored.ProjectInput.CalcMode = kLaminatedModel;
  Choose("mnuCalcGrafItem(0)");
  const QPointer<QLabel> label = &The<QLabel>(*Window("frmStrondCalc"), "lblProg");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !label || !label->text().isEmpty(); }));
  ASSERT_TRUE(label && label->text().startsWith(QStringLiteral("Calculating step...")));
  EXPECT_TRUE(label->text().contains(QStringLiteral("/7")));
  Click(*Window("frmStrondCalc"), "cmdCancel");
  ports.Messages.Expect(kStopped, MessageButtons::kYesNoDefaultNo, MessageAnswer::kNo);
  ASSERT_TRUE(QTest::qWaitFor([this] { return main->isEnabled(); }));
  EXPECT_EQ(FindWindow("frmGraph"), nullptr);
  EXPECT_EQ(korva.Sweep.GraphIndex, kBarrierDepthGraph) << "the last sweep stays";

  Choose("mnuCalcGrafItem(0)");
  Click(*Window("frmStrondCalc"), "cmdCancel");
  ports.Messages.Expect(kStopped, MessageButtons::kYesNoDefaultNo, MessageAnswer::kYes);
  ASSERT_TRUE(QTest::qWaitFor([] { return FindWindow("frmGraph") != nullptr; }));
  EXPECT_EQ(korva.Sweep.PointCount, 5);
  EXPECT_TRUE(korva.Sweep.Partial.ends_with("cancelled"));
  Window("frmGraph")->close();

  std::filesystem::remove(folder / "development.KVSD");
  std::filesystem::create_directory(folder / "development.KVSD");  // where the exchange file belongs
  Choose("mnuCalcGrafItem(0)");
  ports.Messages.Expect("Error occurred: Path/File access error (75). Procedure Terminated");
  ASSERT_TRUE(QTest::qWaitFor([] { return FindWindow("frmGraph") != nullptr; }))
      << "with the points that it has";
  EXPECT_EQ(korva.Sweep.PointsOf(3), 0);
  Window("frmGraph")->close();
}

// As a menu outside of the window starts them, which knows nothing of its state.
TEST_F(MainForm, NoCommandStartsWhileASweepIsGoingOn) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  korva.Places.TempRoot = folder / "";
  korva.Preferences.FileMenu.LastFileLong[1] = folder / "development.KVL";
  Begin();
  korva.Stored = test::Stored(test::TwoSideGobs());
  korva.ProjectEmpty = false;
  korva.Stored.ProjectInput.CalcMode = kLaminatedModel;
  Choose("mnuCalcGrafItem(1)");
  const auto visible = [] {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::count_if(all.begin(), all.end(), [](const QWidget* window) { return window->isVisible(); });
  };
  const auto before = visible();
  for (QAction* action : main->findChildren<QAction*>()) {
    const QString name = action->objectName();
    if (name.startsWith(QLatin1String("mnu")) || name.startsWith(QLatin1String("Toolbar1("))) {
      action->trigger();
    }
  }
  main->close();
  EXPECT_EQ(visible(), before);
  EXPECT_EQ(korva.Stored.ProjectInput.CalcMode, kLaminatedModel) << "the project is the same";
  ASSERT_TRUE(QTest::qWaitFor([] { return FindWindow("frmGraph") != nullptr; }, kLongestSweep));
  EXPECT_EQ(korva.Sweep.GraphIndex, kDepthGraph);
  Choose("mnuFileItem(0)");
  EXPECT_FALSE(korva.ProjectEmpty) << "nor while the graph is open";
  Window("frmGraph")->close();
}

TEST_F(MainForm, TheHistoryIsClearedHiddenAndCopied) {
  Begin();
  auto& history = The<QPlainTextEdit>(*main, "txtMain");
  EXPECT_TRUE(history.toPlainText().contains(QStringLiteral("1. File initialized.")));
  Choose("mnuUtilItem(7)");
  EXPECT_EQ(ports.Clipboard.Text, korva.SessionHistory.Text);
  Choose("mnuUtilItem(6)");
  EXPECT_TRUE(history.isHidden());
  EXPECT_EQ(Item("mnuUtilItem(6)").text(), QStringLiteral("Restore History &Window"));
  EXPECT_FALSE(Item("mnuUtilItem(7)").isEnabled());
  Choose("mnuUtilItem(6)");
  Choose("mnuUtilItem(5)");
  EXPECT_EQ(history.toPlainText(), QString());
  korva.Preferences.DisplayHistoryWin = false;
  main->ApplyDisplaySettings();
  EXPECT_FALSE(Item("mnuUtilItem(5)").isEnabled());
}

TEST_F(MainForm, AMaximisedWindowStaysSo) {
  Begin();
  main->showMaximized();
  korva.Preferences.MaxMainMenu = false;
  korva.Preferences.DisplayFont.Size = 14;
  main->ApplyHistoryFont();
  EXPECT_EQ(The<QPlainTextEdit>(*main, "txtMain").font().pointSize(), 14);
  main->ApplyDisplaySettings();
  EXPECT_TRUE(main->isMaximized());
  main->showNormal();
  korva.Preferences.MaxMainMenu = true;
  main->ApplyHistoryFont();
  EXPECT_FALSE(main->isMaximized()) << "the font changes the history alone";
}

TEST_F(MainForm, ClosingAsksAndSavesTheRecentFiles) {
  Begin();
  korva.ProjectSaved = false;
  ports.Messages.Expect("Save changes to: Untitled?", MessageButtons::kYesNoCancel, MessageAnswer::kCancel);
  EXPECT_FALSE(main->close());
  main->SetInputEnabled(false);
  EXPECT_FALSE(main->close());
  main->SetInputEnabled(true);
  ports.Messages.Expect("Save changes to: Untitled?", MessageButtons::kYesNoCancel, MessageAnswer::kNo);
  EXPECT_TRUE(main->close());
  EXPECT_NE(TempFolder::Bytes(korva.Places.IniFile).find("[FileMenu]"), std::string::npos);
  EXPECT_TRUE(std::filesystem::is_empty(korva.Places.StateFolder));
}

TEST_F(MainForm, AMenuCalculationOfWhatTheFormRefusesSaysSo) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin(folder / "development.KVL");
  korva.Stored.ProjectInput.XcutAngle = 25;
  Choose("mnuCalcItem(0)");
  Window("frmResTxtPlt")->close();
  EXPECT_TRUE(
      The<QLabel>(*main, "lblStatusRemark").text().contains(QStringLiteral("crosscut angle of 25 degrees")));
  EXPECT_FALSE(The<QLabel>(*main, "lblCardOutOfDate").isVisible());
  korva.Stored.ProjectInput.XcutAngle = 60;
  main->Refresh();
  EXPECT_TRUE(The<QLabel>(*main, "lblCardOutOfDate").isVisible());
}

TEST_F(MainForm, AnEmptyStartOffersNewOpenAndTheExamples) {
  korva.Places.Examples = KORVA_EXAMPLES "/";
  korva.Places.ProductFolder = folder / "";
  folder.Put("slab-cuts.KVL", "my own");
  Begin();
  const auto item = [this](const char* file) -> QAction& {
    for (QAction* action : The<QMenu>(*main, "mnuStartExamples").actions()) {
      if (action->text().contains(QLatin1String(file))) {
        return *action;
      }
    }
    throw std::runtime_error("no example");
  };
  EXPECT_TRUE(The<QWidget>(*main, "cmdStartExamples").isVisible());
  EXPECT_TRUE(The<QMenu>(*main, "mnuStartExamples").isEmpty()) << "the start waits for no file";
  PressLater("frmKORVADesc", "Command1");
  Click(*main, "cmdStartNew");
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  ports.Files.Expect(std::nullopt);
  Click(*main, "cmdStartOpen");
  EXPECT_EQ(ports.Files.Asked.size(), 1U);
  emit The<QMenu>(*main, "mnuStartExamples").aboutToShow();
  EXPECT_EQ(item("refused.KVL").text(), QStringLiteral("Panel with a missing center distance (refused.KVL)"));
  EXPECT_EQ(item("slab-cuts.KVL").text(), QStringLiteral("slab-cuts (slab-cuts.KVL)"));
  item("development.KVL").trigger();
  EXPECT_EQ(korva.ProjectFileName, folder / "development.KVL") << "the person's own copy";
  EXPECT_FALSE(The<QWidget>(*main, "cmdStartNew").isVisible());
  EXPECT_TRUE(The<QWidget>(*main, "picCardPlan").isVisible());
}

TEST_F(MainForm, TheCardShowsTheFactorsOfTheLastRunBarriersBesideTheZone) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin(KORVA_EXAMPLES "/two-side-gobs.KVL");
  Choose("mnuCalcItem(0)");
  ports.Messages.Expect("C. Analysis");
  ASSERT_TRUE(QTest::qWaitFor([this] { return !ports.Messages.Shown.empty(); }));
  Window("frmResTxtPlt")->close();
  const auto value = [this](const char* name) {
    for (const QLabel* label : main->findChildren<QLabel*>()) {
      if (label->accessibleName() == QLatin1String(name)) {
        return (label->font().strikeOut() ? "-" : "") + label->text().toStdString();
      }
    }
    return std::string("none");
  };
  EXPECT_EQ(value("Retreat (KORVA), Mining zone"), "1.33");
  EXPECT_EQ(value("Development (KORVA), Second barrier"), "3.92");
  korva.Stored.ProjectInput.DepthCover += 1;
  main->Refresh();
  EXPECT_EQ(value("Retreat (KORVA), Mining zone"), "-1.33");
}

TEST_F(MainForm, LongNamesNeverWidenTheWindow) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin(folder / "development.KVL");
  const int width = main->minimumSizeHint().width();
  korva.Stored.ProjectTitle = "<b>" + std::string(500, 'W');
  korva.ProjectFileName = "/" + std::string(250, 'm') + ".KVL";
  main->Refresh();
  EXPECT_EQ(main->minimumSizeHint().width(), width);
  const QString tip = The<QLabel>(*main, "lblCardTitle").toolTip();
  EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;WWW"))) << "all of it, and as it is";
}

TEST_F(MainForm, ALongRecentFileNeverWidensTheMenu) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  const std::string longName = folder / (std::string(240, 'm') + "&.KVL");
  std::filesystem::copy_file(folder / "development.KVL", longName);
  Begin(longName);
  constexpr int kLeastScreen = 960;
  EXPECT_LT(The<QMenu>(*main, "mnuFile").sizeHint().width(), kLeastScreen);
  const auto& item = The<QAction>(*main, "mnuFileArray(1)");
  EXPECT_TRUE(item.isVisible());
  EXPECT_TRUE(item.text().endsWith(QStringLiteral("m&&.KVL")));
  EXPECT_EQ(item.toolTip(), QString::fromStdString(longName));
}

TEST_F(MainForm, ADroppedFileIsOpened) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder / "development.KVL"))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(main.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(main.get(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the file is not moved away";
  EXPECT_EQ(korva.ProjectFileName, kUntitled) << "the answer comes before the questions of opening";
  ASSERT_SOON(korva.ProjectFileName == folder / "development.KVL");

  // A file whose questions would come into another window is not opened.
  korva.ProjectFileName = "other";
  QApplication::sendEvent(main.get(), &drop);
  main->SetInputEnabled(false);
  QCoreApplication::processEvents();
  EXPECT_EQ(korva.ProjectFileName, "other");
}

TEST_F(MainForm, ACopyOfTypedWorkComesByItselfAndAtTheEndOfTheSession) {
  korva.Preferences.Options.ShowInputScreenOnLoad = false;
  Begin(folder / "development.KVL");
  QTimer::singleShot(0, main.get(), [this] {
    QWidget* form = Window("frmKORVADesc");
    EXPECT_EQ(Copy(), "");
    QTest::keyClicks(&The<FieldBox>(*form, "Text1"), QStringLiteral("typed"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Copy().find("typed") != std::string::npos; }, 2'000));
    The<QPlainTextEdit>(*form, "Text2").appendPlainText(QStringLiteral("said"));
    // The handlers look at nothing of the session.
    alignas(std::max_align_t) char manager[64] = {};
    emit qGuiApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(manager));
    EXPECT_NE(Copy().find("said"), std::string::npos);
    EXPECT_NE(Copy().find("##Recovery##" + (folder / "development.KVL")), std::string::npos);
    Click(*form, "Command1");
  });
  Choose("mnuEditItem(0)");
  ASSERT_SOON(Copy() == "");
}

// In a process of its own, with folders of its own.
TEST_F(MainForm, ASignalEndsTheProgramBehindACopy) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const int number : {SIGTERM, SIGHUP}) {
    EXPECT_EXIT(
        {
          korva.Preferences.Options.ShowInputScreenOnLoad = false;
          Begin(folder / "development.KVL");
          const EndSignals ends([this] {
            main->KeepWork();
            const bool kept = Copy().find("\n777\n") != std::string::npos;
            std::filesystem::remove_all(folder / "");
            if (!kept) {
              std::_Exit(1);
            }
          });
          main->EditParameters();
          auto& depth = The<FieldBox>(*Window("frmKORVAParm"), "txtDepthCover");
          depth.selectAll();
          QTest::keyClicks(&depth, QStringLiteral("777"));
          std::raise(number);
          QTest::qWait(5'000);
        },
        testing::KilledBySignal(number), "");
  }
}

TEST_F(MainForm, TheLastFilesFormDoesNotStayOverAFileThatCannotBeOpened) {
  korva.Preferences.LoadLastInputFile = true;
  korva.Preferences.FileMenu.MaxLastFiles = 1;
  korva.Preferences.FileMenu.LastFile[1] = korva.Preferences.FileMenu.LastFileLong[1] =
      folder / "development.KVL";
  ports.Messages.Expect("Invalid file format");
  Begin(folder.Put("none.KVL", "no project"));
  EXPECT_EQ(FindWindow("frmKORVAParm"), nullptr);
  EXPECT_TRUE(main->isEnabled());
}

TEST_F(MainForm, TheQuestionAboutANewVersionWaitsForTheWindow) {
  main = std::make_unique<frmMain>(korva, ports.All, pictures);
  main->CheckForUpdates();
  main->Begin({});
  main->EditParameters();
  ports.Fetches.Give("1106\r\n");
  EXPECT_TRUE(AsksLater());
  EXPECT_TRUE(ports.Messages.Shown.empty()) << "nobody is interrupted";
  ports.Messages.Expect("A new KORVA-STROND version is available. ", MessageButtons::kYesNoCancel,
                        MessageAnswer::kNo);
  Click(*Window("frmKORVAParm"), "cmdCancel");
  EXPECT_FALSE(AsksLater()) << "it asks once";
  EXPECT_EQ(ports.Messages.Shown.size(), 1U);
  EXPECT_EQ(FindWindow("frmUpdate"), nullptr);
}

TEST_F(MainForm, NothingIsAskedThatTheWindowOfUpdatesHasTold) {
  main = std::make_unique<frmMain>(korva, ports.All, pictures);
  main->CheckForUpdates();
  main->Begin({});
  QWidget help;  // a window that stands aside
  help.show();
  ports.Fetches.Give("1106");
  EXPECT_TRUE(AsksLater());
  EXPECT_TRUE(ports.Messages.Shown.empty()) << "somebody reads or types there";
  const auto lookAtUpdates = [this] {
    QTimer::singleShot(0, main.get(), [] { Window("frmUpdate")->close(); });
    Choose("mnuHelpItem(8)");
  };
  lookAtUpdates();
  help.close();
  EXPECT_FALSE(AsksLater());
  EXPECT_TRUE(ports.Messages.Shown.empty());
  main->CheckForUpdates();  // as at a start whose answer is late
  lookAtUpdates();
  EXPECT_FALSE(ports.Fetches.IsRunning());
}

TEST_F(MainForm, NoAnswerAtTheStartIsNoMatter) {
  main = std::make_unique<frmMain>(korva, ports.All, pictures);
  main->CheckForUpdates();
  main->Begin({});
  const std::string history = korva.SessionHistory.Text;
  ports.Fetches.Fail("the server did not answer");
  EXPECT_FALSE(AsksLater());
  EXPECT_EQ(korva.SessionHistory.Text, history);
}

TEST_F(MainForm, RefusingTheDisclaimerEndsTheProgramWithoutAQuestion) {
  Begin();
  korva.ProjectSaved = korva.ProjectEmpty = false;
  bool late = false;
  QTimer::singleShot(0, main.get(), [this] {
    PressLater("frmDisclaimer", "cmdNoAccept");
    Choose("mnuHelpItem(6)");
  });
  QTimer::singleShot(10'000, main.get(), [&late] {
    late = true;
    QCoreApplication::exit();
  });
  QCoreApplication::exec();
  EXPECT_FALSE(late);
  EXPECT_FALSE(korva.ProjectSaved);
}

}  // namespace
}  // namespace korva::desktop
