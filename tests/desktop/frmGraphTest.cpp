#include <gtest/gtest.h>
#include <qcustomplot.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
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
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "graphs/GraphTitles.h"
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
    auto job = PrepareSweep(bench.State, bench.Outside.Messages, graph);
    KeepSweep(bench.State, *job, RunSweepJob(*job, [](int, int) { return true; }));
    bench.Main.Enabled = false;
    window = new frmGraph(bench.Forms);
    window->GraphInit(graph);
    window->DrawCurve();
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return *window;
  }
  QCustomPlot& Plot() { return The<QCustomPlot>(*window, "graph1"); }
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
  ASSERT_EQ(Plot().graphCount(), 2);
  EXPECT_EQ(Plot().graph(1)->name(), QStringLiteral("Retreat (KORVA)"));
  const SweepData& sweep = bench.State.Sweep;
  ASSERT_EQ(Plot().graph(0)->dataCount(), sweep.PointCount);
  EXPECT_EQ(Plot().graph(1)->dataMainKey(3), static_cast<double>(sweep.GraphData[0][3]));
  EXPECT_EQ(Plot().graph(1)->dataMainValue(3), static_cast<double>(sweep.GraphData[2][3]));
  EXPECT_EQ(Plot().xAxis->label(), QStringLiteral("Depth of Cover (ft)"));
  EXPECT_EQ(Plot().yAxis->label(), QStringLiteral("Stability Factor"));
  EXPECT_EQ(Plot().graph(0)->pen().color(), QColor(0, 0, 255));
  EXPECT_TRUE(Plot().legend->visible());
  EXPECT_FALSE(Plot().xAxis->grid()->visible());
  EXPECT_EQ(Plot().itemCount(), 2) << "line and value of the reference";
  Choose("GraphOptionsItem(2)");
  EXPECT_EQ(Plot().itemCount(), 0);
  EXPECT_LE(window->minimumWidth(), 267);

  window->close();
  EXPECT_TRUE(bench.Main.Enabled);
}

TEST_F(GraphWindow, MarksPointsThatTheFormWouldRefuse) {
  bench.State.Preferences.Options.PlotRangeMin = 5;
  Open(kXcutSpacingGraph);
  ASSERT_EQ(Plot().graphCount(), 4) << "hollow symbols over each curve";
  EXPECT_EQ(Plot().legend->itemCount(), 2);
  const auto& hollow = *Plot().graph(3);
  EXPECT_EQ(hollow.scatterStyle().brush().color(), QColor(Qt::white));
  EXPECT_EQ(hollow.name(), QStringLiteral("Retreat (KORVA)"));
  const auto marked = std::count_if(bench.State.Sweep.Notices.begin(), bench.State.Sweep.Notices.end(),
                                    [](const auto& notices) { return !notices.empty(); });
  EXPECT_GT(marked, 0);
  EXPECT_EQ(hollow.dataCount(), marked);
  EXPECT_EQ(Plot().itemCount(), 3) << "a band beside the reference line";
  EXPECT_TRUE(Plot().toolTip().startsWith(QStringLiteral("Hollow, shaded: pillars without length")));
}

// Curves are never mirrored, and labels neither meet nor leave the plot, in any size.
TEST_F(GraphWindow, FitsEverySize) {
  bench.State.Stored.ProjectInput.CalcMode = kLaminatedModel;
  Open(kXcutSpacingGraph);
  ASSERT_EQ(Plot().graphCount(), 4);
  const QFontMetrics font(Plot().xAxis->tickLabelFont());
  for (const QSize size :
       {QSize(300, 250), QSize(340, 420), QSize(500, 350), QSize(620, 400), QSize(1200, 700)}) {
    window->resize(size);
    QCoreApplication::processEvents();
    const QCPAxisRect& plot = *Plot().axisRect();
    EXPECT_GT(plot.width(), 100);
    EXPECT_GT(plot.height(), 50);
    EXPECT_LT(Plot().xAxis->coordToPixel(50), Plot().xAxis->coordToPixel(150));
    EXPECT_GT(Plot().yAxis->coordToPixel(1), Plot().yAxis->coordToPixel(2));
    const auto ticker = Plot().xAxis->ticker().staticCast<QCPAxisTickerFixed>();
    const double apart = Plot().xAxis->coordToPixel(ticker->tickStep()) - Plot().xAxis->coordToPixel(0);
    EXPECT_GT(apart, font.horizontalAdvance(QStringLiteral("160"))) << size.width();
    const QCPLegend& legend = *Plot().legend;
    EXPECT_TRUE(!legend.visible() || Plot().rect().contains(legend.outerRect())) << size.width();
    for (int i = 0; legend.visible() && i < 4; ++i) {
      for (const QCPGraphData& at : *Plot().graph(i)->data()) {
        EXPECT_FALSE(legend.outerRect().contains(
            QPointF(Plot().xAxis->coordToPixel(at.key), Plot().yAxis->coordToPixel(at.value)).toPoint()));
      }
    }
  }
  EXPECT_TRUE(Plot().legend->visible());
  Settings().GraphTitle = "A heading that is far too long for a window of this size, and stays as it is";
  window->ShowNewFormat();
  window->resize(300, 280);
  QCoreApplication::processEvents();
  window->close();
  EXPECT_TRUE(Settings().GraphTitle.ends_with("stays as it is")) << "what is cut off on the screen alone";
}

