#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <filesystem>

#include "commands/SweepCommand.h"
#include "desktop/FormBench.h"
#include "desktop/graphs/ChartView.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "graphs/GraphTitles.h"
#include "pictures/PaintPicture.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

class GraphWindow : public testing::Test {
 protected:
  GraphWindow() {
    bench.State.Stored = test::Stored(test::TwoSideGobs());
    bench.State.ProjectEmpty = false;
    bench.State.ProjectFileName = "/mine/panel.KVL";
    bench.State.Places.IniFile = folder / "KORVA-STROND.INI";
    bench.State.Places.TempRoot = folder / "";
  }
  ~GraphWindow() override { delete window.data(); }

  frmGraph& Open(GraphKind graph = kDepthGraph) {
    auto job = PrepareSweep(bench.State, bench.Ports.Messages, graph);
    KeepSweep(bench.State, *job, RunSweepJob(*job, [](int, int) { return true; }));
    bench.Main.Enabled = false;
    window = new frmGraph(bench.Forms);
    window->GraphInit(graph);
    window->DrawCurve();
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return *window;
  }
  ChartView& Plot() { return The<ChartView>(*window, "graph1"); }
  const Chart& Shown() { return Plot().Shown(); }
  // Where a point of a curve stands.
  QPointF PlaceOf(std::size_t curve, std::size_t index) {
    const DrawPoint at =
        Plot().Layout().Place(Shown().Curves[curve].X[index], Shown().Curves[curve].Y[index]);
    return {at.X, at.Y};
  }
  void DoubleClick(const PictureBox& box) {
    QTest::mouseDClick(&Plot(), Qt::LeftButton, {}, QPointF(box.CenterX(), box.CenterY()).toPoint());
  }
  void Choose(const char* item) { The<QAction>(*window, item).trigger(); }
  GraphSettings& Settings() { return bench.State.Preferences.Graph; }
  // Runs `act` on the options dialog that the menu opens.
  void InOptions(const std::function<void(QWidget&)>& act) {
    bool seen = false;
    QTimer::singleShot(0, window, [&] {
      QWidget* options = QApplication::activeModalWidget();
      ASSERT_NE(options, nullptr);
      seen = true;
      act(*options);
    });
    Choose("GraphOptionsItem(1)");
    EXPECT_TRUE(seen);
  }

  TempFolder folder;
  FormBench bench;
  QPointer<frmGraph> window;
};

TEST_F(GraphWindow, ShowsTheCurvesOfTheSweep) {
  Open();
  ASSERT_EQ(Shown().Curves.size(), 2U);
  EXPECT_EQ(Shown().XAxis.Title, "Depth of Cover (ft)");
  EXPECT_EQ(Shown().Curves[1].Y[3], static_cast<double>(bench.State.Sweep.GraphData[2][3]));
  EXPECT_EQ(Shown().References.size(), 1U);
  Choose("GraphOptionsItem(2)");
  EXPECT_TRUE(Shown().References.empty());
  EXPECT_LE(window->minimumWidth(), 267);

  window->close();
  EXPECT_TRUE(bench.Main.Enabled);
}

TEST_F(GraphWindow, TellsPointsThatTheFormWouldRefuse) {
  bench.State.Preferences.Options.PlotRangeMin = 5;
  Open(kXcutSpacingGraph);
  EXPECT_TRUE(Plot().toolTip().startsWith(QStringLiteral("Hollow, shaded: pillars without length")));
  EXPECT_EQ(Plot().accessibleDescription(), Plot().toolTip());
  Plot().resize(220, 140);
  EXPECT_TRUE(Plot().toolTip().endsWith(QStringLiteral("\nA larger window shows the legend")));
}

TEST_F(GraphWindow, PointIdKeepsItsRoomInASmallWindow) {
  Open(kFirstBarrierGraph);
  window->resize(window->minimumSize());
  QCoreApplication::processEvents();
  const int height = Plot().height();
  Choose("GraphOptionsItem(0)");
  QCoreApplication::processEvents();
  EXPECT_GE(Plot().height(), height);
  const auto& frame = The<QGroupBox>(*window, "Frame1");
  for (const QLabel* label : frame.findChildren<QLabel*>()) {
    EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
  }
  EXPECT_TRUE(frame.parentWidget()->rect().contains(frame.geometry()));
  Choose("GraphOptionsItem(0)");
  EXPECT_EQ(window->minimumHeight(), 267);
}

