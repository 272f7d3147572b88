#include "desktop/services/frmHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWindow>

#include "commands/Attempt.h"
#include "commands/HelpCommands.h"
#include "core/Version.h"
#include "desktop/services/HelpBrowser.h"
#include "desktop/services/HelpContents.h"
#include "desktop/services/HelpSearch.h"
#include "desktop/services/HelpTerms.h"
#include "desktop/services/HelpTools.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Icons.h"
#include "desktop/support/Theme.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 176;  // characters across, as far as the screen has room
constexpr int kLines = 46;
constexpr int kListColumns = 52;
constexpr int kFindColumns = 18;
constexpr int kZoomStep = 10;

}  // namespace

std::unique_ptr<frmHelp> frmHelp::Open(Session& session) {
  auto file = HelpFile::Open(FromUtf8(DocumentPath(session.State.Places, HelpFileName)));
  if (!file) {
    ShowHelpNotAvailable(session.State, session.Ports.Messages);
    return nullptr;
  }
  return std::unique_ptr<frmHelp>(new frmHelp(session, std::move(file)));
}

frmHelp::frmHelp(Session& session, std::unique_ptr<HelpFile> file)
    : QWidget(nullptr, Qt::Window),
      session_(session),
      file_(std::move(file)),
      browser_(new HelpBrowser(*file_, this)) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(QStringLiteral("Help for ") + FromUtf8(ExeName));
  setProperty(kAuxiliaryWindowProperty, true);
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName(QStringLiteral("tabHelp"));
  tabs_->setAccessibleName(QStringLiteral("Contents, index and search"));
  tabs_->setMinimumWidth(fontMetrics().averageCharWidth() * kListColumns / 2);
  tabs_->tabBar()->installEventFilter(this);
  auto* contents = new HelpContents(*file_, *browser_, this);
  auto* index = new HelpTerms(*file_, this);
  auto* search = new HelpSearch(*file_, this);
  tabs_->addTab(contents, QStringLiteral("&Contents"));
  tabs_->addTab(index, QStringLiteral("&Index"));
  tabs_->addTab(search, QStringLiteral("&Search"));
  connect(contents, &HelpContents::PageChosen, this, &frmHelp::GoTo);
  connect(index, &HelpTerms::PageChosen, this, &frmHelp::GoTo);
  connect(search, &HelpSearch::PageChosen, this, [this](const QUrl& page, const HelpExcerpt& excerpt) {
    GoTo(page);
    browser_->ShowExcerpt(excerpt);
  });
  connect(browser_, &HelpBrowser::LinkOutside, this, [this](const QUrl& link) {
    ShowMessage(session_.State, session_.Ports.Messages,
                {.text = "This link leads out of the help: " + link.toDisplayString().toStdString()});
  });

  auto* halves = new QSplitter(this);
  halves->setChildrenCollapsible(false);
  halves->addWidget(tabs_);
  halves->addWidget(browser_);
  halves->setStretchFactor(1, 1);
  const int list = fontMetrics().averageCharWidth() * kListColumns;
  halves->setSizes({list, fontMetrics().averageCharWidth() * kColumns - list});
  QVBoxLayout* all = NewColumn(this);
  all->addLayout(NewToolRow());
  all->addWidget(halves, 1);
  PlaceOnScreen();
  GoTo(file_->StartPage());
}

QSize frmHelp::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kColumns, fontMetrics().lineSpacing() * kLines};
}

// At the right edge, so that the window that it speaks of can be seen beside it.
void frmHelp::PlaceOnScreen() {
  const QWidget* front = FrontWindow();
  const QRect room = (front != nullptr ? front->screen() : screen())->availableGeometry();
  resize(sizeHint().boundedTo(room.size() * 9 / 10));
  move(room.right() - width() - 2 * SpacingUnit(*this), room.top() + (room.height() - height()) / 2);
}

QToolButton* frmHelp::NewTool(const char* name, const char* image, const QString& caption,
                              const QKeySequence& key, const std::function<void()>& command) {
  auto* tool = new QToolButton(this);
  tool->setObjectName(QLatin1String(name));
  tool->setAccessibleName(caption);
  tool->setToolTip(QStringLiteral("%1 (%2)").arg(caption, key.toString(QKeySequence::NativeText)));
  tool->setShortcut(key);
  tool->setAutoRaise(true);
  tool->setFocusPolicy(Qt::TabFocus);
  connect(tool, &QToolButton::clicked, this, command);
  tools_.emplace_back(tool, QLatin1String(image));
  return tool;
}