TEST_F(GraphWindow, PointIdAndTitlesKeepTheirRoomInASmallWindow) {
  Open(kFirstBarrierGraph);
  window->resize(window->minimumSize());
  QCoreApplication::processEvents();
  const auto titleFits = [this] {
    const QCPAxis& axis = *Plot().yAxis;
    return QFontMetrics(axis.labelFont()).horizontalAdvance(axis.label()) <= Plot().axisRect()->height() + 8;
  };
  EXPECT_TRUE(titleFits());
  const int height = Plot().height();
  Choose("GraphOptionsItem(0)");
  QCoreApplication::processEvents();
  EXPECT_GE(Plot().height(), height);
  EXPECT_TRUE(titleFits());
  for (const QLabel* label : The<QGroupBox>(*window, "Frame1").findChildren<QLabel*>()) {
    EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
  }
  EXPECT_TRUE(The<QGroupBox>(*window, "Frame1")
                  .parentWidget()
                  ->rect()
                  .contains(The<QGroupBox>(*window, "Frame1").geometry()));
  Choose("GraphOptionsItem(0)");
  EXPECT_EQ(window->minimumHeight(), 267);
}

TEST_F(GraphWindow, TheReferenceIsLabelledWhereItShows) {
  Open();
  const auto* label = Plot().findChild<QCPItemText*>(QStringLiteral("ReferenceValue"));
  ASSERT_NE(label, nullptr);
  EXPECT_TRUE(label->visible());
  Plot().yAxis->setRange(2, 3);
  EXPECT_FALSE(label->visible());
  Plot().yAxis->setRange(1, 3);
  EXPECT_TRUE(label->visible());
  for (const double span : {1e-9, 0.037, 12345.0, 1e30}) {
    Plot().xAxis->setRange(500, 500 + span);
    const double ticks = span / Plot().xAxis->ticker().staticCast<QCPAxisTickerFixed>()->tickStep();
    EXPECT_LE(ticks, 8) << span;
  }
}

TEST_F(GraphWindow, OneCurveWithoutAnActiveGob) {
  bench.State.Stored.ProjectInput = test::DevelopmentPanel();
  Open(kEntryHeightGraph);
  ASSERT_EQ(Plot().graphCount(), 1);
  EXPECT_EQ(Plot().graph(0)->name(), QStringLiteral("Development (KORVA)"));
}

