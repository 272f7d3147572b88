#include "desktop/plan/frmPicture.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFontInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "commands/Formats.h"
#include "commands/PlanCommands.h"
#include "commands/SavePicture.h"
#include "desktop/plan/PlanView.h"
#include "desktop/services/Capture.h"
#include "desktop/services/PicturePrinter.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr double kScreenShare = 0.9;  // of its height, after maximising
constexpr double kFirstShare = 0.8;
constexpr int kAttempts = 5;                        // at a size that the window manager may change
constexpr std::chrono::milliseconds kSettled{200};  // without a change
constexpr int kLeastSide = 200;
constexpr int kSmallestFont = 4;  // points
constexpr int kLargestFont = 48;
constexpr double kZoomStep = 1.5;

}  // namespace

frmPicture* frmPicture::Open(Session& session, QWidget& opener, PlanOpener caller) {
  std::unique_ptr<frmPicture> window(new frmPicture(session, opener, caller));
  if (!window->view_->Show(window->request_)) {
    ShowMessage(session.State, session.Ports.Messages,
                {.text = std::string(kInvalidPillars), .topic = "messages-forms"});
    return nullptr;
  }
  window->show();
  return window.release();  // it deletes itself
}

frmPicture::frmPicture(Session& session, QWidget& opener, PlanOpener caller)
    : session_(session), opener_(&opener), request_(PlanRequestOf(session.State, caller, true)) {
  setObjectName(QStringLiteral("frmPicture"));
  setWindowTitle(QStringLiteral("View Plan"));
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSide, kLeastSide);
  view_ = new PlanView("picPlan", this);
  setCentralWidget(view_);
  picTMPCopy_ = new QLabel(this);
  picTMPCopy_->setObjectName(QStringLiteral("picTMPCopy"));
  picTMPCopy_->hide();
  settle_.setSingleShot(true);
  settle_.setInterval(kSettled);
  connect(&settle_, &QTimer::timeout, this, &frmPicture::UndoMaximise);
  BuildMenus();
  PlaceFirst();
}

