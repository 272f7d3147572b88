// The help window, and whether every control of the program has its topic in the help file.
#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QHelpContentWidget>
#include <QHelpEvent>
#include <QHelpIndexWidget>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextLayout>
#include <QTimer>
#include <QToolTip>
#include <QWindow>
#include <filesystem>
#include <set>

#include "commands/HelpCommands.h"
#include "core/ClassifyError.h"
#include "core/RuntimeError.h"
#include "desktop/AllForms.h"
#include "desktop/services/HelpBrowser.h"
#include "desktop/services/HelpFile.h"
#include "desktop/services/HelpQuery.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/frmHelp.h"
#include "desktop/support/ContextHelp.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Icons.h"
#include "services/HelpTexts.h"
#include "services/HelpTopics.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

namespace fs = std::filesystem;

class HelpWindow : public testing::Test {
 protected:
  HelpWindow() {
    InitResources();
    bench.State.Places.AppPath = folder / "";
    bench.State.Places.Docs = KORVA_BUILT_DOCS "/";
    bench.State.Places.IniFile = folder / "KORVA-STROND.INI";
    bench.State.Places.TempRoot = bench.State.Places.ProductFolder = folder / "";
    bench.State.Preferences.DataPath = folder / "";
    bench.State.Preferences.ShowDisclaim = false;
  }
  ~HelpWindow() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  static frmHelp* OpenHelp() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* help = qobject_cast<frmHelp*>(window); help != nullptr && help->isVisible()) {
        return help;
      }
    }
    return nullptr;
  }
  // The fragment of the page that the help window shows.
  static std::string Shown() {
    const frmHelp* help = OpenHelp();
    return help == nullptr ? "no help window"
                           : The<QTextBrowser>(*help, "Browser").source().fragment().toStdString();
  }
  static QByteArray Built(const char* name) {
    QFile file(QDir(QStringLiteral(KORVA_BUILT_DOCS)).filePath(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
  }
  static std::vector<QString> All(const QString& text, const char* pattern) {
    std::vector<QString> found;
    for (auto match = QRegularExpression(QLatin1String(pattern)).globalMatch(text); match.hasNext();) {
      found.push_back(match.next().captured(1));
    }
    return found;
  }

  TempFolder folder;
  FormBench bench;
};

bool IsOurs(const QString& name) {
  return !name.isEmpty() && !name.startsWith(QLatin1String("qt_")) && !name.startsWith(QLatin1Char('_'));
}

bool TakesFocus(const QWidget& widget) {
  return widget.focusPolicy() != Qt::NoFocus && qobject_cast<const QMenu*>(&widget) == nullptr &&
         qobject_cast<const QTabBar*>(widget.parentWidget()) == nullptr;  // its arrows
}

TEST_F(HelpWindow, TheListOfFormsIsWhole) {
  const AllForms forms(bench);
  std::set<std::string> listed;
  for (const auto& form : forms.List()) {
    listed.insert(form->objectName().toStdString());
  }
  std::set<std::string> there;
  for (const auto& entry : fs::recursive_directory_iterator(KORVA_DESKTOP_SOURCES)) {
    const std::string stem = Utf8Of(entry.path().stem());
    if (entry.path().extension() == ".h" && stem.starts_with("frm") && stem != "frmKORVAParmControls") {
      there.insert(stem);
    }
  }
  EXPECT_EQ(listed, there);
}

TEST_F(HelpWindow, EveryControlAndMenuCommandHasItsTopic) {
  const auto help = HelpFile::Open(QStringLiteral(KORVA_BUILT_DOCS "/korva-strond.qch"));
  ASSERT_NE(help, nullptr);
  const auto knows = [&help](const std::vector<std::string>& labels) {
    return !help->Topic(labels).isEmpty();
  };
  const AllForms forms(bench);
  int controls = 0;
  for (const auto& form : forms.List()) {
    const std::string name = form->objectName().toStdString();
    EXPECT_TRUE(knows({HelpLabel(name)})) << HelpLabel(name);
    const auto own = [&](const QString& control) {
      auto labels = HelpLabels(name, {control.toStdString()});
      labels.pop_back();  // the form's
      ++controls;
      EXPECT_TRUE(knows(labels)) << "no topic " << HelpLabel(name, control.toStdString());
    };
    for (const auto* widget : form->findChildren<QWidget*>()) {
      if (widget->window() != form.get() || !TakesFocus(*widget)) {
        continue;
      }
      if (IsOurs(widget->objectName())) {
        own(widget->objectName());
      } else {  // a part of a control, which stands for it
        auto labels = HelpLabelsOf(*widget);
        labels.erase(std::remove(labels.begin(), labels.end(), HelpLabel(name)), labels.end());
        EXPECT_TRUE(knows(labels)) << name
                                   << " has a control without name: " << widget->metaObject()->className();
      }
    }
    for (const auto* action : form->findChildren<QAction*>()) {
      if (IsOurs(action->objectName()) && !action->isSeparator() && action->menu() == nullptr) {
        own(action->objectName());
      }
    }
  }
  EXPECT_GT(controls, 250);
  EXPECT_TRUE(knows({std::string(kStabilityFactorsTopic)}));
}

TEST_F(HelpWindow, TheTopicsOfMessagesAreThere) {
  const auto help = HelpFile::Open(QStringLiteral(KORVA_BUILT_DOCS "/korva-strond.qch"));
  ASSERT_NE(help, nullptr);
  std::set<std::string> topics = {Message().topic};
  for (const int number : {5, 6, 7, 9, 11, 13, 53, 55, 57, 61, 62, 70, 75, 76, 482}) {
    topics.insert("error-" + std::to_string(number));
  }
  for (const char* sources : {KORVA_DESKTOP_SOURCES, KORVA_DESKTOP_SOURCES "/../src"}) {
    for (const auto& entry : fs::recursive_directory_iterator(sources)) {
      if (entry.path().extension() == ".cpp") {
        const QString text = QString::fromStdString(TempFolder::Bytes(Utf8Of(entry.path())));
        for (const QString& topic : All(text, "\"((?:messages|warnings|refusal)-[a-z]+)\"")) {
          topics.insert(topic.toStdString());
        }
      }
    }
  }
  EXPECT_GT(topics.size(), 20U);
  for (const std::string& topic : topics) {
    EXPECT_FALSE(help->Topic({topic}).isEmpty()) << topic;
  }
}

TEST_F(HelpWindow, EveryLinkLeadsToAPlace) {
  const QString project = QString::fromUtf8(Built("help/korva-strond.qhp"));
  std::map<QString, std::set<QString>> anchors;
  std::vector<std::pair<QString, QString>> links;  // from, to
  for (const QString& name : All(project, "<file>([^<]*)</file>")) {
    const QString text = name.endsWith(QLatin1String(".html"))
                             ? QString::fromUtf8(Built(qPrintable("help/" + name)))
                             : QString();
    const auto names = All(text, "<a name=\"([^\"]*)\"");
    anchors[name] = {names.begin(), names.end()};
    for (const char* pattern : {"href=\"([^\"]*)\"", "src=\"([^\"]*)\""}) {
      for (const QString& target : All(text, pattern)) {
        links.emplace_back(name, target.startsWith(QLatin1Char('#')) ? name + target : target);
      }
    }
  }
  for (const QString& target : All(project, "ref=\"([^\"]*)\"")) {
    links.emplace_back(QStringLiteral("contents or index"), target);
  }
  for (const QString& target : All(QString::fromUtf8(Built("help/labels.tsv")), "\t(.*)\n")) {
    links.emplace_back(QStringLiteral("a label"), target);
  }
  EXPECT_GT(links.size(), 1000U);
  for (const auto& [from, to] : links) {
    const auto page = anchors.find(to.section(QLatin1Char('#'), 0, 0));
    const QString place = to.section(QLatin1Char('#'), 1);
    EXPECT_TRUE(page != anchors.end() && (place.isEmpty() || page->second.count(place) == 1))
        << qPrintable(from) << " leads to " << qPrintable(to);
  }
}

TEST_F(HelpWindow, OpensAtTheControlAndAtMenuCommands) {
  frmMain main(bench.State, bench.Ports.All, bench.Pictures);
  main.Begin({});
  frmSet settings(bench.Forms, &main);
  settings.show();
  QTest::keyClick(&The<QWidget>(settings, "cmdOK"), Qt::Key_F1);
  EXPECT_EQ(Shown(), "frmset-cmdok");
  QTest::keyClick(&settings, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(Shown(), "frmset-cmdok") << "only F1 alone";
  OpenHelp()->close();
  auto& menu = The<QMenu>(main, "mnuFile");
  menu.popup(QPoint(0, 0));
  menu.setActiveAction(&The<QAction>(main, "mnuFileItem(3)"));
  QTest::keyClick(&menu, Qt::Key_F1);
  EXPECT_EQ(Shown(), "frmmain-mnufileitem-3");
  EXPECT_FALSE(menu.isVisible());
  QTest::keyClick(&main, Qt::Key_F1);
  EXPECT_EQ(Shown(), "frmmain");
  QTest::keyClick(OpenHelp(), Qt::Key_Escape);
  EXPECT_EQ(OpenHelp(), nullptr);
}

// The window system's own click, which a locked window does not get.
void ClickInWindow(const QWidget& control) {
  const QWidget& window = *control.window();
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    control.mapTo(&window, control.rect().center()));
}

TEST_F(HelpWindow, StaysUsableWhileDialogsWait) {
  frmMain main(bench.State, bench.Ports.All, bench.Pictures);
  main.Begin({});
  main.ShowHelp({"frmmain"});
  frmHelp& help = *OpenHelp();
  auto& browser = The<QTextBrowser>(help, "Browser");
  const auto usable = [&] {
    browser.setSource(browser.source().resolved(QUrl(QStringLiteral("glossary.html"))));
    QApplication::processEvents();
    ClickInWindow(The<QWidget>(help, "cmdHome"));
    return browser.source().fileName() == QLatin1String("index.html");
  };
  EXPECT_TRUE(usable());
  int steps = 0;
  QTimer::singleShot(0, &help, [&] {
    QDialog& dialog = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
    EXPECT_TRUE(usable()) << "open before the dialog";
    QDialog inner(&dialog);
    QTimer::singleShot(0, &help, [&] {
      EXPECT_TRUE(usable()) << "a dialog over the dialog";
      ++steps;
      inner.close();
    });
    inner.exec();
    help.close();
    QTest::keyClick(&dialog, Qt::Key_F1);
    EXPECT_TRUE(usable()) << "opened from the dialog";
    ++steps;
    dialog.close();
  });
  The<QAction>(main, "mnuUtilItem(2)").trigger();
  EXPECT_EQ(steps, 2);
  EXPECT_TRUE(help.isVisible());
  EXPECT_TRUE(usable()) << "after the dialogs";
  EXPECT_NE(FrontWindow(), &help) << "boxes belong to the window at work";
}

TEST_F(HelpWindow, ContentsIndexAndSearchLeadToPages) {
  const auto help = frmHelp::Open(bench.Forms);
  ASSERT_NE(help, nullptr);
  auto& browser = The<QTextBrowser>(*help, "Browser");
  help->ShowContents();
  auto& contents = The<QHelpContentWidget>(*help, "Contents");
  ASSERT_SOON(contents.model()->rowCount() > 0);
  help->ShowTopic({"theory-traditional"});
  EXPECT_EQ(contents.currentIndex().data().toString(), QStringLiteral("The traditional loading model"));
  help->ShowTopic({"frmhelp-lstsearch"});
  EXPECT_EQ(contents.currentIndex().data().toString(), QStringLiteral("Contents, index and search"));
  EXPECT_EQ(contents.currentIndex().parent().data().toString(), QStringLiteral("The help window"));
  help->ShowIndex();
  auto& words = The<QHelpIndexWidget>(*help, "Index");
  ASSERT_SOON(words.model()->rowCount() > 100);
  for (int row = 0; row < words.model()->rowCount(); ++row) {
    EXPECT_FALSE(words.model()->index(row, 0).data().toString().isEmpty());
  }
  QTest::keyClicks(&The<QLineEdit>(*help, "txtIndex"), QStringLiteral("glossary"));
  QTest::keyClick(&The<QLineEdit>(*help, "txtIndex"), Qt::Key_Return);
  EXPECT_EQ(browser.source().fileName(), QStringLiteral("glossary.html"));

  auto& query = The<QLineEdit>(*help, "txtSearch");
  QTest::keyClicks(&query, QStringLiteral("bleeder"));
  QTest::keyClick(&query, Qt::Key_Return);
  auto& found = The<QListWidget>(*help, "lstSearch");
  ASSERT_SOON(found.count() > 1);
  for (const int entry : {0, found.count() - 1}) {
    emit found.itemActivated(found.item(entry));
    EXPECT_EQ(browser.source(), found.item(entry)->data(Qt::UserRole).toUrl());
    EXPECT_TRUE(
        browser.textCursor().selectedText().startsWith(QLatin1String("bleeder"), Qt::CaseInsensitive));
  }
  const auto finds = [&](const char* typed) {
    query.setText(QString::fromUtf8(typed));
    The<QLabel>(*help, "lblSearch").clear();
    QTest::keyClick(&query, Qt::Key_Return);
    ASSERT_SOON(!The<QLabel>(*help, "lblSearch").text().isEmpty());
    if (found.count() > 0) {
      emit found.itemActivated(found.item(0));
    }
  };
  finds("center-to-center");
  EXPECT_EQ(browser.textCursor().selectedText().toLower(), QStringLiteral("center-to-center"));
  finds("without active gob");
  ASSERT_GT(found.count(), 0);
  EXPECT_EQ(browser.textCursor().selectedText().toLower(), QStringLiteral("without"));
  for (const char* word : {"example", "else", "factor"}) {  // in cells, beside formulas and quotation marks
    finds(word);
    EXPECT_GT(found.count(), 5);
    for (int entry = 0; entry < found.count(); ++entry) {
      const QListWidgetItem& item = *found.item(entry);
      EXPECT_TRUE(item.data(Qt::UserRole).toUrl().path().endsWith(QLatin1String(".html")));
      emit found.itemActivated(found.item(entry));
      EXPECT_TRUE(browser.textCursor().hasSelection()) << qPrintable(item.text()) << ", " << word;
    }
  }
  finds("entry AND OR (");
  EXPECT_GT(found.count(), 1) << "no words of the engine's language";
  finds("qwertz");
  EXPECT_EQ(found.count(), 0);
}

TEST_F(HelpWindow, NothingIsSaidOfPagesThatWereNotRead) {
  const auto help = frmHelp::Open(bench.Forms);
  ASSERT_NE(help, nullptr);
  help->show();
  The<QTabWidget>(*help, "tabHelp").setCurrentIndex(2);
  auto& query = The<QLineEdit>(*help, "txtSearch");
  auto& found = The<QLabel>(*help, "lblSearch");
  query.setText(QStringLiteral("bleeder"));
  std::set<std::string> said;
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(&query, Qt::Key_Return);
    QCoreApplication::processEvents();
    said.insert(found.text().toStdString());
  }
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        said.insert(found.text().toStdString());
        return found.text().endsWith(QLatin1String(" pages"));
      },
      30'000));
  said.erase("");
  said.erase("Reading the pages...");
  EXPECT_EQ(said.size(), 1U) << *said.begin();
}