TEST_F(GraphWindow, TheWheelZoomsAndDraggingMoves) {
  Open();
  const ChartWindow whole = Plot().Layout().Seen;
  const QPointF point = PlaceOf(1, 9);
  const auto roll = [&](int notches) {
    QWheelEvent event(point, Plot().mapToGlobal(point), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Plot(), &event);
  };
  roll(3);
  const ChartWindow zoomed = Plot().Layout().Seen;
  EXPECT_NEAR(zoomed.X.High - zoomed.X.Low, (whole.X.High - whole.X.Low) * std::pow(0.85, 3), 1e-6);
  EXPECT_NEAR(PlaceOf(1, 9).y(), point.y(), 1) << "what is under the pointer stays there";
  QTest::mousePress(&Plot(), Qt::LeftButton, {}, point.toPoint());
  QTest::mouseMove(&Plot(), point.toPoint() + QPoint(40, -30));
  QTest::mouseRelease(&Plot(), Qt::LeftButton, {}, point.toPoint() + QPoint(40, -30));
  EXPECT_NEAR(PlaceOf(1, 9).x(), point.x() + 40, 2);
  EXPECT_NEAR(PlaceOf(1, 9).y(), point.y() - 30, 2);
  EXPECT_LT(Plot().Layout().Seen.X.Low, zoomed.X.Low);
  roll(200);
  EXPECT_GT(Plot().Layout().Seen.X.High, Plot().Layout().Seen.X.Low);
  roll(-400);
  EXPECT_LE(Plot().Layout().Seen.X.High - Plot().Layout().Seen.X.Low, 10.001 * (whole.X.High - whole.X.Low));
  DoubleClick(Plot().Layout().Plot);
  EXPECT_EQ(Plot().Layout().Seen.X.High, whole.X.High);
  EXPECT_EQ(Plot().Layout().Seen.Y.Low, whole.Y.Low);
}

