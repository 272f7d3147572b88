// Where everything in the plot stands, by the size that it has.
#include <algorithm>

#include "desktop/graphs/ChartPlot.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kRightRoom = 3 * kPlotTextPixels;  // for the value of the reference line
constexpr QMargins kPlotMargins(0, 0, kRightRoom, 0);
constexpr int kEdge = 16;
constexpr int kLegendGap = 14;
constexpr int kAboveAxis = 4;
constexpr int kLeastTextPixels = 6;
constexpr int kLeastPlotWidth = 160;  // that is left where the legend stands beside
constexpr int kLeastPlotHeight = 56;
constexpr int kHeightWithoutNotes = 200;

double TextWidth(const std::string& text) {
  return QFontMetricsF(PlotFont(kPlotTextPixels)).horizontalAdvance(FromUtf8(text));
}

// Labels at round numbers with room between them.
void FitTicksOf(QCPAxis& axis, int length, double gap,
                const std::function<double(const std::string&)>& size) {
  const QCPRange range = axis.range();
  axis.ticker().staticCast<QCPAxisTickerFixed>()->setTickStep(
      ScaleThatFits(range.lower, range.upper, length, gap, size).Step);
}

}  // namespace

// Everything in its place for the size that the plot has now.
void ChartPlot::Arrange() {
  FitHeading();
  FitNotes();
  axisRect()->setMinimumMargins(kPlotMargins);
  updateLayout();
  FitTicks();
  updateLayout();
  PlaceLegend();
  updateLayout();
  FitTicks();
  FitUprightTitle();
  replot();
}

// Smaller, then cut off, where it does not fit. The whole of it stays in title_.
void ChartPlot::FitHeading() {
  const int room = width() - kEdge;
  int pixels = kHeadingTextPixels;
  while (pixels > kPlotTextPixels && QFontMetrics(PlotFont(pixels)).horizontalAdvance(title_) > room) {
    --pixels;
  }
  heading_->setFont(PlotFont(pixels));
  heading_->setText(QFontMetrics(PlotFont(pixels)).elidedText(title_, Qt::ElideRight, room));
}

// Smaller where it would reach into the heading.
void ChartPlot::FitUprightTitle() {
  const int room = axisRect()->height() + 2 * kAboveAxis;
  int pixels = kPlotTextPixels;
  while (pixels > kLeastTextPixels &&
         QFontMetrics(PlotFont(pixels)).horizontalAdvance(yAxis->label()) > room) {
    --pixels;
  }
  yAxis->setLabelFont(PlotFont(pixels));
}

// The notes in lines; a low window has room for some of them, and the tip for all.
void ChartPlot::FitNotes() {
  if (notes_ != nullptr) {
    plotLayout()->remove(notes_);
    plotLayout()->simplify();
    notes_ = nullptr;
  }
  QStringList all;
  for (const std::string& note : chart_.Notes) {
    all << FromUtf8(note);
  }
  setToolTip(all.join(QLatin1Char('\n')));
  setAccessibleDescription(all.join(QLatin1String(". ")));
  if (all.isEmpty()) {
    return;
  }
  QStringList lines;
  for (const std::string& line : NoteLines(chart_.Notes, width() - kEdge, TextWidth)) {
    lines << FromUtf8(line);
  }
  const int most =
      std::max(1, (height() - kHeightWithoutNotes) / QFontMetrics(PlotFont(kPlotTextPixels)).height());
  if (lines.size() > most) {
    lines = lines.mid(0, most);
    lines.last() += QStringLiteral(" ...");
  }
  notes_ = new QCPTextElement(this, lines.join(QLatin1Char('\n')), PlotFont(kPlotTextPixels));
  notes_->setObjectName(QStringLiteral("Notes"));
  notes_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
  plotLayout()->addElement(plotLayout()->rowCount(), 0, notes_);
}