TEST_F(HelpWindow, MayEndInTheMiddleOfASearch) {
  for (int round = 0; round < 20; ++round) {
    const auto help = frmHelp::Open(bench.Forms);
    help->show();
    The<QTabWidget>(*help, "tabHelp").setCurrentIndex(2);
    auto& query = The<QLineEdit>(*help, "txtSearch");
    query.setText(QStringLiteral("bleeder"));
    QTest::keyClick(&query, Qt::Key_Return);
    if (round % 2 == 0) {
      ASSERT_SOON(The<QListWidget>(*help, "lstSearch").count() > 0);
      QTest::keyClick(&query, Qt::Key_Return);
    }
  }
}

TEST(HelpQuery, TakesWordsAndPhrases) {
  const std::pair<const char*, const char*> cases[] = {
      {"pillar  strength", "\"pillar\" \"strength\""},
      {"center-to-center 1.5", "\"center to center\" \"1 5\""},
      {"\"in situ, strength\" coal", "\"in situ strength\" \"coal\""},
      {"a \"b c", "\"a\" \"b c\""},
      {"\u00fcber* NOT:", "\"\u00fcber\" \"NOT\""},
      {" % \"\" -", ""},
  };
  for (const auto& [typed, query] : cases) {
    EXPECT_EQ(FullTextQuery(QString::fromUtf8(typed)), QString::fromUtf8(query)) << typed;
  }
}

