#include "desktop/graphs/frmGraph.h"

#include <qcustomplot.h>

#include <QClipboard>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>
#include <cmath>

#include "commands/Attempt.h"
#include "commands/GraphCommands.h"
#include "commands/SavePicture.h"
#include "core/Format.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/services/PicturePrinter.h"
#include "desktop/support/FormTools.h"
#include "graphs/ChartPicture.h"
#include "graphs/GraphTitles.h"

namespace korva::desktop {

namespace {

constexpr int kPrintIndex = 0;
constexpr int kExportIndex = 2;
constexpr int kExitIndex = 4;
constexpr int kPictureIndex = 5;
constexpr int kPointIdIndex = 0;
constexpr int kBasicOptionsIndex = 1;
constexpr int kReferenceIndex = 2;

constexpr int kLeastSide = 267;  // 4000 twips
constexpr int kTextPixels = 12;
constexpr int kHeadingPixels = 20;                          // 15 points
constexpr QMargins kPlotMargins(0, 0, 3 * kTextPixels, 0);  // room for the value of the reference line
constexpr QRgb kGridColour = 0xe0e0e0;
constexpr double kNearPoint = 4;  // pixels
constexpr double kHole = 1e308;
constexpr std::string_view kPointPattern = "##0.00";

// Sizes in pixels, so that paper and screen have the same proportions.
QFont PixelFont(int pixels) {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPixelSize(pixels);
  return font;
}

// Two pixels larger than the setting, so that it shows on the line.
QCPScatterStyle SymbolOf(const ChartCurve& curve, std::size_t index, int size) {
  static constexpr std::array kShapes = {QCPScatterStyle::ssDisc, QCPScatterStyle::ssSquare,
                                         QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond};
  const QColor colour(curve.Colour);
  return {kShapes.at(index), colour, colour, static_cast<double>(size) + 2};
}

QAction* AddItem(QMenu* menu, const char* array, int index, const char* caption) {
  QAction* action = menu->addAction(QLatin1String(caption));
  action->setObjectName(IndexedName(array, index));
  action->setMenuRole(QAction::NoRole);
  return action;
}

void StyleAxis(QCPAxis& axis) {
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

}  // namespace

frmGraph::frmGraph(Session& session) : session_(session) {
  setObjectName(QStringLiteral("frmGraph"));
  setWindowTitle(QStringLiteral("KORVA-STROND Graph"));
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSide, kLeastSide);
  BuildBody();
  BuildMenus();
  CenterForm(*this);
}

QSize frmGraph::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 36};
}

void frmGraph::BuildBody() {
  auto* body = new QWidget(this);
  BuildPlot(body);
  ConnectPlot();
  BuildPointFrame(body);
  auto* all = new QVBoxLayout(body);
  ApplySpacing(*all, *this);
  all->addWidget(graph1_, 1);
  all->addWidget(pointFrame_, 0, Qt::AlignLeft);
  setCentralWidget(body);
}

