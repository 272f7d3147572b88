#include "desktop/services/frmTextBrow.h"

#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "commands/ExternalViewer.h"
#include "commands/SettingsCommands.h"
#include "core/FileNames.h"
#include "desktop/reports/PageView.h"
#include "desktop/services/DriveBox.h"
#include "desktop/services/QtValues.h"
#include "desktop/services/TextLoader.h"
#include "desktop/support/PathLabel.h"
#include "files/FileTree.h"

namespace korva::desktop {

namespace {

constexpr int kTextColumns = 84;
constexpr int kTextLines = 30;
constexpr int kListColumns = 34;
constexpr int kListLines = 6;

// The folder and all above it, the root first.
std::vector<std::string> FolderChain(const std::string& folder) {
  std::vector<std::string> way = {"/"};
  for (std::size_t end = 1; end < folder.size();) {
    end = std::min(folder.find('/', end), folder.size());
    way.push_back(folder.substr(0, end));
    ++end;
  }
  return way;
}

QListWidgetItem* FolderItem(QListWidget* list, const std::string& name, std::size_t level, bool open) {
  const QIcon icon = list->style()->standardIcon(open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirIcon);
  return new QListWidgetItem(
      icon, QString(static_cast<qsizetype>(2 * level), QLatin1Char(' ')) + FromUtf8(name), list);
}

void SetListSize(QAbstractItemView& view) {
  const QFontMetrics metrics(view.font());
  view.setMinimumSize(metrics.averageCharWidth() * kListColumns, metrics.lineSpacing() * kListLines);
}

bool IsEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) {
    return false;
  }
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

frmTextBrow::frmTextBrow(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmTextBrow"));
  setWindowTitle(QStringLiteral("View Source Files"));
  auto* sides = new QSplitter(this);
  sides->setChildrenCollapsible(false);
  sides->addWidget(DiskSide());
  sides->addWidget(TextSide());
  sides->setStretchFactor(1, 1);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(sides, 1);
  all->addLayout(Buttons());
  Wire();
  Load();
  list_->setFocus();
  CenterForm(*this);
}

QWidget* frmTextBrow::DiskSide() {
  auto* side = new QWidget(this);
  drive_ = NewDriveBox(side);
  dir_ = new QListWidget(side);
  dir_->setObjectName(QStringLiteral("Dir1"));
  dir_->setAccessibleName(QStringLiteral("Folder"));
  dir_->setToolTip(QStringLiteral("A double click or Enter moves to a folder"));
  dir_->setUniformItemSizes(true);
  const int iconSide = dir_->fontMetrics().height();
  dir_->setIconSize(QSize(iconSide, iconSide));  // open and closed alike
  filter_ = new QLineEdit(side);
  filter_->setObjectName(QStringLiteral("Text2"));
  filter_->setToolTip(
      QStringLiteral("Names of the files to list, such as *.KVL or *.txt;*.csv. * stands for any text, ? for "
                     "one character"));
  QLabel* label = NewLabel(QStringLiteral("lblFilter"), QStringLiteral("F&ilter:"), side);
  label->setBuddy(filter_);
  list_ = new QListView(side);
  list_->setObjectName(QStringLiteral("File1"));
  list_->setAccessibleName(QStringLiteral("File"));
  list_->setToolTip(QStringLiteral("A double click or Enter shows a file"));
  list_->setUniformItemSizes(true);
  list_->setModel(&files_);
  external_ = NewCheckBox("Check1", QStringLiteral("Use external viewer"), side);
  const std::string& editor = session_.State.Preferences.ExternalEditor;
  const auto remark = ViewerRemark(editor);
  external_->setToolTip(
      QStringLiteral("Shows a copy of the file with the external editor of the settings, %1%2")
          .arg(FromUtf8(editor), remark ? QStringLiteral(": ") + FromUtf8(*remark) : QString()));
  for (QAbstractItemView* view : std::initializer_list<QAbstractItemView*>{dir_, list_}) {
    SetListSize(*view);
  }
  auto* filterRow = new QHBoxLayout;
  filterRow->addWidget(label);
  filterRow->addWidget(filter_, 1);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, SpacingUnit(*this), 0);
  column->setSpacing(SpacingUnit(*this));
  column->addWidget(drive_);
  column->addWidget(dir_, 2);
  column->addLayout(filterRow);
  column->addWidget(list_, 3);
  column->addWidget(external_);
  return side;
}

QWidget* frmTextBrow::TextSide() {
  auto* side = new QWidget(this);
  name_ = new PathLabel("Label1", side);
  name_->setFixedHeight(drive_->sizeHint().height());  // both sides begin alike
  text_ = new PageView("RichTextBox1", kTextColumns, kTextLines, side);
  text_->setAccessibleName(QStringLiteral("Text of the file"));
  loader_ = new TextLoader(session_, *text_);
  loader_->setParent(this);
  QPalette paper = text_->palette();
  for (const auto role : {QPalette::Base, QPalette::Text}) {  // out of use, it is no paper
    paper.setColor(QPalette::Disabled, role, palette().color(QPalette::Disabled, role));
  }
  text_->setPalette(paper);
  progress_ = NewLabel(QStringLiteral("lblProgress"), {}, side);
  progress_->setFixedHeight(external_->sizeHint().height());  // both sides end alike
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(SpacingUnit(*this), 0, 0, 0);
  column->setSpacing(SpacingUnit(*this));
  column->addWidget(name_);
  column->addWidget(text_, 1);
  column->addWidget(progress_);
  return side;
}