void frmPicture::BuildMenus() {
  QMenu& file = *AddMenu(*menuBar(), "mnuPlotFile", "&File");
  AddItem(session_, file, "mnuPlotFileItem", 0, "&Print", [this] {
    Print();
  })->setShortcut(QKeySequence::Print);
  AddItem(session_, file, "mnuPlotFileItem", 3, kSavePictureCaption, [this] {
    SavePlan();
  })->setShortcut(QKeySequence::Save);
  file.addSeparator()->setObjectName(IndexedName("mnuPlotFileItem", 1));
  AddItem(session_, file, "mnuPlotFileItem", 2, "E&xit", [this] { close(); })->setShortcut(Qt::Key_Escape);

  QMenu& edit = *AddMenu(*menuBar(), "mnuEdit", "&Edit");
  AddItem(session_, edit, "mnuEditItem", 0, "&Copy", [this] { Copy(); })->setShortcut(QKeySequence::Copy);
  AddItem(session_, edit, "mnuEditItem", 1, "Increase Font Size", [this] {
    StepFont(1);
  })->setShortcut(Qt::CTRL | Qt::Key_BracketRight);
  AddItem(session_, edit, "mnuEditItem", 2, "Decrease Font Size", [this] {
    StepFont(-1);
  })->setShortcut(Qt::CTRL | Qt::Key_BracketLeft);

  QMenu& settings = *AddMenu(*menuBar(), "mnuPlotSet", "&Settings");
  auto* choices = new QActionGroup(this);
  const auto choice = [&](PillarPlot plot, const char* caption) {
    QAction* action = AddItem(session_, settings, "mnuPlotSetItem", plot - kPlotDimensions, caption,
                              [this, plot] { ChoosePlot(plot); });
    action->setCheckable(true);
    action->setChecked(plot == kPlotDimensions);
    action->setEnabled(request_.PlotCaller == kPlanFromResults);
    choices->addAction(action);
    return action;
  };
  choice(kPlotDimensions, "&Pillar Dimensions");
  choice(kPlotStrength, kStrengthPlot);
  QAction* capacity = choice(kPlotCapacity, kCapacityPlot);
  capacity->setVisible(request_.ProjectCalc.CalcMode != kLaminatedModel);
  if (request_.Values && !request_.Values->HasTraditional) {
    capacity->setEnabled(false);  // of two models only the laminated one ran
  }

  QMenu& zoom = *AddMenu(*menuBar(), "mnuView", "&View");
  const auto middle = [this] { return QRectF(view_->rect()).center(); };
  AddItem(session_, zoom, "mnuViewItem", 0, "Zoom &In", [this, middle] {
    view_->ZoomBy(kZoomStep, middle());
  })->setShortcuts({QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  AddItem(session_, zoom, "mnuViewItem", 1, "Zoom &Out", [this, middle] {
    view_->ZoomBy(1 / kZoomStep, middle());
  })->setShortcut(QKeySequence::ZoomOut);
  AddItem(session_, zoom, "mnuViewItem", 2, "&Whole Plan", [this] {
    view_->ShowWhole();
  })->setShortcut(Qt::CTRL | Qt::Key_0);
}

void frmPicture::ChoosePlot(PillarPlot plot) {
  request_.PlotType = plot;
  view_->Show(request_);
}

// To the next size that the font really has.
void frmPicture::StepFont(int direction) {
  QFont font = view_->TextFont();
  const double before = QFontInfo(font).pointSizeF();
  for (int size = static_cast<int>(std::lround(before)) + direction;
       size >= kSmallestFont && size <= kLargestFont; size += direction) {
    font.setPointSize(size);
    if (QFontInfo(font).pointSizeF() != before) {
      view_->SetTextFont(font);
      return;
    }
  }
}

void frmPicture::Copy() {
  picTMPCopy_->setPixmap(view_->grab());
  CopyPicture(session_, picTMPCopy_->pixmap());
}

// As it stands in the window, as large as the sheet allows.
void frmPicture::Print() {
  session_.Pictures.PrintPicture(windowTitle(), [this](QPaintDevice& sheet, const QRectF& room) {
    HistoryLog(session_.State, "Printing Plan");
    QPainter painter;
    BeginPainting(painter, sheet);
    const double side = std::min(room.width(), room.height());
    painter.translate((room.width() - side) / 2, 0);
    painter.scale(side / view_->Side(), side / view_->Side());
    view_->PaintOnPaper(painter);
  });
}

void frmPicture::SavePlan() {
  SavePicture(session_.State, session_.Ports, "Plan", [this](PictureKind kind) {
    PlanRequest whole = view_->Request();
    whole.Zoom = 1;
    const Plan plan = DrawPlan(whole).value();
    return Formats().DrawingPicture(PictureOf(plan), static_cast<double>(plan.PlanHeight) * whole.TextShare,
                                    kind);
  });
}

void frmPicture::PlaceFirst() {
  const QRect room = (opener_ ? opener_->screen() : screen())->availableGeometry();
  const int side = static_cast<int>(std::min(room.width(), room.height()) * kFirstShare);
  squared_ = QSize(side, side + menuBar()->sizeHint().height());
  resize(squared_);
  move(room.center() - QPoint(width() / 2, height() / 2));
}

// The picture is square: the height follows the width, or the width the height, whichever was changed, as far
// as the screen goes.
void frmPicture::SquareUp() {
  if (isMaximized()) {
    attempts_ = kAttempts;
    UndoMaximise();
    return;
  }
  if (attempts_ > 0) {
    return;  // the size is the window manager's, not a person's
  }
  const int menu = height() - view_->height();
  int side = width() != squared_.width() ? width() : height() - menu;
  side = std::min(side, screen()->availableGeometry().height() - Frame() - menu);
  squared_ = QSize(side, side + menu);
  resize(squared_);
}

int frmPicture::Frame() const {
  return frameGeometry().height() - height();
}

// Asks for the size until the window has it: a window manager restores the size from before first, in its own
// time, and one that allows no other size has the last word.
void frmPicture::UndoMaximise() {
  const QRect room = screen()->availableGeometry();
  const int tall = static_cast<int>(room.height() * kScreenShare) - Frame();
  squared_ = QSize(tall - (height() - view_->height()), tall);
  if ((!isMaximized() && size() == squared_) || attempts_ == 0) {
    attempts_ = 0;
    const QSize outer = frameGeometry().size();  // the place from before may be too low for it
    const QPoint last(room.x() + room.width() - outer.width(), room.y() + room.height() - outer.height());
    move(std::max(room.x(), std::min(x(), last.x())), std::max(room.y(), std::min(y(), last.y())));
    return;
  }
  --attempts_;
  showNormal();
  resize(squared_);
  settle_.start();
}

void frmPicture::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (attempts_ > 0) {
    settle_.start();
  }
  QTimer::singleShot(0, this, &frmPicture::SquareUp);
}

void frmPicture::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && isMaximized()) {
    QTimer::singleShot(0, this, &frmPicture::SquareUp);
  }
}

void frmPicture::closeEvent(QCloseEvent* event) {
  if (opener_) {
    opener_->setEnabled(true);
    opener_->show();
    opener_->activateWindow();
  }
  event->accept();
  emit Closed();
}

}  // namespace korva::desktop