TEST_F(GraphWindow, PointIdTellsThePointUnderThePointer) {
  Open();
  const auto move = [&](QPointF to) {
    QMouseEvent event(QEvent::MouseMove, to, Plot().mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&Plot(), &event);
  };
  const QCPGraph& retreat = *Plot().graph(1);
  const QPointF point(Plot().xAxis->coordToPixel(retreat.dataMainKey(9)),
                      Plot().yAxis->coordToPixel(retreat.dataMainValue(9)));
  move(point.toPoint());
  EXPECT_EQ(The<QLabel>(*window, "lblSF").text(), QString()) << "Point ID is off";
  Choose("GraphOptionsItem(0)");
  EXPECT_TRUE(The<QGroupBox>(*window, "Frame1").isVisible());
  QCoreApplication::processEvents();
  const QPointF moved(Plot().xAxis->coordToPixel(retreat.dataMainKey(9)),
                      Plot().yAxis->coordToPixel(retreat.dataMainValue(9)));
  move(moved.toPoint());
  EXPECT_EQ(The<QLabel>(*window, "lblCurve").text(), QStringLiteral("Retreat (KORVA)"));
  EXPECT_NEAR(The<QLabel>(*window, "lblSF").text().toDouble(), retreat.dataMainValue(9), 0.0051);
  EXPECT_NEAR(The<QLabel>(*window, "lblX").text().toDouble(), retreat.dataMainKey(9), 0.0051);
  EXPECT_EQ(Plot().cursor().shape(), Qt::CrossCursor);
  move(moved.toPoint() + QPointF(0, 6));
  EXPECT_EQ(Plot().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GraphWindow, EditsInTheChartAreReadBack) {
  Open(kFirstBarrierGraph);
  Plot().yAxis->setLabel(QStringLiteral("SF of the barrier"));
  Plot().yAxis->grid()->setVisible(true);
  QWidget other;
  other.show();
  other.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_EQ(Settings().YAxisTitle[1], "SF of the barrier");
  EXPECT_EQ(Settings().YAxisTitle[0], "Stability Factor");
  EXPECT_EQ(Settings().GridStyle, 1);
}

TEST_F(GraphWindow, OptionsAreTakenByOKAlone) {
  Settings().GraphSetParams = 1;
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
  EXPECT_EQ(Settings().GraphSetParams, 1);
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
  EXPECT_EQ(Settings().GraphStyle, 2);
  EXPECT_EQ(Settings().SymbolSize, 12);
  EXPECT_TRUE(Plot().xAxis->grid()->visible());
  EXPECT_EQ(Plot().graph(0)->lineStyle(), QCPGraph::lsNone);
  EXPECT_FALSE(Plot().legend->visible());
  EXPECT_EQ(Plot().graph(0)->name(), QString()) << "no legend, no labels";
  const std::string saved = TempFolder::Bytes(bench.State.Places.IniFile);
  EXPECT_NE(saved.find("GraphTitle=North panel"), std::string::npos) << saved;

  // "Help" empties the graph, whatever its caption says; an entry that is none is refused.
  InOptions([&](QWidget& options) {
    bench.Outside.Messages.Expect("Please select a valid entry");
    The<QComboBox>(options, "Combo1").setCurrentIndex(-1);
    EXPECT_EQ(The<QComboBox>(options, "Combo1").currentIndex(), 0);
    Click(options, "Command3");
    Click(options, "Command1");
  });
  EXPECT_EQ(Plot().graphCount(), 0);
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
  const QImage& sheet = bench.Pictures.Sheet;
  const auto inked = [&sheet](int from, int to) {
    for (int x = from; x < to; ++x) {
      for (int y = 0; y < sheet.height(); ++y) {
        if (sheet.pixelColor(x, y) != Qt::white) {
          return true;
        }
      }
    }
    return false;
  };
  EXPECT_TRUE(inked(0, sheet.width() / 2));
  EXPECT_FALSE(inked(sheet.width() * 3 / 4, sheet.width())) << "upright, not stretched";
}

TEST_F(GraphWindow, CopiesExportsAndSavesPictures) {
  Open();
  Choose("GraphEditItem(0)");
  EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
  bench.Outside.Messages.Expect("Exported 2 Curves");
  Choose("GraphFileItem(2)");
  ASSERT_EQ(bench.Outside.Documents.Opened.size(), 1U);
  EXPECT_EQ(bench.Outside.Documents.Opened[0], folder / "panel graph 1.xlsx");
  bench.State.Preferences.Options.AskOfficeInstall = false;
  bench.Outside.Messages.Expect(
      "This option will only work if Microsoft Excel is installed on this computer. Proceed?",
      MessageButtons::kYesNo, MessageAnswer::kNo);
  Choose("GraphFileItem(2)");
  EXPECT_EQ(bench.Outside.Documents.Opened.size(), 1U);

  Plot().xAxis->setLabel(QStringLiteral("Cover"));  // as an edit in the chart leaves it
  bench.Outside.Files.Expect(folder / "graph.pdf");
  Choose("GraphFileItem(5)");
  EXPECT_EQ(TempFolder::Bytes(folder / "graph.pdf").find("%PDF"), 0U);
  EXPECT_EQ(Settings().XAxisTitle[kDepthGraph], "Cover");
  bench.Outside.Files.Expect(folder / "none/graph.pdf");
  bench.Outside.Messages.Expect("Error occurred: Path not found (76). Procedure Terminated");
  Choose("GraphFileItem(5)");
  Choose("GraphFileItem(4)");
  EXPECT_TRUE(bench.Main.Enabled);
}

}  // namespace
}  // namespace korva::desktop