TEST(HelpQuery, ReadsExcerpts) {
  const HelpExcerpt hit =
      ExcerptOf(QStringLiteral("...&quot;a&quot; &lt;\n<b>Pillar</b> and <b>pillars</b>..."));
  EXPECT_EQ(hit.Text, QStringLiteral("\"a\" <\nPillar and pillars"));
  EXPECT_EQ(hit.Text.mid(hit.At, hit.Hits), QStringLiteral("Pillar"));
  const HelpExcerpt none = ExcerptOf(QStringLiteral("&amp;lt;"));
  EXPECT_EQ(none.Text, QStringLiteral("&lt;"));
  EXPECT_EQ(none.Hits, 0);
  const HelpExcerpt cut = ExcerptOf(QStringLiteral("...quot;, else &quot;<b>rows</b>&quot..."));
  EXPECT_EQ(cut.Text, QStringLiteral("\", else \"rows\"")) << "the engine cuts within a sign";
  EXPECT_EQ(cut.Text.mid(cut.At, cut.Hits), QStringLiteral("rows"));
}

TEST(HelpQuery, ShowsExcerptsWithoutSignsOfThePage) {
  const std::pair<const char*, const char*> cases[] = {
      {"...Depth\n<b>900</b> ft...", "\u2026Depth \u00b7 <b>900</b> ft\u2026"},
      {"Without a barrier (\uFFFC\uFFFC) \n \uFFFC\n\uFFFC\nthe load",
       "Without a barrier (\u2026) \u00b7 the load"},
      {"...quot; a &lt; b&quot...", "\u2026&quot; a &lt; b&quot;\u2026"},
  };
  for (const auto& [snippet, shown] : cases) {
    EXPECT_EQ(ShownSnippet(QString::fromUtf8(snippet)), QString::fromUtf8(shown)) << snippet;
  }
}