void ChartPlot::FitTicks() {
  constexpr double kGapAcross = 10;
  constexpr double kGapUp = 4;
  FitTicksOf(*xAxis, axisRect()->width(), kGapAcross, TextWidth);
  FitTicksOf(*yAxis, axisRect()->height(), kGapUp,
             [](const std::string&) { return double{kPlotTextPixels}; });
  if (referenceValue_ != nullptr) {
    referenceValue_->setVisible(yAxis->range().contains(*chart_.Reference));
  }
}

// Inside where no curve runs, else right of the plot, else below it. A window that is too small for all of
// them has none.
void ChartPlot::PlaceLegend() {
  legend->setVisible(chart_.Legend && !chart_.Curves.empty());
  if (!legend->visible()) {
    return;
  }
  const QCPAxisRect& plot = *axisRect();
  const QSize size = LegendOf(kMostCurves);
  const bool fits =
      size.width() + 2 * kLegendGap < plot.width() && size.height() + 2 * kLegendGap < plot.height();
  const auto across = [&plot](double pixels) { return pixels / plot.width(); };
  const auto up = [&plot](double pixels) { return pixels / plot.height(); };
  const auto corner =
      fits ? FreeCorner(chart_, {across(size.width()), up(size.height()), across(kLegendGap), up(kLegendGap)})
           : std::nullopt;
  if (corner) {
    const bool right = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kBottomRight;
    const bool top = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kTopLeft;
    QCPLayoutInset& inset = *axisRect()->insetLayout();
    inset.setInsetPlacement(0, QCPLayoutInset::ipBorderAligned);
    inset.setInsetAlignment(
        0, (right ? Qt::AlignRight : Qt::AlignLeft) | (top ? Qt::AlignTop : Qt::AlignBottom));
    return;
  }
  if (plot.width() - size.width() - kLegendGap >= kLeastPlotWidth) {
    PutLegendBeside(size);
    return;
  }
  const QSize low = LegendOf(2);
  const QSize below = low.width() + kEdge <= width() ? low : LegendOf(kMostCurves);
  legend->setVisible(plot.height() - below.height() - kLegendGap / 2 >= kLeastPlotHeight);
  if (legend->visible()) {
    PutLegendBelow(below);
  } else {
    setToolTip((toolTip() + QStringLiteral("\nA larger window shows the legend")).trimmed());
  }
}

// The size of the legend with so many curves in a column.
QSize ChartPlot::LegendOf(int rows) {
  legend->setWrap(rows);
  legend->setFillOrder(QCPLayoutGrid::foRowsFirst, true);
  return legend->minimumOuterSizeHint();
}

void ChartPlot::PutLegendBeside(const QSize& size) {
  QCPAxisRect& plot = *axisRect();
  plot.setMinimumMargins(kPlotMargins + QMargins(0, 0, size.width() + kLegendGap, 0));
  updateLayout();
  PutLegendAt({QPoint(plot.right() + kRightRoom, plot.top()), size});
}

void ChartPlot::PutLegendBelow(const QSize& size) {
  QCPAxisRect& plot = *axisRect();
  const int axis = plot.margins().bottom();
  plot.setMinimumMargins(kPlotMargins + QMargins(0, 0, 0, axis + size.height() + kLegendGap / 2));
  updateLayout();
  const int left = std::max(kEdge / 2, plot.left() + (plot.width() - size.width()) / 2);
  PutLegendAt({QPoint(left, plot.bottom() + axis), size});
}

// The layout inside the plot takes places in shares of its own room.
void ChartPlot::PutLegendAt(const QRect& place) {
  QCPLayoutInset& inset = *axisRect()->insetLayout();
  const QRectF room = inset.rect();
  if (room.width() < 1 || room.height() < 1) {
    legend->setVisible(false);
    return;
  }
  inset.setInsetPlacement(0, QCPLayoutInset::ipFree);
  inset.setInsetRect(0, QRectF((place.x() - room.x()) / room.width(), (place.y() - room.y()) / room.height(),
                               place.width() / room.width(), place.height() / room.height()));
}

}  // namespace korva::desktop
