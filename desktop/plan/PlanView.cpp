#include "desktop/plan/PlanView.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "desktop/plan/PaintDrawing.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Theme.h"

namespace korva::desktop {

namespace {

constexpr double kMostZoom = 20;
constexpr double kWheelStep = 1.2;
constexpr double kLeastShare = 1.0 / 400;
constexpr double kMostShare = 1.0 / 20;
constexpr int kSmallSide = 12;  // font heights

}  // namespace

PlanView::PlanView(const char* name, QWidget* parent) : QWidget(parent), textFont_(DrawingFont(font())) {
  setObjectName(QLatin1String(name));
  setAccessibleName(QStringLiteral("Plan of the panel"));
}

QSize PlanView::sizeHint() const {
  const int side = fontMetrics().height() * kSmallSide;
  return {side, side};
}

bool PlanView::Show(const PlanRequest& request) {
  request_ = request;
  plan_.reset();
  LayOut();
  setMouseTracking(request.Full);
  return plan_.has_value();
}

void PlanView::Clear() {
  plan_.reset();
  update();
}

void PlanView::LayOut() {
  const double share = QFontMetricsF(textFont_, this).height() / std::max(1.0, Side());
  request_.TextShare = std::clamp(share, kLeastShare, kMostShare);
  request_.Zoom = zoom_;
  plan_ = DrawPlan(request_);
  update();
}

void PlanView::SetTextFont(const QFont& font) {
  textFont_ = font;
  if (plan_) {
    LayOut();
  }
}

double PlanView::Side() const {
  return std::min(width(), height());
}

QRectF PlanView::Square() const {
  const double side = Side() * zoom_;
  const QPointF middle = QRectF(rect()).center() + moved_;
  return {middle.x() - side / 2, middle.y() - side / 2, side, side};
}

QRectF PlanView::FrameSquare() const {
  const QPointF middle = QRectF(rect()).center();
  return {middle.x() - Side() / 2, middle.y() - Side() / 2, Side(), Side()};
}

// No more of the surroundings than at the whole plan.
void PlanView::KeepInView() {
  const double most = Side() * (zoom_ - 1) / 2;
  moved_ = {std::clamp(moved_.x(), -most, most), std::clamp(moved_.y(), -most, most)};
  update();
}

void PlanView::ZoomBy(double factor, QPointF point) {
  if (!request_.Full) {
    return;
  }
  const double zoom = std::clamp(zoom_ * factor, 1.0, kMostZoom);
  const QPointF middle = QRectF(rect()).center();
  moved_ = (point - middle) - (point - middle - moved_) * (zoom / zoom_);
  zoom_ = zoom;
  if (plan_) {
    LayOut();
  }
  KeepInView();
}

void PlanView::ShowWhole() {
  ZoomBy(1 / zoom_, {});
}

void PlanView::paintEvent(QPaintEvent*) {
  if (plan_) {
    QPainter painter(this);
    Paint(painter, {palette(), textFont_});
  }
}

QRectF PlanView::PanelRoom() const {
  const QRectF frame = FrameSquare();
  const double scale = frame.height() / static_cast<double>(plan_->PlanHeight);
  return {0, frame.bottom() - plan_->PanelHigh * scale, static_cast<double>(width()),
          (plan_->PanelHigh - plan_->PanelLow) * scale};
}

// The panel in the room that the frame leaves, the frame always whole.
void PlanView::Paint(QPainter& painter, const PaintStyle& style) const {
  painter.save();
  if (zoom_ > 1) {
    painter.setClipRect(PanelRoom(), Qt::IntersectClip);
  }
  PaintDrawing(painter, Square(), plan_->Panel, style);
  painter.restore();
  PaintDrawing(painter, FrameSquare(), plan_->Frame, style);
}

void PlanView::PaintOnPaper(QPainter& painter) const {
  QFont font(textFont_);
  font.setPixelSize(QFontInfo(textFont_).pixelSize());
  QPalette paper = ThemePalette(false);
  paper.setColor(QPalette::Window, Qt::white);
  painter.save();
  painter.translate(-FrameSquare().topLeft());
  painter.setClipRect(FrameSquare(), Qt::IntersectClip);
  Paint(painter, {paper, font, true, true});
  painter.restore();
}

void PlanView::resizeEvent(QResizeEvent*) {
  if (plan_) {
    LayOut();
    KeepInView();
  }
}

void PlanView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && zoom_ > 1) {
    dragged_ = event->position();
    setCursor(Qt::ClosedHandCursor);
    QToolTip::hideText();
  }
}

void PlanView::mouseMoveEvent(QMouseEvent* event) {
  if (dragged_) {
    moved_ += event->position() - *dragged_;
    dragged_ = event->position();
    KeepInView();
    return;
  }
  ShowHint(*event);
}

void PlanView::mouseReleaseEvent(QMouseEvent*) {
  dragged_.reset();
  unsetCursor();
}

void PlanView::mouseDoubleClickEvent(QMouseEvent*) {
  ShowWhole();
}

void PlanView::wheelEvent(QWheelEvent* event) {
  ZoomBy(std::pow(kWheelStep, event->angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep}),
         event->position());
  event->accept();
}

void PlanView::leaveEvent(QEvent*) {
  QToolTip::hideText();
}

void PlanView::ShowHint(const QMouseEvent& event) {
  if (!plan_ || !request_.Full) {
    return;
  }
  if (!PanelRoom().contains(event.position())) {
    QToolTip::hideText();
    return;
  }
  const QRectF square = Square();
  const double scale = static_cast<double>(plan_->PlanWidth) / square.width();
  const QPointF at = event.position() - square.topLeft();
  const DrawPoint point = {at.x() * scale, (square.height() - at.y()) * scale};
  const QString hint = FromUtf8(PlanHintAt(request_, *plan_, point));
  if (hint.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event.globalPosition().toPoint(), hint, this);
  }
}

}  // namespace korva::desktop