TEST_F(HelpWindow, TheContentsFitOrTellWhatIsCutOff) {
  const auto help = frmHelp::Open(bench.Forms);
  help->resize(help->sizeHint());
  help->ShowContents();
  auto& contents = The<QHelpContentWidget>(*help, "Contents");
  ASSERT_SOON(contents.model()->rowCount() > 0);
  contents.expandAll();
  const auto told = [&](const QModelIndex& entry) {
    contents.scrollTo(entry);
    const QPoint middle = contents.visualRect(entry).center();
    QHelpEvent rest(QEvent::ToolTip, middle, contents.viewport()->mapToGlobal(middle));
    QApplication::sendEvent(contents.viewport(), &rest);
    return QToolTip::text();
  };
  const QModelIndex top = contents.model()->index(0, 0);
  for (int group = 0; group < contents.model()->rowCount(top); ++group) {
    EXPECT_EQ(told(contents.model()->index(group, 0, top)).toStdString(), "");
  }
  const QModelIndex tutorial = contents.model()->index(0, 0, contents.model()->index(0, 0, top));
  EXPECT_EQ(told(tutorial), tutorial.data().toString());
  QToolTip::hideText();
}

TEST_F(HelpWindow, LettersWithAltLeadIntoTheTabs) {
  const auto help = frmHelp::Open(bench.Forms);
  help->ShowContents();
  QApplication::setActiveWindow(help.get());
  const auto lead = [&](Qt::Key letter, const char* name) {
    for (const bool again : {false, true}) {
      QTest::keyClick(help->windowHandle(), letter, Qt::AltModifier);
      QApplication::processEvents();
      EXPECT_TRUE(The<QWidget>(*help, name).hasFocus()) << name << (again ? " again" : "");
      The<QTextBrowser>(*help, "Browser").setFocus();
    }
  };
  lead(Qt::Key_S, "txtSearch");
  lead(Qt::Key_I, "txtIndex");
  lead(Qt::Key_C, "Contents");
}