void frmGraph::BuildPlot(QWidget* body) {
  graph1_ = new QCustomPlot(body);
  graph1_->setObjectName(QStringLiteral("graph1"));
  graph1_->setAccessibleName(QStringLiteral("Graph of stability factors"));
  graph1_->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  graph1_->setMouseTracking(true);
  graph1_->installEventFilter(this);
  graph1_->plotLayout()->insertRow(0);
  heading_ = new QCPTextElement(graph1_, QString(), PixelFont(kHeadingPixels));
  graph1_->plotLayout()->addElement(0, 0, heading_);
  graph1_->axisRect()->setupFullAxesBox();
  for (QCPAxis* axis : {graph1_->xAxis, graph1_->yAxis}) {
    StyleAxis(*axis);
  }
  for (QCPAxis* axis : {graph1_->xAxis2, graph1_->yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  graph1_->legend->setFont(PixelFont(kTextPixels));
  graph1_->legend->setBorderPen(QPen(QColor(kGridColour)));
}

// A double click in the plot shows all of it again; on a title, it edits that.
void frmGraph::ConnectPlot() {
  connect(graph1_, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) { TrackPoint(*event); });
  connect(graph1_, &QCustomPlot::mouseDoubleClick, this, [this](QMouseEvent* event) {
    if (graph1_->axisRect()->rect().contains(event->pos())) {
      ShowWhole();
    }
  });
  connect(graph1_, &QCustomPlot::axisDoubleClick, this,
          [this](QCPAxis* axis, QCPAxis::SelectablePart part, QMouseEvent*) {
            if (part == QCPAxis::spAxisLabel) {
              axis->setLabel(Edited(axis->label(), QStringLiteral("Axis title")));
              graph1_->replot();
            }
          });
  connect(heading_, &QCPTextElement::doubleClicked, this, [this](QMouseEvent*) {
    heading_->setText(Edited(heading_->text(), QStringLiteral("Graph title")));
    graph1_->replot();
  });
}

void frmGraph::BuildPointFrame(QWidget* body) {
  pointFrame_ = new QGroupBox(QStringLiteral("Point ID"), body);
  pointFrame_->setObjectName(QStringLiteral("Frame1"));
  auto* rows = new QFormLayout(pointFrame_);
  const auto row = [&](const char* caption, const char* name) {
    QLabel* value = NewLabel(QLatin1String(name), {}, pointFrame_);
    value->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    value->setAccessibleName(QLatin1String(caption));
    rows->addRow(QLatin1String(caption), value);
    return value;
  };
  lblCurve_ = row("Curve:", "lblCurve");
  lblSF_ = row("Stability Fact:", "lblSF");
  lblX_ = row("X-coord:", "lblX");
  pointFrame_->hide();
}

void frmGraph::BuildMenus() {
  const auto menu = [this](const char* name, const char* caption) {
    QMenu* made = menuBar()->addMenu(QLatin1String(caption));
    made->setObjectName(QLatin1String(name));
    return made;
  };
  QMenu* file = menu("GraphFile", "&File");
  const auto fileItem = [&](int index, const char* caption) {
    QAction* action = AddItem(file, "GraphFileItem", index, caption);
    connect(action, &QAction::triggered, this, [this, index] { Run([this, index] { FileItem(index); }); });
    return action;
  };
  const auto separator = [&](int index) {
    file->addSeparator()->setObjectName(IndexedName("GraphFileItem", index));
  };
  fileItem(kPrintIndex, "&Print")->setShortcut(QKeySequence::Print);
  fileItem(kPictureIndex, "&Save Picture...")->setShortcut(QKeySequence::Save);
  separator(kPrintIndex + 1);
  fileItem(kExportIndex, "Export to Excel");
  separator(kExportIndex + 1);
  fileItem(kExitIndex, "E&xit")->setShortcut(Qt::Key_Escape);

  QAction* copy = AddItem(menu("GraphEdit", "&Edit"), "GraphEditItem", 0, "Copy ");
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, &frmGraph::Copy);

  QMenu* options = menu("GraphOptions", "&Options");
  for (const auto& [index, caption, checkable] :
       {std::tuple{kPointIdIndex, "Point ID", true}, std::tuple{kBasicOptionsIndex, "Basic &Options", false},
        std::tuple{kReferenceIndex, "Reference &Line", true}}) {
    QAction* action = AddItem(options, "GraphOptionsItem", index, caption);
    action->setCheckable(checkable);
    action->setChecked(index == kReferenceIndex);
    connect(action, &QAction::triggered, this, [this, i = index] { Run([this, i] { OptionsItem(i); }); });
    pointId_ = index == kPointIdIndex ? action : pointId_;
  }
}

template <class Command>
void frmGraph::Run(Command&& command) {
  Attempt(session_.State, session_.Outside.Messages, command);
}

void frmGraph::GraphInit(int index) {
  Korva& korva = session_.State;
  index_ = index;
  PrepareTitles(korva.Preferences.Graph, index, korva.Stored.ProjectUnits);
  DisplayCurves_ = korva::DisplayCurves(korva.ProjectCalc, korva.Sweep);
  ShowTitles();
}

void frmGraph::ShowTitles() {
  const Chart chart = TheChart();
  heading_->setText(FromUtf8(chart.Title));
  graph1_->xAxis->setLabel(FromUtf8(chart.XTitle));
  graph1_->yAxis->setLabel(FromUtf8(chart.YTitle));
  graph1_->xAxis->grid()->setVisible(chart.VerticalGrid);
  graph1_->yAxis->grid()->setVisible(chart.HorizontalGrid);
}

Chart frmGraph::TheChart() const {
  const Korva& korva = session_.State;
  return ChartOf(korva.Sweep, DisplayCurves_, korva.Preferences.Graph, showReference_ && DisplayCurves_ > 0);
}