// No button is the default: Enter belongs to the lists and the filter.
QLayout* frmTextBrow::Buttons() {
  QPushButton* font =
      NewButton("cmdSetFont", "Set &Font", "Chooses the font of the text", *this, [this] { ChooseFont(); });
  QPushButton* ok = NewButton("cmdOK", "OK", kCloseTip, *this, [this] { accept(); });
  QPushButton* help = NewHelpButton("cmdHelp", session_, this);
  return NewButtonRow(help, {font, ok});
}

void frmTextBrow::Wire() {
  connect(drive_, &QComboBox::textActivated, this, [this](const QString& root) {
    MoveTo(root.toStdString());
    ShowDriveOf(*drive_, FromUtf8(folder_));
  });
  connect(dir_, &QListWidget::itemDoubleClicked, this, &frmTextBrow::OpenFolder, Qt::QueuedConnection);
  connect(list_, &QListView::doubleClicked, this, &frmTextBrow::ShowFile, Qt::QueuedConnection);
  dir_->installEventFilter(this);
  list_->installEventFilter(this);
  connect(filter_, &QLineEdit::textChanged, this,
          [this](const QString& filter) { files_.SetFilter(filter); });
  connect(filter_, &QLineEdit::returnPressed, this, [this] { MoveTo(folder_); });
  connect(external_, &QCheckBox::toggled, text_, &QWidget::setDisabled);
  connect(loader_, &TextLoader::Progress, progress_, &QLabel::setText);
}

void frmTextBrow::Load() {
  const Korva& korva = session_.State;
  const BrowseSettings& settings = korva.Preferences.TextBrowse;
  const std::string& filter = settings.BrowseDefaultFilter;
  filter_->setText(FromUtf8(filter.empty() ? "*." + korva.Preferences.FileExtension : filter));
  text_->setFont(FontOf(settings.BrowseFont));
  external_->setChecked(settings.BrowseUseNotepad);
  const std::string& start =
      korva.LastBrowseFolder.empty() ? korva.Preferences.DataPath : korva.LastBrowseFolder;
  if (!MoveTo(FullFolderName(start))) {
    MoveTo("/");
  }
}

bool frmTextBrow::MoveTo(const std::string& folder) {
  return Attempt(session_.State, session_.Ports.Messages, [&] {
           FolderContent content = ReadFolder(folder);
           folder_ = folder;
           ShowFolders(content.Folders);
           files_.SetNames(std::move(content.Files));
         }) == AttemptResult::kDone;
}

void frmTextBrow::ShowFolders(const std::vector<std::string>& below) {
  dir_->clear();
  folders_ = FolderChain(folder_);
  const std::size_t levels = folders_.size();
  for (std::size_t level = 0; level < levels; ++level) {
    const auto name = folders_[level].rfind('/') + 1;
    FolderItem(dir_, level == 0 ? "/" : folders_[level].substr(name), level, true);
  }
  for (const std::string& name : below) {
    if (!name.starts_with('.')) {
      FolderItem(dir_, name, levels, false);
      folders_.push_back(NameWithin(folder_, name));
    }
  }
  dir_->setCurrentRow(static_cast<int>(levels) - 1);
  dir_->scrollToItem(dir_->currentItem(), QAbstractItemView::PositionAtTop);
  ShowDriveOf(*drive_, FromUtf8(folder_));
}

void frmTextBrow::OpenFolder() {
  const int row = dir_->currentRow();
  if (row >= 0) {
    MoveTo(std::string(folders_[static_cast<std::size_t>(row)]));  // a copy: the move changes the list
  }
}

void frmTextBrow::ShowFile() {
  const QModelIndex index = list_->currentIndex();
  if (!index.isValid()) {
    return;
  }
  const std::string file = NameWithin(folder_, files_.NameAt(index.row()));
  name_->ShowPath(FromUtf8(file));
  loader_->Clear();
  if (external_->isChecked()) {
    if (ViewExternally(session_.State, session_.Ports, file)) {
      progress_->setText(QStringLiteral("A copy is shown in the external viewer"));
    }
    return;
  }
  Attempt(session_.State, session_.Ports.Messages, [&] { loader_->Load(file); });
}

void frmTextBrow::ChooseFont() {
  FontSettings& font = session_.State.Preferences.TextBrowse.BrowseFont;
  korva::ChooseFont(session_.Ports.Values, font);
  text_->setFont(FontOf(font));
}

bool frmTextBrow::eventFilter(QObject* watched, QEvent* event) {
  if (!IsEnter(*event)) {
    return QDialog::eventFilter(watched, event);
  }
  watched == dir_ ? OpenFolder() : ShowFile();
  return true;
}

void frmTextBrow::done(int result) {
  loader_->Clear();
  KeepBrowsing(session_.State, filter_->text().toStdString(), external_->isChecked(), folder_);
  QDialog::done(result);
}

}  // namespace korva::desktop
