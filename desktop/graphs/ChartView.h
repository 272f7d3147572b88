// A chart on the screen, in any size of its window: the wheel zooms, dragging moves, a double click shows the
// whole again.
#pragma once

#include <QPainter>
#include <QWidget>
#include <functional>
#include <optional>

#include "charts/LayOutChart.h"

namespace korva::desktop {

// A point of a curve, by its curve and place in the chart.
struct ChartPoint {
  std::size_t Curve = 0;
  double X = 0;
  double Y = 0;
};

class ChartView final : public QWidget {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent);

  // Shows the chart, all of it in the plot.
  void Show(Chart chart);
  void ShowWhole();
  // Zooms by `factor` around a place of the plot; below 1 more of the chart is seen.
  void ZoomBy(double factor, QPointF around);

  const Chart& Shown() const { return chart_; }
  const ChartLayout& Layout() const { return layout_; }
  // As files and paper show it: the same, but never in less room than they need.
  Picture Sheet() const;
  // The point nearest to `position`, if it is within a few pixels.
  std::optional<ChartPoint> PointAt(const QPointF& position) const;

  // Asked for a title that was clicked twice: gives it as it is to be.
  std::function<QString(const QString& title, const QString& what)> Edit =
      [](const QString& title, const QString&) { return title; };

 signals:
  void PointerMoved(QPointF position);
  void TitleEdited();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void Arrange();
  // Shows the part of the chart that a box of the picture holds.
  void ShowBox(const PictureBox& box);
  void EditTitle(std::string& title, const char* what);

  Chart chart_;
  std::optional<ChartWindow> seen_;
  ChartLayout layout_;
  std::optional<QPointF> dragged_;  // from here
};

}  // namespace korva::desktop
