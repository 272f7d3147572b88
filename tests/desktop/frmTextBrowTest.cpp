#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <filesystem>
#include <random>

#include "desktop/FormBench.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/frmTextBrow.h"
#include "files/UtilINI.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

namespace fs = std::filesystem;

class TextBrowse : public testing::Test {
 protected:
  TextBrowse() {
    bench.State.Places.IniFile = folder / "KORVA-STROND.INI";
    bench.State.Places.TempRoot = folder / "Temp/";
    bench.State.Preferences.DataPath = folder / "";
    fs::create_directory(folder / "mine");
    folder.Put("a.KVL", "first\r\nline");
    folder.Put("b.kvl", "second");
    folder.Put("notes.txt", "a note");
    folder.Put("mine/deep.KVL", "deep");
  }

  // As the form has it: without the double separators of the temporary folder's name.
  std::string Plain(const char* name) const { return Utf8Of((folder.Path() / name).lexically_normal()); }
  frmTextBrow& Open() {
    form = std::make_unique<frmTextBrow>(bench.Forms);
    form->show();
    return *form;
  }
  QString Shown() { return The<QPlainTextEdit>(*form, "RichTextBox1").toPlainText(); }
  QString Words() { return The<QLabel>(*form, "lblProgress").text(); }
  bool Comes(const QString& text) {
    return QTest::qWaitFor([&] { return Shown() == text && Words().isEmpty(); });
  }
  QStringList Files() {
    QStringList names;
    const auto& model = *The<QListView>(*form, "File1").model();
    for (int row = 0; row < model.rowCount(); ++row) {
      names << model.index(row, 0).data().toString();
    }
    return names;
  }
  void Select(const char* list, const QString& name) {
    auto& view = The<QListView>(*form, list);
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      const QModelIndex index = view.model()->index(row, 0);
      if (index.data().toString().trimmed() == name) {
        view.setCurrentIndex(index);
        return;
      }
    }
    ADD_FAILURE() << "no row " << name.toStdString();
  }
  void PressEnter(const char* control) { QTest::keyClick(&The<QWidget>(*form, control), Qt::Key_Return); }
  void DoubleClick(const char* list) {
    auto& view = The<QListView>(*form, list);
    const QPoint at = view.visualRect(view.currentIndex()).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
  }
  void ShowNamed(const QString& name) {
    Select("File1", name);
    PressEnter("File1");
  }
  std::string Saved(const char* key) {
    return GetIniValue(TempFolder::Bytes(bench.State.Places.IniFile), "TextBrowse", key, "none");
  }

  TempFolder folder;
  FormBench bench;
  std::unique_ptr<frmTextBrow> form;
};

TEST_F(TextBrowse, FiltersTakeNames) {
  const auto fits = [](const QString& name, const QString& filter) {
    FileList list;
    list.SetFilter(filter);
    list.SetNames({name.toStdString()});
    return list.rowCount() == 1;
  };
  for (const char* filter : {"*.kvl", "*.KVL;*.txt", " ;a*.*", "?.kvl", "*", "", "*.*", "a*.*l", "**v*"}) {
    EXPECT_TRUE(fits(QStringLiteral("a.Kvl"), QLatin1String(filter))) << filter;
  }
  for (const char* filter : {"*.kv", "?", "b*", "*.", "a.kvl2", "a.?", ".*", "[a].kvl"}) {
    EXPECT_FALSE(fits(QStringLiteral("a.Kvl"), QLatin1String(filter))) << filter;
  }
  EXPECT_TRUE(fits(QStringLiteral("README"), QStringLiteral("*.*")));
  EXPECT_TRUE(fits(QStringLiteral("README"), QStringLiteral("*.")));
  EXPECT_TRUE(fits(QStringLiteral("ÄB漢.txt"), QStringLiteral("äb?.TXT")));
  EXPECT_FALSE(fits(QStringLiteral(".hidden"), QStringLiteral("*")));
  EXPECT_TRUE(fits(QStringLiteral(".hidden"), QStringLiteral(".*")));
  const QString stars = QStringLiteral("*a").repeated(50) + QStringLiteral("b");
  EXPECT_FALSE(fits(QString(250, QLatin1Char('a')), stars)) << "in no time";
}

