#include "desktop/graphs/ChartPlot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/Format.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kTextPixels = 12;
constexpr int kHeadingPixels = 20;           // 15 points
constexpr int kRightRoom = 3 * kTextPixels;  // for the value of the reference line
constexpr QMargins kPlotMargins(0, 0, kRightRoom, 0);
constexpr int kEdge = 16;
constexpr int kLegendGap = 14;
constexpr int kLeastPlotWidth = 160;  // that is left where the legend stands beside
constexpr int kLeastPlotHeight = 56;
constexpr int kHeightWithoutNotes = 200;
constexpr QRgb kGridColour = 0xe0e0e0;
constexpr QRgb kQuiet = 0x808080;
constexpr double kNearPoint = 4;  // pixels

// Sizes in pixels, so that paper and screen have the same proportions.
QFont PixelFont(int pixels) {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPixelSize(pixels);
  return font;
}

double TextWidth(const std::string& text) {
  return QFontMetricsF(PixelFont(kTextPixels)).horizontalAdvance(FromUtf8(text));
}

// Two pixels larger than the setting, so that it shows on the line.
QCPScatterStyle SymbolOf(const ChartCurve& curve, std::size_t index, int size, const QColor& fill) {
  static constexpr std::array kShapes = {QCPScatterStyle::ssDisc, QCPScatterStyle::ssSquare,
                                         QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond};
  static constexpr std::array kHollow = {QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare,
                                         QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond};
  const QColor colour(curve.Colour);
  return {fill == colour ? kShapes.at(index) : kHollow.at(index), colour, fill,
          static_cast<double>(size) + 2};
}

void StyleAxis(QCPAxis& axis) {
  axis.setTicker(QSharedPointer<QCPAxisTickerFixed>::create());
  axis.setTickLabelFont(PixelFont(kTextPixels));
  axis.setLabelFont(PixelFont(kTextPixels));
  axis.setSubTicks(false);
  axis.setTickLengthOut(5);
  axis.setTickLengthIn(0);
  axis.setNumberFormat(QStringLiteral("gb"));
  axis.setNumberPrecision(6);
  axis.grid()->setPen(QPen(QColor(kGridColour), 1));
  axis.grid()->setZeroLinePen(Qt::NoPen);
}

// Labels at round numbers with room between them.
void FitTicksOf(QCPAxis& axis, int length, double gap,
                const std::function<double(const std::string&)>& size) {
  const QCPRange range = axis.range();
  axis.ticker().staticCast<QCPAxisTickerFixed>()->setTickStep(
      ScaleThatFits(range.lower, range.upper, length, gap, size).Step);
}

}  // namespace

ChartPlot::ChartPlot(QWidget* parent) : QCustomPlot(parent) {
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  setMouseTracking(true);
  plotLayout()->insertRow(0);
  heading_ = new QCPTextElement(this, QString(), PixelFont(kHeadingPixels));
  plotLayout()->addElement(0, 0, heading_);
  axisRect()->setupFullAxesBox();
  for (QCPAxis* axis : {xAxis, yAxis}) {
    StyleAxis(*axis);
  }
  for (QCPAxis* axis : {xAxis2, yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  legend->setFont(PixelFont(kTextPixels));
  legend->setBorderPen(QPen(QColor(kGridColour)));
  Connect();
}

// A double click in the plot shows all of it again; on a title, it edits that.
void ChartPlot::Connect() {
  for (QCPAxis* axis : {xAxis, yAxis}) {
    connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, [this] { FitTicks(); });
  }
  connect(this, &QCustomPlot::mouseDoubleClick, this, [this](QMouseEvent* event) {
    if (axisRect()->rect().contains(event->pos())) {
      ShowWhole();
    }
  });
  connect(this, &QCustomPlot::axisDoubleClick, this,
          [this](QCPAxis* axis, QCPAxis::SelectablePart part, QMouseEvent*) {
            if (part == QCPAxis::spAxisLabel) {
              axis->setLabel(Edit(axis->label(), QStringLiteral("Axis title")));
              replot();
            }
          });
  connect(heading_, &QCPTextElement::doubleClicked, this, [this](QMouseEvent*) {
    title_ = Edit(title_, QStringLiteral("Graph title"));
    Arrange();
  });
}

void ChartPlot::ShowTitles(const Chart& chart) {
  title_ = FromUtf8(chart.Title);
  xAxis->setLabel(FromUtf8(chart.XTitle));
  yAxis->setLabel(FromUtf8(chart.YTitle));
  xAxis->grid()->setVisible(chart.VerticalGrid);
  yAxis->grid()->setVisible(chart.HorizontalGrid);
}

void ChartPlot::ShowCurves(const Chart& chart) {
  chart_ = chart;
  clearGraphs();
  clearItems();
  referenceValue_ = nullptr;
  for (std::size_t i = 0; i < chart.Curves.size(); ++i) {
    AddCurve(i);
  }
  for (std::size_t i = 0; i < chart.Curves.size() && chart.Symbols && !chart.Bands.empty(); ++i) {
    AddHollowSymbols(i);
  }
  AddBands();
  AddReference();
  ShowWhole();
  Arrange();
}

void ChartPlot::AddCurve(std::size_t index) {
  constexpr double kWidth = 3;
  const ChartCurve& curve = chart_.Curves[index];
  QCPGraph* graph = addGraph();
  graph->setName(chart_.Legend ? FromUtf8(curve.Label) : QString());
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    if (curve.Y[i] != kChartHole) {
      graph->addData(curve.X[i], curve.Y[i]);
    }
  }
  graph->setLineStyle(chart_.Lines ? QCPGraph::lsLine : QCPGraph::lsNone);
  graph->setPen(QPen(QColor(curve.Colour), kWidth));
  graph->setScatterStyle(chart_.Symbols ? SymbolOf(curve, index, chart_.SymbolSize, QColor(curve.Colour))
                                        : QCPScatterStyle(QCPScatterStyle::ssNone));
}

