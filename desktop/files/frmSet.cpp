#include "desktop/files/frmSet.h"

#include <fmt/format.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

#include "commands/AcceptForms.h"
#include "commands/Attempt.h"
#include "commands/ExternalViewer.h"
#include "commands/SettingsCommands.h"
#include "core/Limits.h"
#include "core/NumberText.h"
#include "core/Tables.h"
#include "desktop/services/frmPath.h"
#include "files/PlatformFile.h"
#include "input/FieldNumber.h"

namespace korva::desktop {

namespace {

constexpr int kHistoryDigits = 6;

constexpr const char* kHistoryChecks = "history";
constexpr const char* kWindowChecks = "window";
constexpr const char* kFileChecks = "files";
constexpr std::array<CheckRow<Settings>, 9> kChecks = {{
    {kHistoryChecks, "chkDispHist", "Display command history window",
     "Keeps and shows the history of commands and messages", &Settings::DisplayHistoryWin},
    {kWindowChecks, "chkMaxMenu", "Maximize main window",
     "Starts with the main window as large as the screen", &Settings::MaxMainMenu},
    {kWindowChecks, "chkEnableTB", "Enable main menu toolbar", "Shows the buttons below the menu",
     &Settings::EnableMainMenuToolbar},
    {kWindowChecks, "chkShowDiscl", "Show disclaimer at start",
     "Asks for acceptance of the disclaimer at each start", &Settings::ShowDisclaim},
    {kFileChecks, "chkKeepRecentFL", "Keep recent filelist", "Lists the last four projects in the file menu",
     &Settings::KeepFileNames},
    {kFileChecks, "chkShortNames", "Short names in  file list", "Lists recent projects without their folders",
     &Settings::ShortRecentFiles},
    {kFileChecks, "chkLoadLastInputFile", "Load last input file",
     "Opens the latest recent project at the start", &Settings::LoadLastInputFile},
    {kFileChecks, "chkCopyExamples", "Copy example files", "Copies missing example projects at the start",
     &Settings::CopyExampleFiles},
    {kFileChecks, "chkUpdate", "Remind of annual updates", "Kept for later versions",
     &Settings::RemindAnnualUpdates},
}};

}  // namespace

frmSet::frmSet(Session& session, QWidget* parent) : QDialog(parent), session_(session), checks_(kChecks) {
  setObjectName(QStringLiteral("frmSet"));
  setWindowTitle(QStringLiteral("Settings"));
  SetMessageTitles(session.State, TitleSlot::kSettings);
  HistoryLog(session.State, "Editing Settings");
  Build();
  Wire();
  Load();
  CenterForm(*this);
}

FieldBox* frmSet::NewBox(const char* name, const char* caption, const std::string& explanation) {
  auto* box = new FieldBox(QLatin1String(name), 0, this);
  box->Explain(QLatin1String(caption), FromUtf8(explanation));
  return box;
}

void frmSet::Build() {
  auto* grid = new QGridLayout;
  grid->addWidget(UnitsFrame(), 0, 0);
  grid->addWidget(WindowFrame(), 1, 0);
  grid->addWidget(FilesFrame(), 0, 1, 2, 1);
  grid->addWidget(EditorFrame(), 2, 0, 1, 2);
  QVBoxLayout* all = NewColumn(this);
  all->addLayout(grid);
  all->addStretch();
  all->addLayout(NewOkCancelRow(*this, NewHelpButton("cmdHelp", session_, this), "cmdOK", "cmdCancel",
                                [this] { Check(); }));
}

QGroupBox* frmSet::UnitsFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Default units"), this);
  auto* column = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < units_.size(); ++i) {
    units_[i] = NewOption(IndexedName("optUnits", static_cast<int>(i)), FromUtf8(UnitSummary[i]), frame);
    units_[i]->setToolTip(QStringLiteral("Units of new projects"));
    column->addWidget(units_[i]);
  }
  return frame;
}