void frmGraph::DrawCurve() {
  const Chart chart = TheChart();
  graph1_->clearGraphs();
  for (std::size_t i = 0; i < chart.Curves.size(); ++i) {
    AddCurve(chart, i);
  }
  ShowReference(chart);
  graph1_->legend->setVisible(chart.Legend && !chart.Curves.empty());
  ShowWhole();
  PlaceLegend();
}

void frmGraph::AddCurve(const Chart& chart, std::size_t index) {
  constexpr double kWidth = 3;
  const ChartCurve& curve = chart.Curves[index];
  QCPGraph* graph = graph1_->addGraph();
  graph->setName(chart.Legend ? FromUtf8(curve.Label) : QString());
  graph->setData(QVector<double>(curve.X.begin(), curve.X.end()),
                 QVector<double>(curve.Y.begin(), curve.Y.end()), true);
  graph->setLineStyle(chart.Lines ? QCPGraph::lsLine : QCPGraph::lsNone);
  graph->setPen(QPen(QColor(curve.Colour), kWidth));
  graph->setScatterStyle(chart.Symbols ? SymbolOf(curve, index, chart.SymbolSize)
                                       : QCPScatterStyle(QCPScatterStyle::ssNone));
}

void frmGraph::ShowReference(const Chart& chart) {
  graph1_->clearItems();
  if (!chart.Reference) {
    return;
  }
  constexpr QRgb kQuiet = 0x808080;
  auto* line = new QCPItemStraightLine(graph1_);
  line->setObjectName(QStringLiteral("ReferenceLine"));
  line->setPen(QPen(QColor(kQuiet), 1, Qt::DashLine));
  line->point1->setCoords(0, *chart.Reference);
  line->point2->setCoords(1, *chart.Reference);
  auto* value = new QCPItemText(graph1_);
  value->setText(FromUtf8(Format(*chart.Reference, "0.0")));
  value->setFont(PixelFont(kTextPixels));
  value->setColor(QColor(kQuiet));
  value->setClipToAxisRect(false);
  value->setPositionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  value->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
  value->position->setTypeY(QCPItemPosition::ptPlotCoords);
  value->position->setCoords(1.005, *chart.Reference);
}

// Inside where no curve runs, else right of the plot, which gets narrower then.
void frmGraph::PlaceLegend() {
  QCPAxisRect& plot = *graph1_->axisRect();
  QCPLayoutInset& inset = *plot.insetLayout();
  const QSize size = graph1_->legend->minimumOuterSizeHint();
  constexpr int kGap = 14;
  plot.setMinimumMargins(kPlotMargins);
  graph1_->replot();
  if (plot.width() < 1 || plot.height() < 1 || !graph1_->legend->visible()) {
    return;
  }
  const auto across = [&plot](double pixels) { return pixels / plot.width(); };
  const auto up = [&plot](double pixels) { return pixels / plot.height(); };
  const auto corner =
      FreeCorner(TheChart(), {across(size.width()), up(size.height()), across(kGap), up(kGap)});
  if (corner) {
    const bool right = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kBottomRight;
    const bool top = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kTopLeft;
    inset.setInsetPlacement(0, QCPLayoutInset::ipBorderAligned);
    inset.setInsetAlignment(
        0, (right ? Qt::AlignRight : Qt::AlignLeft) | (top ? Qt::AlignTop : Qt::AlignBottom));
  } else {
    plot.setMinimumMargins(kPlotMargins + QMargins(0, 0, size.width() + kGap, 0));
    graph1_->replot();
    inset.setInsetPlacement(0, QCPLayoutInset::ipFree);
    inset.setInsetRect(0,
                       QRectF(1 + across(kPlotMargins.right()), 0, across(size.width()), up(size.height())));
  }
  graph1_->replot();
}

void frmGraph::ShowWhole() {
  const Chart chart = TheChart();
  const auto show = [](QCPAxis& axis, const AxisScale& scale) {
    axis.setRange(scale.Low, scale.High);
    axis.ticker()->setTickCount(scale.Labels() - 1);
  };
  show(*graph1_->xAxis, chart.XScale);
  show(*graph1_->yAxis, chart.YScale);
  graph1_->replot();
}

void frmGraph::ClearGraph() {
  DisplayCurves_ = 0;
  DrawCurve();
}

void frmGraph::ShowNewFormat() {
  ShowTitles();
  DrawCurve();
}