QBoxLayout* frmHelp::NewToolRow() {
  auto* back = NewTool("cmdBack", "back", QStringLiteral("Back"), Qt::ALT | Qt::Key_Left,
                       [this] { browser_->backward(); });
  auto* forward = NewTool("cmdForward", "forward", QStringLiteral("Forward"), Qt::ALT | Qt::Key_Right,
                          [this] { browser_->forward(); });
  auto* home = NewTool("cmdHome", "home", QStringLiteral("Start page"), Qt::ALT | Qt::Key_Home,
                       [this] { GoTo(file_->StartPage()); });
  auto* smaller = NewTool("cmdZoomOut", "zoom-out", QStringLiteral("Smaller"), Qt::CTRL | Qt::Key_Minus,
                          [this] { browser_->SetZoom(browser_->Zoom() - kZoomStep); });
  auto* larger = NewTool("cmdZoomIn", "zoom-in", QStringLiteral("Larger"), Qt::CTRL | Qt::Key_Plus,
                         [this] { browser_->SetZoom(browser_->Zoom() + kZoomStep); });
  for (QToolButton* tool : {back, forward}) {
    tool->setEnabled(false);
  }
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  find_ = NewHelpText("txtFind", QStringLiteral("Find in this page (Ctrl+F)"), this);
  find_->setMinimumWidth(fontMetrics().averageCharWidth() * kFindColumns * 2);
  connect(find_, &QLineEdit::returnPressed, this, [this] { Find(false); });
  connect(find_, &QLineEdit::textChanged, this, [this] { find_->setPalette({}); });
  QPushButton* previous =
      NewButton("cmdPrevious", "&Previous", "Previous match (Shift+F3)", *this, [this] { Find(true); });
  QPushButton* next = NewButton("cmdNext", "&Next", "Next match (F3)", *this, [this] { Find(false); });
  QPushButton* manual = NewButton("cmdPdf", "PDF &Manual", "Opens the manual for printing", *this, [this] {
    Attempt(session_.State, session_.Ports.Messages, [this] { OpenManual(session_.State, session_.Ports); });
  });
  PaintImages();
  auto* row = new QHBoxLayout;
  for (QWidget* widget : std::initializer_list<QWidget*>{back, forward, home, smaller, larger}) {
    row->addWidget(widget);
  }
  row->addStretch(1);
  row->addWidget(find_);
  row->addWidget(previous);
  row->addWidget(next);
  row->addSpacing(2 * SpacingUnit(*this));
  row->addWidget(manual);
  return row;
}

void frmHelp::PaintImages() {
  for (const auto& [tool, image] : tools_) {
    tool->setIcon(ThemedIcon(image, palette()));
  }
}

void frmHelp::ShowTopic(const std::vector<std::string>& labels) {
  const QUrl topic = file_->Topic(labels);
  ShowInFront();  // before, so that the page finds the room that it has
  GoTo(topic.isEmpty() ? file_->StartPage() : topic);
  browser_->setFocus();
}

void frmHelp::ShowTab(int tab) {
  tabs_->setCurrentIndex(tab);
  ShowInFront();
  tabs_->currentWidget()->setFocus();
}

void frmHelp::ShowInFront() {
  if (isMinimized()) {
    showNormal();
  }
  show();
  BelongToFrontDialog();
  raise();
  activateWindow();
}

// A dialog that waits for an answer locks all windows but those that belong to it.
void frmHelp::BelongToFrontDialog() {
  QWindow* own = windowHandle();
  if (own == nullptr || !isVisible()) {
    return;
  }
  const QWidget* dialog = QApplication::activeModalWidget();
  QWindow* front = dialog != nullptr ? dialog->window()->windowHandle() : nullptr;
  if (front == own || front == own->transientParent()) {
    return;
  }
  own->setTransientParent(front);
  if (front != nullptr) {
    connect(front, &QWindow::visibleChanged, this, &frmHelp::BelongToFrontDialog, Qt::QueuedConnection);
  }
}

void frmHelp::GoTo(const QUrl& page) {
  browser_->setSource(page);
}

void frmHelp::Find(bool backward) {
  const bool found = browser_->FindText(find_->text(), backward);
  QPalette colours;
  if (!found && !find_->text().isEmpty()) {
    colours.setColor(QPalette::Text, RefusedColour(palette()));
  }
  find_->setPalette(colours);
}

bool frmHelp::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) {
    QMetaObject::invokeMethod(this, &frmHelp::BelongToFrontDialog, Qt::QueuedConnection);
  }
  return QWidget::event(event);
}

// Alt and a tab's letter lead into the tab, also from another control of it.
bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    QMetaObject::invokeMethod(
        this, [this] { tabs_->currentWidget()->setFocus(); }, Qt::QueuedConnection);
  }
  return QWidget::eventFilter(watched, event);
}

void frmHelp::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    PaintImages();
  }
  QWidget::changeEvent(event);
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (event->matches(QKeySequence::Find)) {
    find_->setFocus();
    find_->selectAll();
  } else if (event->key() == Qt::Key_F3) {
    Find((event->modifiers() & Qt::ShiftModifier) != 0);
  } else if (event->matches(QKeySequence::ZoomIn) || event->matches(QKeySequence::ZoomOut)) {
    browser_->SetZoom(browser_->Zoom() + (event->matches(QKeySequence::ZoomIn) ? kZoomStep : -kZoomStep));
  } else if (event->key() == Qt::Key_0 && (event->modifiers() & Qt::ControlModifier) != 0) {
    browser_->SetZoom(100);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace korva::desktop