TEST_F(GraphWindow, PointIdTellsThePointUnderThePointer) {
  Open();
  const auto move = [&](QPointF to) {
    QMouseEvent event(QEvent::MouseMove, to, Plot().mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&Plot(), &event);
  };
  move(PlaceOf(1, 9).toPoint());
  EXPECT_EQ(The<QLabel>(*window, "lblSF").text(), QString()) << "Point ID is off";
  Choose("GraphOptionsItem(0)");
  EXPECT_TRUE(The<QGroupBox>(*window, "Frame1").isVisible());
  QCoreApplication::processEvents();
  const QPoint point = PlaceOf(1, 9).toPoint();
  move(point);
  EXPECT_EQ(The<QLabel>(*window, "lblCurve").text(), QStringLiteral("Retreat (KORVA)"));
  EXPECT_NEAR(The<QLabel>(*window, "lblSF").text().toDouble(), Shown().Curves[1].Y[9], 0.0051);
  EXPECT_NEAR(The<QLabel>(*window, "lblX").text().toDouble(), Shown().Curves[1].X[9], 0.0051);
  EXPECT_EQ(Plot().cursor().shape(), Qt::CrossCursor);
  move(point + QPointF(0, 6));
  EXPECT_EQ(Plot().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GraphWindow, EditsInTheChartAreReadBack) {
  Open(kFirstBarrierGraph);
  Settings().GridStyle = GridLines::kHorizontal;
  window->DrawCurve();
  Plot().Edit = [](const QString& title, const QString& what) {
    return what + QStringLiteral(" of ") + title;
  };
  DoubleClick(Plot().Layout().Title);
  DoubleClick(Plot().Layout().XTitle);
  DoubleClick(Plot().Layout().YTitle);
  EXPECT_EQ(Settings().GraphTitle, "Graph title of Korva Panel Review - Strondel");
  EXPECT_EQ(Settings().XAxisTitle[kFirstBarrierGraph], "Axis title of Width of First Barrier (ft)");
  EXPECT_EQ(Settings().YAxisTitle[1], "Axis title of Barrier Stability Factor");
  EXPECT_EQ(Settings().YAxisTitle[0], "Stability Factor");
  EXPECT_EQ(Settings().GridStyle, GridLines::kHorizontal);
  Choose("GraphOptionsItem(2)");
  EXPECT_TRUE(Shown().Title.starts_with("Graph title of"));
}

TEST_F(GraphWindow, OptionsAreTakenByOKAlone) {
  Settings().GraphSetParams = true;
  Open();
  InOptions([&](QWidget& options) {
    The<QLineEdit>(options, "Text1").setText(QStringLiteral("Not taken"));
    Click(options, "Option1(0)");  // would make everything default
    EXPECT_FALSE(The<QWidget>(options, "Text1").isEnabled());
    Click(options, "Option1(1)");
    The<QLineEdit>(options, "Text1").setText(QStringLiteral("Not taken either"));
    Click(options, "Option1(1)");
    EXPECT_EQ(The<QLineEdit>(options, "Text1").text(), QStringLiteral("Not taken either"));
    Click(options, "Command1");
  });
  EXPECT_EQ(Settings().GraphTitle, "Korva Panel Review - Strondel");
  EXPECT_TRUE(Settings().GraphSetParams);
  EXPECT_FALSE(std::filesystem::exists(bench.State.Places.IniFile));

  InOptions([&](QWidget& options) {
    EXPECT_TRUE(The<QWidget>(options, "Text2(1)").isVisible());
    EXPECT_FALSE(The<QWidget>(options, "Text2(0)").isVisible());
    EXPECT_FALSE(The<QWidget>(options, "Text3(1)").isVisible());
    The<QLineEdit>(options, "Text1").setText(QStringLiteral("North panel"));
    The<QComboBox>(options, "Combo1").setCurrentIndex(3);
    The<QComboBox>(options, "Combo2").setCurrentIndex(0);
    EXPECT_FALSE(The<QWidget>(options, "HScroll1").isVisible());
    The<QComboBox>(options, "Combo2").setCurrentIndex(1);
    The<QScrollBar>(options, "HScroll1").setValue(12);
    EXPECT_EQ(The<QLineEdit>(options, "txtSS").text(), QStringLiteral("12"));
    The<QCheckBox>(options, "Check1").setChecked(false);
    Click(options, "Command2");
  });
  EXPECT_EQ(Settings().GraphTitle, "North panel");
  EXPECT_EQ(Settings().GraphStyle, CurveStyle::kSymbols);
  EXPECT_EQ(Settings().SymbolSize, 12);
  EXPECT_TRUE(Shown().XAxis.Grid);
  EXPECT_FALSE(Shown().Curves[0].Line);
  EXPECT_FALSE(Plot().Layout().Legend);
  const std::string saved = TempFolder::Bytes(bench.State.Places.IniFile);
  EXPECT_NE(saved.find("GraphTitle=North panel"), std::string::npos) << saved;

  // "Help" empties the graph, whatever its caption says; an entry that is none is refused.
  InOptions([&](QWidget& options) {
    bench.Ports.Messages.Expect("Please select a valid entry");
    The<QComboBox>(options, "Combo1").setCurrentIndex(-1);
    EXPECT_EQ(The<QComboBox>(options, "Combo1").currentIndex(), 0);
    Click(options, "Command3");
    Click(options, "Command1");
  });
  EXPECT_TRUE(Shown().Curves.empty());
}

TEST_F(GraphWindow, PrintsItselfInItsProportions) {
  Open();
  bench.Pictures.Cancels = true;
  Choose("GraphFileItem(0)");
  EXPECT_EQ(bench.History().find("Printing Graph"), std::string::npos);
  bench.Pictures.Cancels = false;
  window->resize(600, 800);
  Choose("GraphFileItem(0)");
  EXPECT_NE(bench.History().find("Printing Graph"), std::string::npos);
  EXPECT_EQ(bench.Pictures.Title, QStringLiteral("Korva Panel Review - Strondel"));
  const QRect ink = Ink(bench.Pictures.Sheet);
  EXPECT_LT(ink.left(), bench.Pictures.Sheet.width() / 2);
  EXPECT_LT(ink.right(), bench.Pictures.Sheet.width() * 3 / 4) << "upright, not stretched";
}

TEST_F(GraphWindow, CopiesExportsAndSavesPictures) {
  Open();
  Choose("GraphEditItem(0)");
  EXPECT_TRUE(bench.Ports.Clipboard.Picture == PictureBytes(PictureKind::kPng, Plot().Sheet()));
  bench.Ports.Messages.Expect("Exported 2 Curves");
  Choose("GraphFileItem(2)");
  ASSERT_EQ(bench.Ports.Documents.Opened.size(), 1U);
  EXPECT_EQ(bench.Ports.Documents.Opened[0], folder / "panel graph 1.xlsx");
  bench.State.Preferences.Options.AskOfficeInstall = false;
  bench.Ports.Messages.Expect(
      "This option will only work if Microsoft Excel is installed on this computer. Proceed?",
      MessageButtons::kYesNo, MessageAnswer::kNo);
  Choose("GraphFileItem(2)");
  EXPECT_EQ(bench.Ports.Documents.Opened.size(), 1U);

  Plot().Edit = [](const QString&, const QString&) { return QStringLiteral("Cover"); };
  DoubleClick(Plot().Layout().XTitle);
  bench.Ports.Files.Expect(folder / "graph.pdf");
  Choose("GraphFileItem(5)");
  EXPECT_EQ(TempFolder::Bytes(folder / "graph.pdf").find("%PDF"), 0U);
  EXPECT_EQ(Settings().XAxisTitle[kDepthGraph], "Cover");
  // The file holds what the screen shows, zoomed or not.
  Plot().ZoomBy(2, PlaceOf(0, 9));
  bench.Ports.Files.Expect(folder / "graph.png");
  Choose("GraphFileItem(5)");
  EXPECT_TRUE(TempFolder::Bytes(folder / "graph.png") ==
              PictureBytes(PictureKind::kPng, Plot().Layout().Drawn));
  bench.Ports.Files.Expect(folder / "none/graph.pdf");
  bench.Ports.Messages.Expect("Error occurred: Path not found (76). Procedure Terminated");
  Choose("GraphFileItem(5)");
  Choose("GraphFileItem(4)");
  EXPECT_TRUE(bench.Main.Enabled);
}

}  // namespace
}  // namespace korva::desktop