void frmGraph::TrackPoint(const QMouseEvent& event) {
  if (!pointId_->isChecked()) {
    return;
  }
  double nearest = kNearPoint;
  const QCPGraph* curve = nullptr;
  QPointF point;
  for (int i = 0; graph1_->axisRect()->rect().contains(event.pos()) && i < graph1_->graphCount(); ++i) {
    for (const QCPGraphData& at : *graph1_->graph(i)->data()) {
      const double dx = graph1_->xAxis->coordToPixel(at.key) - event.pos().x();
      const double dy = graph1_->yAxis->coordToPixel(at.value) - event.pos().y();
      if (std::hypot(dx, dy) < nearest && at.value != kHole) {
        nearest = std::hypot(dx, dy);
        curve = graph1_->graph(i);
        point = {at.key, at.value};
      }
    }
  }
  if (curve == nullptr) {
    graph1_->unsetCursor();
    return;
  }
  lblSF_->setText(FromUtf8(Format(point.y(), kPointPattern)));
  lblX_->setText(FromUtf8(Format(point.x(), kPointPattern)));
  lblCurve_->setText(curve->name());
  graph1_->setCursor(Qt::CrossCursor);
}

void frmGraph::FileItem(int index) {
  ReadBack();  // titles may have been edited in the chart
  switch (index) {
    case kPrintIndex:
      Print();
      break;
    case kExportIndex:
      ExportGraph(session_.State, session_.Outside, TheChart());
      break;
    case kPictureIndex:
      SavePicture(session_.State, session_.Outside, "Graph",
                  [this](PictureKind kind) { return ChartPicture(TheChart(), kind); });
      break;
    default:
      close();
      break;
  }
}

void frmGraph::Print() {
  session_.Pictures.PrintPicture(heading_->text(), [this](QPaintDevice& sheet, const QRectF& room) {
    HistoryLog(session_.State.SessionHistory, session_.State.Preferences, "Printing Graph");
    QCPPainter painter;
    BeginPainting(painter, sheet);
    // In the proportions of the screen, as large as the sheet allows.
    const double scale = std::min(room.width() / graph1_->width(), room.height() / graph1_->height());
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.scale(scale, scale);
    graph1_->toPainter(&painter, graph1_->width(), graph1_->height());
  });
}

void frmGraph::Copy() {
  constexpr double kSharp = 2;
  QGuiApplication::clipboard()->setPixmap(graph1_->toPixmap(graph1_->width(), graph1_->height(), kSharp));
}

void frmGraph::OptionsItem(int index) {
  switch (index) {
    case kPointIdIndex:
      pointFrame_->setVisible(pointId_->isChecked());
      graph1_->unsetCursor();
      break;
    case kBasicOptionsIndex: {
      ReadBack();
      frmGraphOpt options(session_, *this);
      options.exec();
      break;
    }
    default:
      showReference_ = !showReference_;
      DrawCurve();
      break;
  }
}

QString frmGraph::Edited(const QString& title, const QString& what) {
  bool accepted = false;
  const QString edited =
      QInputDialog::getText(this, windowTitle(), what, QLineEdit::Normal, title, &accepted);
  return accepted ? edited : title;
}

// What was edited in the chart itself stays.
void frmGraph::ReadBack() {
  GraphSettings& settings = session_.State.Preferences.Graph;
  settings.GraphTitle = heading_->text().toStdString();
  settings.XAxisTitle[index_] = graph1_->xAxis->label().toStdString();
  settings.YAxisTitle[YTitleOf(index_)] = graph1_->yAxis->label().toStdString();
  settings.GridStyle = static_cast<std::int16_t>((graph1_->yAxis->grid()->visible() ? 1 : 0) +
                                                 (graph1_->xAxis->grid()->visible() ? 2 : 0));
}

void frmGraph::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
    ReadBack();
  }
  QMainWindow::changeEvent(event);
}

// The chart has another size: its legend may have to go elsewhere.
bool frmGraph::eventFilter(QObject* watched, QEvent* event) {
  if (watched == graph1_ && event->type() == QEvent::Resize) {
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (isVisible()) {
            PlaceLegend();
          }
        },
        Qt::QueuedConnection);
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmGraph::closeEvent(QCloseEvent* event) {
  ReadBack();
  session_.Main.SetInputEnabled(true);
  session_.Main.Refresh();
  event->accept();
}

}  // namespace korva::desktop