TEST_F(HelpWindow, KeysLeadFromATextToTheListBelowAndBack) {
  const auto help = frmHelp::Open(bench.Forms);
  help->ShowIndex();
  QApplication::setActiveWindow(help.get());
  auto& tabs = The<QTabWidget>(*help, "tabHelp");
  const auto press = [](Qt::Key key, const char* name) {
    QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(name));
  };
  const auto leadThereAndBack = [&](const char* text, const char* list) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown}) {
      press(key, list);
      EXPECT_EQ(The<QListView>(*help, list).currentIndex().row(), 0);
      press(Qt::Key_Down, list);
      press(Qt::Key_Up, list);
      press(Qt::Key_Up, text);
    }
  };
  ASSERT_SOON(The<QListView>(*help, "Index").model()->rowCount() > 1);
  leadThereAndBack("txtIndex", "Index");
  tabs.setCurrentIndex(2);
  tabs.currentWidget()->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("pillar"));
  press(Qt::Key_Return, "txtSearch");
  ASSERT_SOON(The<QListWidget>(*help, "lstSearch").count() > 1);
  leadThereAndBack("txtSearch", "lstSearch");
  press(Qt::Key_Tab, "cmdSearch");
  press(Qt::Key_Tab, "lstSearch");
}

TEST_F(HelpWindow, BoxesHaveTheirOwnTopics) {
  frmMain main(bench.State, bench.Ports.All, bench.Pictures);
  main.Begin({});
  QtMessages boxes;
  std::vector<std::string> shown;
  const auto ask = [&] {
    QTimer::singleShot(0, &main, [&] {
      QWidget* box = QApplication::activeModalWidget();
      QTest::keyClick(box, Qt::Key_F1);
      shown.push_back(Shown());
      EXPECT_GE(box->width(), TitleWidth(*box));
      box->close();
    });
  };
  ask();
  ShowAbout(bench.State, boxes);
  ask();
  ShowMessage(bench.State, boxes, {.text = "a", .title = "A title longer than the message below it"});
  ask();
  ClassifyError(bench.State, boxes, RuntimeError(ErrorNumber::kSubscript, "a test"), true);
  EXPECT_EQ(shown, (std::vector<std::string>{"about", "messages", "error-9"}));
}