TEST_F(TextBrowse, FolderAndFilterAreKept) {
  Open();
  EXPECT_EQ(The<QLineEdit>(*form, "Text2").text(), QStringLiteral("*.KVL"));
  EXPECT_EQ(Files(), (QStringList{QStringLiteral("a.KVL"), QStringLiteral("b.kvl")}));
  auto& filter = The<QLineEdit>(*form, "Text2");
  filter.setText(QStringLiteral("*.txt"));
  EXPECT_EQ(Files(), QStringList(QStringLiteral("notes.txt")));
  folder.Put("later.txt", "");
  PressEnter("Text2");
  EXPECT_EQ(Files(), (QStringList{QStringLiteral("later.txt"), QStringLiteral("notes.txt")}));
  EXPECT_TRUE(form->isVisible());
  filter.setText(QStringLiteral("*.k*"));
  Select("Dir1", QStringLiteral("mine"));
  DoubleClick("Dir1");
  EXPECT_EQ(Files(), QStringList(QStringLiteral("deep.KVL")));
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(Saved("BrowseDefaultFilter") + Saved("BrowseUseNotepad"), "*.k*0");
  EXPECT_EQ(bench.State.LastBrowseFolder, Plain("mine"));

  Open();
  EXPECT_EQ(Files(), QStringList(QStringLiteral("deep.KVL")));
  Select("Dir1", FromUtf8(Utf8Of(folder.Path().filename())));
  PressEnter("Dir1");
  EXPECT_EQ(Files().size(), 2);
  bench.State.LastBrowseFolder.clear();  // a new start
  bench.State.Preferences.TextBrowse.BrowseDefaultFilter.clear();
  Open();
  EXPECT_EQ(Files().size(), 2);
}

TEST_F(TextBrowse, AFolderThatIsGoneIsTold) {
  Open();
  Select("Dir1", QStringLiteral("mine"));
  fs::remove_all(folder / "mine");
  const auto refuse = [this] { bench.Ports.Messages.Expect("Error occurred: Path not found (76)"); };
  refuse();
  PressEnter("Dir1");
  EXPECT_EQ(Files().size(), 2) << "everything stays";
  bench.State.LastBrowseFolder = folder / "mine";
  refuse();
  Open();
  EXPECT_EQ(The<QListWidget>(*form, "Dir1").currentItem()->text(), QStringLiteral("/"));
  The<QComboBox>(*form, "Drive1").addItem(QStringLiteral("/no/such/volume"));
  refuse();
  emit The<QComboBox>(*form, "Drive1").textActivated(QStringLiteral("/no/such/volume"));
  EXPECT_EQ(The<QComboBox>(*form, "Drive1").currentText(), QStringLiteral("/"));
}

TEST_F(TextBrowse, ADoubleClickOrEnterShowsAFile) {
  Open();
  Select("File1", QStringLiteral("a.KVL"));
  DoubleClick("File1");
  EXPECT_TRUE(Comes(QStringLiteral("first\nline")));
  EXPECT_EQ(The<QLabel>(*form, "Label1").text().toStdString(), Plain("a.KVL"));
  ShowNamed(QStringLiteral("b.kvl"));
  EXPECT_TRUE(Comes(QStringLiteral("second")));
  EXPECT_TRUE(form->isVisible());
  EXPECT_TRUE(The<QPlainTextEdit>(*form, "RichTextBox1").isReadOnly());

  fs::remove(folder / "a.KVL");
  bench.Ports.Messages.Expect("Error occurred: File not found (53)", MessageButtons::kRetryCancel,
                              MessageAnswer::kCancel);
  ShowNamed(QStringLiteral("a.KVL"));
  EXPECT_EQ(Shown(), QString()) << "not another file's text under this name";

  fs::create_symlink("/proc/self/mem", folder / "fault.kvl");  // can be opened, and not be read
  PressEnter("Text2");
  bench.Ports.Messages.Expect("Error occurred: Device I/O error (57)", MessageButtons::kRetryCancel,
                              MessageAnswer::kCancel);
  ShowNamed(QStringLiteral("fault.kvl"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Words() == QStringLiteral("The rest could not be read"); }));
}