QGroupBox* frmSet::WindowFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Main window"), this);
  auto* grid = new QGridLayout(frame);
  checks_.AddTo(*frame, *grid, kHistoryChecks);
  size_ = NewBox(
      kHistorySizeBox, kHistorySizeCaption,
      fmt::format("Characters that the history keeps. Accepted: {} to {}.", kLeastHistory, kGreatestHistory));
  font_ = NewButton("Command5", "&History Font", "Font of the history, applied at once", *this,
                    [this] { ChooseFont(); });
  auto* label =
      NewLabel(QStringLiteral("lblHistorySize"), QStringLiteral("History size (characters)"), frame);
  size_->HoldNumber();
  SetColumns(*size_, kHistoryDigits);
  label->setBuddy(size_);
  const int row = grid->rowCount();
  grid->addWidget(label, row, 0);
  grid->addWidget(size_, row, 1, Qt::AlignLeft);
  grid->addWidget(font_, row + 1, 1, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
  checks_.AddTo(*frame, *grid, kWindowChecks);
  return frame;
}

QGroupBox* frmSet::FilesFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Files"), this);
  extension_ = NewBox(kExtensionBox, "Default extension for data files",
                      "Extension of project files. Accepted: letters A to Z and digits, or nothing.");
  auto* setPath = NewButton("cmdSetPath", "Set / Change Path", "Chooses the folder from the disk", *this,
                            [this] { ChoosePath(); });
  path_ = NewBox(kDataPathBox, "Path for data files",
                 "Folder that the file dialogs open in. Accepted: a folder that exists.");
  path_->setMinimumWidth(QFontMetrics(path_->font()).averageCharWidth() * 48);
  auto* grid = new QGridLayout(frame);
  auto* extensionLabel =
      NewLabel(QStringLiteral("lblExtension"), QStringLiteral("Default extension for data files:"), frame);
  extensionLabel->setBuddy(extension_);
  auto* pathLabel = NewLabel(QStringLiteral("lblDataPath"), QStringLiteral("Path for data files:"), frame);
  pathLabel->setBuddy(path_);
  grid->addWidget(extensionLabel, 0, 0);
  grid->addWidget(extension_, 0, 1);
  grid->addWidget(pathLabel, 1, 0);
  grid->addWidget(setPath, 1, 1);
  grid->addWidget(path_, 2, 0, 1, 2);
  checks_.AddTo(*frame, *grid, kFileChecks);
  grid->setRowStretch(grid->rowCount(), 1);
  return frame;
}

QGroupBox* frmSet::EditorFrame() {
  auto* frame = new QGroupBox(QStringLiteral("External editor"), this);
  editor_ =
      NewBox("Text4", "External editor", "Program that shows text files. Accepted: the name of a program.");
  editor_->RemarkOn(ViewerRemark);
  auto* label = NewLabel(QStringLiteral("lblEditor"), QStringLiteral("Program:"), frame);
  label->setBuddy(editor_);
  const std::string tip = fmt::format("Puts the usual program back, {}{}", kDefaultEditor,
                                      ViewerRemark(kDefaultEditor) ? ": not found on this machine" : "");
  auto* standard = NewButton("cmdSetDefault", "Set Default", tip.c_str(), *this,
                             [this] { editor_->Fill(kDefaultEditor); });
  auto* select =
      NewButton("cmdSelect", "&Select", "Chooses a program from the disk", *this, [this] { ChooseEditor(); });
  auto* row = new QHBoxLayout(frame);
  for (QWidget* widget : std::initializer_list<QWidget*>{label, editor_, standard, select}) {
    row->addWidget(widget);
  }
  return frame;
}

void frmSet::Load() {
  const Settings& settings = session_.State.Preferences;
  SetArrayIndex(units_, static_cast<int>(settings.DefaultUnits));
  checks_.Fill(settings);
  size_->Fill(std::to_string(settings.MaxDisplaySize));
  size_->setEnabled(settings.DisplayHistoryWin);
  font_->setEnabled(settings.DisplayHistoryWin);
  checks_.Of(&Settings::ShortRecentFiles)->setEnabled(settings.KeepFileNames);
  editor_->Fill(settings.ExternalEditor);
  path_->Fill(settings.DataPath);
  extension_->Fill(settings.FileExtension);
  loading_ = false;
}

