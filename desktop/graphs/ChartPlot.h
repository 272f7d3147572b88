// A graph on the screen: curves and what is to be known of them, in any size of its window.
#pragma once

#include <qcustomplot.h>

#include <functional>
#include <optional>

#include "graphs/Chart.h"

namespace korva::desktop {

// Sizes in pixels, so that paper and screen have the same proportions.
inline constexpr int kPlotTextPixels = 12;
inline constexpr int kHeadingTextPixels = 20;  // 15 points
QFont PlotFont(int pixels);

// A point of a curve.
struct PlotPoint {
  QString Curve;
  double X = 0;
  double Y = 0;
};

class ChartPlot final : public QCustomPlot {
 public:
  explicit ChartPlot(QWidget* parent);

  // Shows heading, axis titles and grid.
  void ShowTitles(const Chart& chart);
  // Shows the curves, all of them in the plot.
  void ShowCurves(const Chart& chart);
  void ShowWhole();

  // The heading, of which a small window shows a part.
  QString Title() const { return title_; }
  // The point nearest to `position`, if it is within a few pixels.
  std::optional<PlotPoint> PointAt(const QPointF& position) const;

  // Asked for a title that was clicked twice: gives it as it is to be.
  std::function<QString(const QString& title, const QString& what)> Edit =
      [](const QString& title, const QString&) { return title; };

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Connect();
  void AddCurve(std::size_t index);
  void AddHollowSymbols(std::size_t index);
  void AddBands();
  void AddReference();
  void Arrange();
  void FitHeading();
  void FitUprightTitle();
  void FitNotes();
  void FitTicks();
  void PlaceLegend();
  QSize LegendOf(int rows);
  void PutLegendBeside(const QSize& size);
  void PutLegendBelow(const QSize& size);
  void PutLegendAt(const QRect& place);

  Chart chart_;
  QString title_;
  QCPTextElement* heading_ = nullptr;
  QCPTextElement* notes_ = nullptr;  // if there are any
  QCPItemText* referenceValue_ = nullptr;
};

}  // namespace korva::desktop