// Over the full ones.
void ChartPlot::AddHollowSymbols(std::size_t index) {
  const ChartCurve& curve = chart_.Curves[index];
  QCPGraph* graph = addGraph();
  graph->setName(this->graph(static_cast<int>(index))->name());
  graph->removeFromLegend();
  graph->setLineStyle(QCPGraph::lsNone);
  graph->setScatterStyle(SymbolOf(curve, index, chart_.SymbolSize, Qt::white));
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    if (IsHollow(chart_, i) && curve.Y[i] != kChartHole) {
      graph->addData(curve.X[i], curve.Y[i]);
    }
  }
}

void ChartPlot::AddBands() {
  for (const ChartBand& band : chart_.Bands) {
    auto* shade = new QCPItemRect(this);
    shade->setObjectName(QStringLiteral("Band"));
    shade->setLayer(QStringLiteral("background"));
    shade->setPen(Qt::NoPen);
    shade->setBrush(QColor(kBandColour));
    for (QCPItemPosition* corner : {shade->topLeft, shade->bottomRight}) {
      corner->setTypeX(QCPItemPosition::ptPlotCoords);
      corner->setTypeY(QCPItemPosition::ptAxisRectRatio);
    }
    shade->topLeft->setCoords(band.From, 0);
    shade->bottomRight->setCoords(band.To, 1);
  }
}

void ChartPlot::AddReference() {
  if (!chart_.Reference) {
    return;
  }
  auto* line = new QCPItemStraightLine(this);
  line->setObjectName(QStringLiteral("ReferenceLine"));
  line->setPen(QPen(QColor(kQuiet), 1, Qt::DashLine));
  line->point1->setCoords(0, *chart_.Reference);
  line->point2->setCoords(1, *chart_.Reference);
  referenceValue_ = new QCPItemText(this);
  referenceValue_->setObjectName(QStringLiteral("ReferenceValue"));
  referenceValue_->setText(FromUtf8(Format(*chart_.Reference, "0.0")));
  referenceValue_->setFont(PixelFont(kTextPixels));
  referenceValue_->setColor(QColor(kQuiet));
  referenceValue_->setClipToAxisRect(false);
  referenceValue_->setPositionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  referenceValue_->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
  referenceValue_->position->setTypeY(QCPItemPosition::ptPlotCoords);
  referenceValue_->position->setCoords(1.005, *chart_.Reference);
}

void ChartPlot::ShowWhole() {
  xAxis->setRange(chart_.XScale.Low, chart_.XScale.High);
  yAxis->setRange(chart_.YScale.Low, chart_.YScale.High);
  replot();
}

std::optional<PlotPoint> ChartPlot::PointAt(const QPointF& position) const {
  double nearest = kNearPoint;
  std::optional<PlotPoint> point;
  for (int i = 0; axisRect()->rect().contains(position.toPoint()) && i < graphCount(); ++i) {
    for (const QCPGraphData& at : *graph(i)->data()) {
      const double away = std::hypot(xAxis->coordToPixel(at.key) - position.x(),
                                     yAxis->coordToPixel(at.value) - position.y());
      if (away < nearest) {
        nearest = away;
        point = {graph(i)->name(), at.key, at.value};
      }
    }
  }
  return point;
}

void ChartPlot::resizeEvent(QResizeEvent* event) {
  QCustomPlot::resizeEvent(event);
  Arrange();
}

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
  replot();
}

// Smaller, then cut off, where it does not fit. The whole of it stays in title_.
void ChartPlot::FitHeading() {
  const int room = width() - kEdge;
  int pixels = kHeadingPixels;
  while (pixels > kTextPixels && QFontMetrics(PixelFont(pixels)).horizontalAdvance(title_) > room) {
    --pixels;
  }
  heading_->setFont(PixelFont(pixels));
  heading_->setText(QFontMetrics(PixelFont(pixels)).elidedText(title_, Qt::ElideRight, room));
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
      std::max(1, (height() - kHeightWithoutNotes) / QFontMetrics(PixelFont(kTextPixels)).height());
  if (lines.size() > most) {
    lines = lines.mid(0, most);
    lines.last() += QStringLiteral(" ...");
  }
  notes_ = new QCPTextElement(this, lines.join(QLatin1Char('\n')), PixelFont(kTextPixels));
  notes_->setObjectName(QStringLiteral("Notes"));
  notes_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
  plotLayout()->addElement(plotLayout()->rowCount(), 0, notes_);
}

void ChartPlot::FitTicks() {
  constexpr double kGapAcross = 10;
  constexpr double kGapUp = 4;
  FitTicksOf(*xAxis, axisRect()->width(), kGapAcross, TextWidth);
  FitTicksOf(*yAxis, axisRect()->height(), kGapUp, [](const std::string&) { return double{kTextPixels}; });
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