void frmSet::Wire() {
  const QCheckBox* history = checks_.Of(&Settings::DisplayHistoryWin);
  connect(history, &QCheckBox::toggled, size_, &QWidget::setEnabled);
  connect(history, &QCheckBox::toggled, font_, &QWidget::setEnabled);
  QCheckBox* shortNames = checks_.Of(&Settings::ShortRecentFiles);
  connect(checks_.Of(&Settings::KeepFileNames), &QCheckBox::toggled, shortNames, &QWidget::setEnabled);
  const auto say = [this](std::string text, std::string title) {
    if (!loading_) {
      ShowMessage(session_.State, session_.Ports.Messages,
                  {.text = std::move(text), .title = std::move(title), .topic = "messages-forms"});
    }
  };
  connect(shortNames, &QCheckBox::toggled, this,
          [say] { say("Option will take effect upon restarting this program", "Message"); });
  connect(checks_.Of(&Settings::CopyExampleFiles), &QCheckBox::toggled, this, [this, say](bool on) {
    if (on) {
      say("When this option is enabled, every time the program runs, it will try to copy the example files from the "
          "install directory to the " +
              session_.State.Places.ProductFolder +
              " directory. The modified files will not be overridden, but missing files will be replaced. ",
          {});
    }
  });
  connect(extension_, &QLineEdit::textChanged, this, &frmSet::ExtensionTyped);
}

void frmSet::ExtensionTyped(const QString& text) {
  if (text != text.toUpper()) {
    const int cursor = extension_->cursorPosition();
    extension_->setText(text.toUpper());
    extension_->setCursorPosition(cursor);
  }
}

void frmSet::ChooseFont() {
  korva::ChooseFont(session_.Ports.Values, session_.State.Preferences.DisplayFont);
  session_.Main.ApplyHistoryFont();
}

void frmSet::ChooseEditor() {
  Attempt(session_.State, session_.Ports.Messages, [&] {
    if (const auto chosen = korva::ChooseEditor(session_.State, session_.Ports.Files)) {
      editor_->Fill(*chosen);
    }
  });
}

void frmSet::ChoosePath() {
  frmPath form(session_, path_->Text(), this);
  form.exec();
  path_->Fill(form.LastPath());
}

SettingsTexts frmSet::Texts() const {
  return {path_->Text(), size_->Text(), extension_->Text()};
}

void frmSet::Check() {
  const auto refusal = CheckSettings(Texts(), FolderExists);
  if (!refusal) {
    AcceptSettings(session_.State, Entered(), [this] { session_.Main.ApplyDisplaySettings(); });
    accept();
    return;
  }
  const MessageTitles& titles = session_.State.Titles;
  using Kind = SettingsRefusal::Kind;
  const std::string& title = refusal->Title == Kind::kError   ? titles.TitleError
                             : refusal->Title == Kind::kRange ? titles.TitleRangeError
                                                              : titles.TitleInvalidCharacter;
  ShowMessage(session_.State, session_.Ports.Messages,
              {refusal->Text, MessageButtons::kOk, MessageIcon::kCritical, title, {}, "refusal-options"});
  findChild<FieldBox*>(FromUtf8(refusal->Control))->ShowRefused(FromUtf8(refusal->Text));
}

Settings frmSet::Entered() const {
  Settings settings = session_.State.Preferences;
  settings.DefaultUnits = static_cast<UnitSystem>(GetArrayIndex(units_));
  checks_.Store(settings);
  settings.MaxDisplaySize = static_cast<int>(RoundHalfEven(FieldNumber(size_->Text()), 0));
  settings.ExternalEditor = editor_->Text();
  settings.DataPath = FolderText(path_->Text());
  settings.FileExtension = extension_->Text();
  return settings;
}

void frmSet::reject() {
  HistoryLog(session_.State, "Settings Not Modified");
  QDialog::reject();
}

}  // namespace korva::desktop
