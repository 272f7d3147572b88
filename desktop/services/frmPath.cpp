#include "desktop/services/frmPath.h"

#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QTreeView>
#include <QVBoxLayout>

#include "desktop/services/DriveBox.h"
#include "input/CheckSettings.h"

namespace korva::desktop {

namespace {

constexpr int kCurrent = 2;
constexpr int kColumns = 60;
constexpr int kLines = 16;

}  // namespace

frmPath::frmPath(Session& session, std::string lastPath, QWidget* parent)
    : QDialog(parent), session_(session), lastPath_(std::move(lastPath)) {
  setObjectName(QStringLiteral("frmPath"));
  setWindowTitle(QStringLiteral("Select Path"));
  model_.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
  model_.setRootPath(QDir::rootPath());
  Build();
  places_[kCurrent]->setChecked(true);
  CenterForm(*this);
}

void frmPath::Build() {
  auto* frame = new QGroupBox(QStringLiteral("Set Path"), this);
  auto* row = new QHBoxLayout;
  const Folders& at = session_.State.Places;
  const std::array<std::pair<const char*, const std::string*>, 4> places = {
      {{"User home", &at.ProductFolder},
       {"Application ", &at.AppPath},
       {"Current", &lastPath_},
       {"User temporary", &at.ProductTempFolder}}};
  for (std::size_t i = 0; i < places.size(); ++i) {
    const QString folder = FromUtf8(*places[i].second);
    places_[i] =
        NewOption(IndexedName("Option1", static_cast<int>(i)), QLatin1String(places[i].first), frame);
    places_[i]->setToolTip(folder);
    connect(places_[i], &QRadioButton::toggled, this, [this, folder](bool chosen) {
      if (chosen) {
        GoTo(folder);
      }
    });
    row->addWidget(places_[i]);
  }
  drive_ = NewDriveBox(frame);
  connect(drive_, &QComboBox::textActivated, this, &frmPath::DriveChosen);
  folders_ = new QTreeView(frame);
  folders_->setObjectName(QStringLiteral("Dir1"));
  folders_->setAccessibleName(QStringLiteral("Folder"));
  folders_->setToolTip(QStringLiteral("The folder to take"));
  folders_->setModel(&model_);
  folders_->setHeaderHidden(true);
  folders_->sortByColumn(0, Qt::AscendingOrder);
  for (int column = 1; column < model_.columnCount(); ++column) {
    folders_->hideColumn(column);
  }
  const QFontMetrics metrics(folders_->font());
  folders_->setMinimumSize(metrics.averageCharWidth() * kColumns, metrics.lineSpacing() * kLines);
  auto* column = new QVBoxLayout(frame);
  column->addLayout(row);
  column->addWidget(drive_);
  column->addWidget(folders_, 1);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(frame, 1);
  all->addLayout(NewOkCancelRow(*this, NewHelpButton("Command3", session_, this), "Command2", "Command1",
                                [this] { accept(); }));
}

// A folder that cannot be read leaves the list where it is.
void frmPath::GoTo(const QString& folder) {
  const QModelIndex index = model_.index(folder);
  if (!index.isValid()) {
    return;
  }
  folders_->setCurrentIndex(index);
  folders_->expand(index);
  folders_->scrollTo(index, QAbstractItemView::PositionAtCenter);
  ShowDriveOf(*drive_, folder);
}

void frmPath::DriveChosen(const QString& root) {
  if (!QDir(root).isReadable()) {
    ShowMessage(
        session_.State, session_.Ports.Messages,
        {.text = "Windows is unable to read selected drive. Make sure the door is closed and the disk is "
                 "formatted and free of errors",
         .title = session_.State.Titles.TitleError,
         .topic = "messages-forms"});
    return;
  }
  GoTo(root);
}

std::string frmPath::LastPath() const {
  const QString folder = model_.filePath(folders_->currentIndex());
  return result() == Accepted && !folder.isEmpty() ? FolderText(folder.toStdString()) : lastPath_;
}

}  // namespace korva::desktop