TEST_F(HelpWindow, FindsInThePageAndZooms) {
  const auto help = frmHelp::Open(bench.Forms);
  help->ShowTopic({"glossary"});
  auto& browser = The<QTextBrowser>(*help, "Browser");
  auto& text = The<QLineEdit>(*help, "txtFind");
  QTest::keyClicks(&text, QStringLiteral("pillar"));
  QTest::keyClick(&text, Qt::Key_Return);
  const int first = browser.textCursor().position();
  EXPECT_EQ(browser.textCursor().selectedText().toLower(), QStringLiteral("pillar"));
  Click(*help, "cmdNext");
  EXPECT_GT(browser.textCursor().position(), first);
  Click(*help, "cmdPrevious");
  EXPECT_EQ(browser.textCursor().position(), first);
  text.setText(QStringLiteral("no such words here"));
  QTest::keyClick(&text, Qt::Key_Return);
  EXPECT_EQ(browser.textCursor().position(), first);
  const double before = browser.document()->size().height();
  Click(*help, "cmdZoomIn");
  EXPECT_GT(browser.document()->size().height(), before);
  QTest::keyClick(help.get(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(browser.document()->size().height(), before);
}

// Where the line of a position stands in the view.
int LineAt(const HelpBrowser& browser, int position) {
  QTextCursor line(browser.document());
  line.setPosition(position);
  return browser.cursorRect(line).top();
}

// The page is set anew when the width has come to rest.
void ResizeAndWait(frmHelp& help, const QSize& size) {
  const QSignalSpy set(&The<HelpBrowser>(help, "Browser"), &QTextBrowser::sourceChanged);
  help.resize(size);
  ASSERT_SOON(set.count() > 0);
  QApplication::processEvents();
}

TEST_F(HelpWindow, TheHeadingOfATopicStandsAtTheTop) {
  for (const char* topic : {"frmkorvaparm-txtdepthcover", "frmkorvaparm-cmdok", "tutorial-graph",
                            "result-barrier-sf", "theory-traditional", "frmhelp-lstsearch"}) {
    SCOPED_TRACE(topic);
    const auto help = frmHelp::Open(bench.Forms);  // hidden
    auto& browser = The<HelpBrowser>(*help, "Browser");
    const int room = SpacingUnit(browser);
    const auto stands = [&] {
      const int top = LineAt(browser, browser.PositionOf(browser.source().fragment()));
      const QScrollBar& bar = *browser.verticalScrollBar();
      return top == room || (bar.value() == bar.maximum() && top > 0 && top < browser.viewport()->height());
    };
    help->ShowTopic({topic});
    EXPECT_TRUE(stands()) << "at once";
    const QSize before = help->size();
    ResizeAndWait(*help, before * 3 / 4);
    EXPECT_TRUE(stands()) << "smaller window";
    for (const int zoom : {150, 70}) {
      browser.SetZoom(zoom);
      EXPECT_TRUE(stands()) << zoom << " percent";
    }
    EXPECT_EQ(browser.verticalScrollBar()->maximum() + browser.verticalScrollBar()->pageStep(),
              qRound(browser.document()->size().height()));
  }
}

TEST_F(HelpWindow, WhatAPersonLooksAtStays) {
  const auto help = frmHelp::Open(bench.Forms);
  auto& browser = The<HelpBrowser>(*help, "Browser");
  help->ShowTopic({"tutorial"});
  const int line = browser.PositionOf(QStringLiteral("tutorial-graph"));
  browser.verticalScrollBar()->setValue(browser.verticalScrollBar()->value() + LineAt(browser, line) - 3);
  const QSize before = help->size();
  const auto stays = [&](const std::function<int()>& height) {
    const int there = height();
    browser.SetZoom(browser.Zoom() + 60);
    EXPECT_EQ(height(), there) << "larger";
    browser.SetZoom(browser.Zoom() - 90);
    EXPECT_EQ(height(), there) << "smaller";
    browser.SetZoom(browser.Zoom() + 30);
    EXPECT_EQ(height(), there) << "as before";
    QPalette colours = browser.palette();
    colours.setColor(QPalette::Text, Qt::darkBlue);
    help->setPalette(colours);
    EXPECT_EQ(height(), there) << "colours";
    ResizeAndWait(*help, before * 3 / 4);
    EXPECT_EQ(height(), there) << "smaller window";
    help->ShowTopic({"glossary"});
    ResizeAndWait(*help, before);
    Click(*help, "cmdBack");
    EXPECT_EQ(height(), there) << "page left and window as before";
  };
  stays([&] { return LineAt(browser, line); });
  ASSERT_TRUE(browser.FindText(QStringLiteral("barrier")));
  ASSERT_TRUE(browser.FindText(QStringLiteral("barrier")));
  const int hit = browser.textCursor().selectionStart();
  stays([&] {
    EXPECT_EQ(browser.textCursor().selectionStart(), hit);
    EXPECT_EQ(browser.textCursor().selectedText().toLower(), QStringLiteral("barrier"));
    return LineAt(browser, hit);
  });
}

// What is wrong with the lines of a page: words in two lines, and pictures with a gap below them.
std::vector<QString> FaultsOfLines(const QTextDocument& page) {
  std::vector<QString> faults;
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    const QString text = block.text();
    const QTextLayout& layout = *block.layout();
    for (int i = 0; i + 1 < layout.lineCount(); ++i) {
      const int next = layout.lineAt(i + 1).textStart();
      if (text[next - 1].isLetterOrNumber() && text[next].isLetterOrNumber()) {
        faults.push_back(text.left(next) + QLatin1Char('|') + text.mid(next));
      }
    }
    const QRectF place = page.documentLayout()->blockBoundingRect(block);
    const double gap = page.documentLayout()->blockBoundingRect(block.next()).top() - place.bottom();
    if (text == QString(QChar::ObjectReplacementCharacter) && gap > 20 + place.height() / 10) {
      faults.push_back(QStringLiteral("a gap below a picture, above ") + block.next().text());
    }
  }
  return faults;
}

TEST_F(HelpWindow, PagesFitInTheWindow) {
  const auto help = frmHelp::Open(bench.Forms);
  help->resize(help->sizeHint());
  help->ShowContents();
  auto& browser = The<HelpBrowser>(*help, "Browser");
  for (const QString& page : QDir(QStringLiteral(KORVA_BUILT_DOCS "/help")).entryList({"*.html"})) {
    browser.setSource(browser.source().resolved(QUrl(page)));
    QApplication::processEvents();
    EXPECT_FALSE(browser.horizontalScrollBar()->isVisible()) << qPrintable(page);
    for (const QString& fault : FaultsOfLines(*browser.document())) {
      ADD_FAILURE() << qPrintable(page) << ": " << qPrintable(fault);
    }
  }
}

TEST_F(HelpWindow, LinksOutOfTheHelpAreOnlyShown) {
  const auto help = frmHelp::Open(bench.Forms);
  auto& browser = The<QTextBrowser>(*help, "Browser");
  const QUrl page = browser.source();
  bench.Ports.Messages.Expect("This link leads out of the help: https://example.invalid/");
  browser.setSource(QUrl(QStringLiteral("https://example.invalid/")));
  EXPECT_EQ(browser.source(), page);
  EXPECT_FALSE(browser.loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("file:///etc/passwd")))
                   .isValid());
}

