#include "desktop/graphs/ChartView.h"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "commands/Formats.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/PaintPicture.h"

namespace korva::desktop {

namespace {

constexpr double kNearPoint = 4;  // pixels
constexpr double kWheelStep = 0.85;
constexpr double kLeastSpan = 1e-3;  // of the whole
constexpr double kMostSpan = 10;
constexpr PictureSize kLeastSheet = {480, 330};

DrawPoint PointOf(const QPointF& position) {
  return {position.x(), position.y()};
}

// The range moved and sized so that some of the whole stays in sight.
AxisRange WithinSight(AxisRange range, const AxisRange& whole) {
  const double all = whole.High - whole.Low;
  const double span = std::clamp(range.High - range.Low, kLeastSpan * all, kMostSpan * all);
  const double middle = std::clamp((range.Low + range.High) / 2, whole.Low - span / 2, whole.High + span / 2);
  return {middle - span / 2, middle + span / 2};
}

}  // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ChartView::Show(Chart chart) {
  chart_ = std::move(chart);
  ShowWhole();
}

void ChartView::ShowWhole() {
  seen_.reset();
  Arrange();
}

void ChartView::Arrange() {
  layout_ = LayOutChart(chart_, {double(width()), double(height())}, Formats().TextWidth, seen_);
  QStringList notes;
  for (const std::string& note : chart_.Notes) {
    notes << FromUtf8(note);
  }
  setAccessibleDescription(notes.join(QLatin1String(". ")));
  if (layout_.LegendOmitted) {
    notes << QStringLiteral("A larger window shows the legend");
  }
  setToolTip(notes.join(QLatin1Char('\n')));
  update();
}

Picture ChartView::Sheet() const {
  const PictureSize size = {std::max<double>(width(), kLeastSheet.Width),
                            std::max<double>(height(), kLeastSheet.Height)};
  return LayOutChart(chart_, size, Formats().TextWidth, seen_).Drawn;
}

std::optional<ChartPoint> ChartView::PointAt(const QPointF& position) const {
  double nearest = kNearPoint;
  std::optional<ChartPoint> point;
  if (!layout_.Plot.Contains(PointOf(position))) {
    return point;
  }
  for (const PlacedPoint& placed : layout_.Points) {
    const double away = std::hypot(placed.At.X - position.x(), placed.At.Y - position.y());
    if (away < nearest) {
      nearest = away;
      const ChartCurve& curve = chart_.Curves[placed.Curve];
      point = {placed.Curve, curve.X[placed.Index], curve.Y[placed.Index]};
    }
  }
  return point;
}

void ChartView::ShowBox(const PictureBox& box) {
  const DrawPoint low = layout_.ValueAt({box.Left, box.Bottom});
  const DrawPoint high = layout_.ValueAt({box.Right, box.Top});
  const ChartWindow whole = WholeOf(chart_);
  seen_ = {WithinSight({low.X, high.X}, whole.X), WithinSight({low.Y, high.Y}, whole.Y)};
  Arrange();
}

void ChartView::ZoomBy(double factor, QPointF around) {
  const PictureBox& plot = layout_.Plot;
  const auto from = [factor](double edge, double fixed) { return fixed + (edge - fixed) / factor; };
  ShowBox({from(plot.Left, around.x()), from(plot.Top, around.y()), from(plot.Right, around.x()),
           from(plot.Bottom, around.y())});
}

void ChartView::EditTitle(std::string& title, const char* what) {
  title = Edit(FromUtf8(title), QLatin1String(what)).toStdString();
  Arrange();
  emit TitleEdited();
}

void ChartView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPicture(painter, layout_.Drawn);
}

void ChartView::resizeEvent(QResizeEvent*) {
  Arrange();
}

void ChartView::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0 && layout_.Plot.Contains(PointOf(event->position()))) {
    ZoomBy(std::pow(kWheelStep, -event->angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep}),
           event->position());
  }
  event->accept();
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && layout_.Plot.Contains(PointOf(event->position()))) {
    dragged_ = event->position();
  }
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  if (dragged_) {
    const QPointF by = event->position() - *dragged_;
    const PictureBox& plot = layout_.Plot;
    dragged_ = event->position();
    ShowBox({plot.Left - by.x(), plot.Top - by.y(), plot.Right - by.x(), plot.Bottom - by.y()});
  }
  emit PointerMoved(event->position());
}

void ChartView::mouseReleaseEvent(QMouseEvent*) {
  dragged_.reset();
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event) {
  const DrawPoint at = PointOf(event->position());
  if (layout_.Plot.Contains(at)) {
    ShowWhole();
  } else if (layout_.Title.Contains(at)) {
    EditTitle(chart_.Title, "Graph title");
  } else if (layout_.XTitle.Contains(at)) {
    EditTitle(chart_.XAxis.Title, "Axis title");
  } else if (layout_.YTitle.Contains(at)) {
    EditTitle(chart_.YAxis.Title, "Axis title");
  }
}

}  // namespace korva::desktop
