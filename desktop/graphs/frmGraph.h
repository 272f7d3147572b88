// The graph window: the curves of the last sweep.
#pragma once

#include <QMainWindow>
#include <vector>

#include "charts/Chart.h"
#include "desktop/support/Session.h"

class QAction;
class QGroupBox;
class QLabel;

namespace korva::desktop {

class ChartView;

class frmGraph final : public QMainWindow {
  Q_OBJECT

 public:
  // Deletes itself when it is closed, and then enables the main window.
  explicit frmGraph(Session& session);

  // Begins with `graph`, the one of the last sweep; DrawCurve shows it.
  void GraphInit(GraphKind graph);
  // Shows the points of the sweep by the settings as they are now.
  void DrawCurve();
  // Empties it.
  void ClearGraph();

  GraphKind ShownGraph() const { return graph_; }

  QSize sizeHint() const override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void BuildBody();
  void BuildPointFrame(QWidget* body);
  void ShowPointFrame(bool shown);
  void Save();
  void Print();
  void TrackPoint(QPointF position);
  // The title as a person leaves it.
  QString Edited(const QString& title, const QString& what);
  Chart CurrentChart() const;

  Session& session_;
  GraphKind graph_ = kEntryHeightGraph;
  int DisplayCurves_ = 0;
  ChartView* graph1_ = nullptr;
  QGroupBox* pointFrame_ = nullptr;
  QLabel* lblCurve_ = nullptr;
  QLabel* lblSF_ = nullptr;
  QLabel* lblX_ = nullptr;
  QAction* pointId_ = nullptr;
  QAction* reference_ = nullptr;
};

}  // namespace korva::desktop
