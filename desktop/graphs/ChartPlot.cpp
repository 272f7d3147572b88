#include "desktop/graphs/ChartPlot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/Format.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr QRgb kGridColour = 0xe0e0e0;
constexpr QRgb kQuiet = 0x808080;
constexpr double kNearPoint = 4;  // pixels

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
  axis.setTickLabelFont(PlotFont(kPlotTextPixels));
  axis.setLabelFont(PlotFont(kPlotTextPixels));
  axis.setSubTicks(false);
  axis.setTickLengthOut(5);
  axis.setTickLengthIn(0);
  axis.setNumberFormat(QStringLiteral("gb"));
  axis.setNumberPrecision(6);
  axis.grid()->setPen(QPen(QColor(kGridColour), 1));
  axis.grid()->setZeroLinePen(Qt::NoPen);
}

}  // namespace

QFont PlotFont(int pixels) {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPixelSize(pixels);
  return font;
}

ChartPlot::ChartPlot(QWidget* parent) : QCustomPlot(parent) {
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  setMouseTracking(true);
  plotLayout()->insertRow(0);
  heading_ = new QCPTextElement(this, QString(), PlotFont(kHeadingTextPixels));
  plotLayout()->addElement(0, 0, heading_);
  axisRect()->setupFullAxesBox();
  for (QCPAxis* axis : {xAxis, yAxis}) {
    StyleAxis(*axis);
  }
  for (QCPAxis* axis : {xAxis2, yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  legend->setFont(PlotFont(kPlotTextPixels));
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
  referenceValue_->setFont(PlotFont(kPlotTextPixels));
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

}  // namespace korva::desktop
