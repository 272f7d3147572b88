#include "desktop/core/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "commands/FileCommands.h"
#include "core/Version.h"
#include "desktop/core/ProjectCard.h"
#include "desktop/core/StartPage.h"
#include "desktop/core/StatusLine.h"
#include "desktop/graphs/SweepRunner.h"
#include "desktop/graphs/frmStrondCalc.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/services/QtValues.h"
#include "desktop/services/frmDisclaimer.h"
#include "desktop/services/frmHelp.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kRecoveryInterval = 1'000;  // milliseconds
constexpr int kHistoryLines = 5;
constexpr const char* kTag = "KORVA";

QString DroppedFile(const QMimeData* data) {
  const auto urls = data->urls();
  return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

// Whatever is proposed, the file stays where it is.
void AcceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

}  // namespace

frmMain::frmMain(Korva& korva, Ports& ports, PicturePrinter& pictures)
    : korva_(korva),
      ports_(ports),
      session_{korva, ports, *this, pictures},
      recovery_(korva),
      fileMenu_(korva, ports, recovery_),
      menus_(*this, Commands()),
      contextHelp_([this](const std::vector<std::string>& labels) { ShowHelp(labels); }) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(FromUtf8(ExeName));
  setAcceptDrops(true);
  BuildBody();
  menus_.ShowRecentFiles(fileMenu_.RecentCaptions());
  korva_.SessionHistory.Changed = [this] { ShowHistory(); };
  ApplyDisplaySettings();
  CenterForm(*this);
  recovery_.Draft = [this] { return Draft(); };
  connect(&recoveryTimer_, &QTimer::timeout, this, [this] { recovery_.KeepCopy(); });
  recoveryTimer_.start(kRecoveryInterval);
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { KeepWork(); });
}

frmMain::~frmMain() {
  korva_.SessionHistory.Changed = nullptr;
}

MainMenus::Commands frmMain::Commands() {
  const auto run = [this](void (frmMain::*command)(int)) {
    return [this, command](int index) { RunAlone([this, command, index] { (this->*command)(index); }); };
  };
  MainMenus::Commands commands;
  commands.File = run(&frmMain::FileItem);
  commands.Recent = [this](int index) {
    RunAlone([this, index] { AfterOpening(fileMenu_.OpenRecent(index)); });
  };
  commands.Edit = run(&frmMain::EditItem);
  commands.Calc = run(&frmMain::CalcItem);
  commands.Graph = run(&frmMain::GraphItem);
  commands.Util = run(&frmMain::UtilItem);
  commands.Help = run(&frmMain::HelpItem);
  return commands;
}

void frmMain::BuildBody() {
  auto* start = new StartPage(
      korva_.Places,
      {[this] { menus_.Item("mnuFileItem", kNew).trigger(); },
       [this] { menus_.Item("mnuFileItem", kOpen).trigger(); },
       [this](const std::string& file) { RunAlone([&] { AfterOpening(fileMenu_.OpenPath(file)); }); }},
      this);
  card_ = new ProjectCard(this);
  middle_ = new QStackedWidget(this);
  middle_->addWidget(start);
  middle_->addWidget(card_);

  lblVer_ = NewLabel(QStringLiteral("lblVer"), FromUtf8(ProgramVersionText(true)), this);
  lblVer_->setAlignment(Qt::AlignRight);
  lblVer_->setContentsMargins(0, 0, 2 * SpacingUnit(*this), 0);
  lblVer_->setAccessibleName(QStringLiteral("Program version"));

  txtMain_ = new QPlainTextEdit(this);
  txtMain_->setObjectName(QStringLiteral("txtMain"));
  txtMain_->setAccessibleName(QStringLiteral("History"));
  txtMain_->setReadOnly(true);
  QPalette grey = txtMain_->palette();
  grey.setColor(QPalette::Base, QColor(0xc0, 0xc0, 0xc0));
  grey.setColor(QPalette::Text, Qt::black);
  txtMain_->setPalette(grey);

  auto* body = new QWidget(this);
  auto* layout = new QVBoxLayout(body);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(lblVer_);
  layout->addWidget(middle_, 1);
  layout->addWidget(txtMain_);
  setCentralWidget(body);
  status_ = new StatusLine(this);
  setStatusBar(status_);
}

