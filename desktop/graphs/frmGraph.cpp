#include "desktop/graphs/frmGraph.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>
#include <algorithm>

#include "commands/Formats.h"
#include "commands/GraphCommands.h"
#include "commands/SavePicture.h"
#include "core/Format.h"
#include "desktop/graphs/ChartView.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/services/PicturePrinter.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/PaintPicture.h"
#include "graphs/GraphTitles.h"
#include "graphs/SweepChart.h"

namespace korva::desktop {

namespace {

constexpr int kLeastSide = 267;  // 4000 twips

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
  graph1_ = new ChartView(body);
  graph1_->setObjectName(QStringLiteral("graph1"));
  graph1_->setAccessibleName(QStringLiteral("Graph of stability factors"));
  graph1_->Edit = [this](const QString& title, const QString& what) { return Edited(title, what); };
  connect(graph1_, &ChartView::TitleEdited, this, [this] { TakeTitles(session_.State, graph1_->Shown()); });
  connect(graph1_, &ChartView::PointerMoved, this, &frmGraph::TrackPoint);
  BuildPointFrame(body);
  QVBoxLayout* all = NewColumn(body);
  all->addWidget(graph1_, 1);
  all->addWidget(pointFrame_, 0, Qt::AlignLeft);
  setCentralWidget(body);
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
  QMenu& file = *AddMenu(*menuBar(), "GraphFile", "&File");
  const auto separator = [&file](int index) {
    file.addSeparator()->setObjectName(IndexedName("GraphFileItem", index));
  };
  AddItem(session_, file, "GraphFileItem", 0, "&Print", [this] {
    Print();
  })->setShortcut(QKeySequence::Print);
  AddItem(session_, file, "GraphFileItem", 5, kSavePictureCaption, [this] {
    Save();
  })->setShortcut(QKeySequence::Save);
  separator(1);
  AddItem(session_, file, "GraphFileItem", 2, "Export to Excel",
          [this] { ExportGraph(session_.State, session_.Ports, CurrentChart()); });
  separator(3);
  AddItem(session_, file, "GraphFileItem", 4, "E&xit", [this] { close(); })->setShortcut(Qt::Key_Escape);

  QMenu& edit = *AddMenu(*menuBar(), "GraphEdit", "&Edit");
  AddItem(session_, edit, "GraphEditItem", 0, "Copy ", [this] {
    session_.Ports.Clipboard.SetPicture(Formats().PictureBytes(PictureKind::kPng, graph1_->Sheet()));
  })->setShortcut(QKeySequence::Copy);

  QMenu& options = *AddMenu(*menuBar(), "GraphOptions", "&Options");
  pointId_ = AddItem(session_, options, "GraphOptionsItem", 0, "Point ID",
                     [this] { ShowPointFrame(pointId_->isChecked()); });
  pointId_->setCheckable(true);
  AddItem(session_, options, "GraphOptionsItem", 1, "Basic &Options",
          [this] { frmGraphOpt(session_, *this).exec(); });
  reference_ = AddItem(session_, options, "GraphOptionsItem", 2, "Reference &Line", [this] { DrawCurve(); });
  reference_->setCheckable(true);
  reference_->setChecked(true);
}

void frmGraph::GraphInit(GraphKind graph) {
  graph_ = graph;
  DisplayCurves_ = korva::DisplayCurves(session_.State.ProjectCalc, session_.State.Sweep);
}

Chart frmGraph::CurrentChart() const {
  const Korva& korva = session_.State;
  return ChartOf(korva.Sweep, DisplayCurves_, korva.Preferences.Graph,
                 reference_->isChecked() && DisplayCurves_ > 0);
}

void frmGraph::DrawCurve() {
  graph1_->Show(CurrentChart());
}

void frmGraph::ClearGraph() {
  DisplayCurves_ = 0;
  DrawCurve();
}

void frmGraph::TrackPoint(QPointF position) {
  if (!pointId_->isChecked()) {
    return;
  }
  const auto point = graph1_->PointAt(position);
  if (!point) {
    graph1_->unsetCursor();
    return;
  }
  lblSF_->setText(FromUtf8(Format(point->Y, kFactorPattern)));
  lblX_->setText(FromUtf8(Format(point->X, kFactorPattern)));
  const Chart& shown = graph1_->Shown();
  lblCurve_->setText(shown.Legend ? FromUtf8(shown.Curves[point->Curve].Label) : QString());
  graph1_->setCursor(Qt::CrossCursor);
}

void frmGraph::Save() {
  SavePicture(session_.State, session_.Ports, "Graph",
              [this](PictureKind kind) { return Formats().PictureBytes(kind, graph1_->Sheet()); });
}

// In the proportions of the screen, as large as the sheet allows.
void frmGraph::Print() {
  const QString title = FromUtf8(graph1_->Shown().Title);
  session_.Pictures.PrintPicture(title, [this](QPaintDevice& sheet, const QRectF& room) {
    HistoryLog(session_.State, "Printing Graph");
    const Picture picture = graph1_->Sheet();
    QPainter painter;
    BeginPainting(painter, sheet);
    const double scale = std::min(room.width() / picture.Size.Width, room.height() / picture.Size.Height);
    painter.scale(scale, scale);
    PaintPicture(painter, picture);
  });
}

// The window keeps the room of the graph and of all that the frame says.
void frmGraph::ShowPointFrame(bool shown) {
  graph1_->unsetCursor();
  pointFrame_->setVisible(shown);
  const int gap = SpacingUnit(*this);
  const QSize frame = pointFrame_->minimumSizeHint();
  setMinimumSize(shown ? std::max(kLeastSide, frame.width() + 4 * gap) : kLeastSide,
                 kLeastSide + (shown ? frame.height() + gap : 0));
}

QString frmGraph::Edited(const QString& title, const QString& what) {
  const auto edited =
      session_.Ports.Values.EnterText({windowTitle().toStdString(), what.toStdString(), title.toStdString()});
  return edited ? FromUtf8(*edited) : title;
}

void frmGraph::closeEvent(QCloseEvent* event) {
  session_.Main.SetInputEnabled(true);
  session_.Main.Refresh();
  event->accept();
}

}  // namespace korva::desktop