TEST_F(TextBrowse, TheExternalViewerGetsACopy) {
  Open();
  ShowNamed(QStringLiteral("b.kvl"));
  EXPECT_TRUE(Comes(QStringLiteral("second")));
  Click(*form, "Check1");
  EXPECT_FALSE(The<QWidget>(*form, "RichTextBox1").isEnabled());
  bench.State.Preferences.ExternalEditor = "ed";
  ShowNamed(QStringLiteral("a.KVL"));
  const std::string scratch = folder / "Temp/~tmpbr.tmp";
  EXPECT_EQ(bench.Ports.Programs.Calls, (std::vector<std::vector<std::string>>{{"ed", scratch}}));
  EXPECT_EQ(TempFolder::Bytes(scratch), "first\r\nline\r\n");
  EXPECT_EQ(Shown(), QString());
  form->close();
  EXPECT_EQ(Saved("BrowseUseNotepad"), "1");
  Open();
  EXPECT_TRUE(The<QCheckBox>(*form, "Check1").isChecked());
  EXPECT_FALSE(The<QWidget>(*form, "RichTextBox1").isEnabled());
}

TEST_F(TextBrowse, ProgramsStartWithTheirArgumentsAndWithoutAShell) {
  QtPrograms programs;
  EXPECT_FALSE(programs.Run("/no/such/program", {}));
  EXPECT_FALSE(programs.Run(folder / "a.KVL", {}));
  const std::string target = folder / "a copy; $HOME";
  EXPECT_TRUE(programs.Run("cp", {folder / "b.kvl", target}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(target) && fs::file_size(target) == 6; }));
}

TEST_F(TextBrowse, TheFontIsTheSettings) {
  FontSettings& font = bench.State.Preferences.TextBrowse.BrowseFont;
  font = {.Name = "Liberation Serif", .Size = 13, .Bold = -1};
  Open();
  const auto& text = The<QPlainTextEdit>(*form, "RichTextBox1");
  EXPECT_EQ(text.font().family() + QString::number(text.font().pointSize()),
            QStringLiteral("Liberation Serif13"));
  EXPECT_TRUE(text.font().bold());
  bench.Ports.Values.Fonts = {FontSettings{"Liberation Mono", 9, 0, 0}, std::nullopt};
  Click(*form, "cmdSetFont");
  Click(*form, "cmdSetFont");  // and Cancel
  EXPECT_EQ(text.font().pointSize(), 9);
  Click(*form, "cmdOK");
  EXPECT_EQ(Saved("BrowseFontName") + Saved("BrowseFontSize") + Saved("BrowseFontBold"), "Liberation Mono90");
}

TEST_F(TextBrowse, LargeFilesComeALittleAtATime) {
  std::mt19937 random(11);
  std::string bytes(1'500'000, '\0');
  for (char& c : bytes) {
    c = static_cast<char>(random());
  }
  folder.Put("random.kvl", bytes);
  folder.Put("line.kvl", std::string(2'000'000, 'x'));
  Open();
  for (const char* name : {"random.kvl", "line.kvl"}) {
    ShowNamed(QLatin1String(name));
    EXPECT_EQ(Words(), QStringLiteral("Loading... 0%"));
    bool midway = false;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
          midway = midway || (Words().startsWith(QStringLiteral("Loading... ")) &&
                              !The<QPlainTextEdit>(*form, "RichTextBox1").document()->isEmpty());
          return Words().isEmpty();
        },
        60'000));
    EXPECT_TRUE(midway);
  }
  EXPECT_EQ(Shown().size(), 2'000'000 + 1999);

  ShowNamed(QStringLiteral("random.kvl"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return Words() > QStringLiteral("Loading... 1"); }));
  ShowNamed(QStringLiteral("b.kvl"));
  EXPECT_TRUE(Comes(QStringLiteral("second")));
  ShowNamed(QStringLiteral("random.kvl"));
  form.reset();
}

}  // namespace
}  // namespace korva::desktop