TEST_F(HelpWindow, AMissingOrDamagedFileIsSaidAndNothingIsLeftBehind) {
  bench.State.Places.Docs.clear();
  const TempFolder temp;  // other programs, and other tests, have their help in the common one
  const EnvironmentValue folderOfAll("TMPDIR", temp / "");
  const auto leftovers = [&temp] { return temp.Names().size(); };
  const QByteArray whole = Built("korva-strond.qch");
  const auto refused = [&] {
    bench.Ports.Messages.Expect("Help file (korva-strond.qch) not available");
    EXPECT_EQ(frmHelp::Open(bench.Forms), nullptr);
  };
  refused();
  for (const qsizetype length : {qsizetype{0}, qsizetype{100}, qsizetype{5000}, whole.size() / 2}) {
    folder.Put("korva-strond.qch", std::string_view(whole.constData(), static_cast<std::size_t>(length)));
    refused();
  }
  folder.Put("korva-strond.qch", std::string(5000, 'x'));
  refused();
  folder.Put("korva-strond.qch", std::string_view(whole.constData(), static_cast<std::size_t>(whole.size())));
  {
    const auto one = frmHelp::Open(bench.Forms);
    const auto other = frmHelp::Open(bench.Forms);
    EXPECT_TRUE(one && other);
    EXPECT_EQ(leftovers(), 2U);
  }
  EXPECT_EQ(leftovers(), 0U);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"korva-strond.qch"});
}

}  // namespace
}  // namespace korva::desktop