bool frmMain::AcceptDisclaimer() {
  if (!korva_.Preferences.ShowDisclaim) {
    return true;
  }
  const bool accepted = frmDisclaimer(session_).exec() == QDialog::Accepted;
  if (!accepted) {
    recovery_.EndCleanly();
  }
  return accepted;
}

void frmMain::Begin(const std::string& file) {
  FileNew(korva_);
  Refresh();
  SetGraphMenu();
  show();
  bool restored = false;
  Run([this, &restored] { restored = recovery_.OfferCopies(ports_.Messages); });
  const RecentFiles& recent = korva_.Preferences.FileMenu;
  if (!restored && korva_.Preferences.LoadLastInputFile && !recent.LastFileLong[1].empty()) {
    Run([this] { AfterOpening(fileMenu_.OpenRecent(1)); });
  }
  if (!file.empty()) {
    delete parameters_;  // of the last file: it is not to stand over another project if this one fails
    SetInputEnabled(true);
    Run([this, &file] { AfterOpening(fileMenu_.OpenPath(file)); });
  }
}

void frmMain::Run(const std::function<void()>& command) {
  Attempt(korva_, ports_.Messages, command);
  Refresh();
}

bool frmMain::MayStart() const {
  return isEnabled() && sweep_ == nullptr && !commandRuns_ && QApplication::activeModalWidget() == nullptr;
}

void frmMain::RunAlone(const std::function<void()>& command) {
  if (!MayStart()) {
    return;
  }
  const QScopedValueRollback alone(commandRuns_, true);
  Run(command);
}

void frmMain::Refresh() {
  setWindowTitle(QStringLiteral("%1: %2%3")
                     .arg(QLatin1String(kTag), FromUtf8(CaptionFileName(korva_.ProjectFileName)),
                          QLatin1String(korva_.ProjectSaved ? "" : "*")));
  middle_->setCurrentIndex(korva_.ProjectEmpty ? 0 : 1);
  if (!korva_.ProjectEmpty) {
    card_->Show(korva_);
  }
  status_->Show(korva_);
}

void frmMain::ShowHistory() {
  txtMain_->setPlainText(FromUtf8(korva_.SessionHistory.Text));
  txtMain_->moveCursor(QTextCursor::End);
}

void frmMain::ApplyHistoryFont() {
  const QFont font = FontOf(korva_.Preferences.DisplayFont);
  txtMain_->setFont(font);
  txtMain_->setFixedHeight(QFontMetrics(font).lineSpacing() * kHistoryLines + 2 * SpacingUnit(*this));
}

void frmMain::ApplyDisplaySettings() {
  const Settings& settings = korva_.Preferences;
  ApplyHistoryFont();
  const bool history = settings.DisplayHistoryWin;
  txtMain_->setVisible(history);
  for (const int item : {kClearHistory, kToggleHistory, kCopyHistory}) {
    menus_.Item("mnuUtilItem", item).setEnabled(history);
  }
  menus_.Item("mnuUtilItem", kToggleHistory).setText(QLatin1String(kCloseHistoryCaption));
  if (settings.MaxMainMenu) {
    setWindowState(windowState() | Qt::WindowMaximized);
  }
  menus_.ToolBar().setVisible(settings.EnableMainMenuToolbar);
}

void frmMain::SetInputEnabled(bool enabled) {
  setEnabled(enabled);
}

void frmMain::closeEvent(QCloseEvent* event) {
  bool ended = false;
  if (isEnabled() && sweep_ == nullptr) {
    Run([this, &ended] { ended = fileMenu_.Exit(); });
  }
  event->setAccepted(ended);
  if (ended) {
    help_.reset();
    QCoreApplication::quit();
  }
}

void frmMain::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    menus_.PaintImages(palette());
  }
  QMainWindow::changeEvent(event);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
  if (MayStart() && QFileInfo(DroppedFile(event->mimeData())).isFile()) {
    AcceptAsCopy(*event);
  }
}

void frmMain::dropEvent(QDropEvent* event) {
  const std::string file = DroppedFile(event->mimeData()).toStdString();
  if (!MayStart() || file.empty()) {
    return;
  }
  AcceptAsCopy(*event);
  // The file manager has its answer before the person is asked anything.
  QTimer::singleShot(0, this,
                     [this, file] { RunAlone([this, &file] { AfterOpening(fileMenu_.OpenPath(file)); }); });
}

}  // namespace korva::desktop
