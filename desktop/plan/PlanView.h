// Shows the plan of a panel. Large views can be zoomed and moved, and tell what stands under the pointer.
#pragma once

#include <QWidget>

#include "plan/KORVAgraf.h"

namespace korva::desktop {

struct PaintStyle;

class PlanView : public QWidget {
 public:
  explicit PlanView(const char* name, QWidget* parent = nullptr);

  // Shows the plan asked for; its text share follows font and size. False, and nothing is shown any more, if
  // the panel has no extent. Run-time errors of the drawing leave the view empty.
  bool Show(const PlanRequest& request);
  void Clear();

  const PlanRequest& Request() const { return request_; }
  const Plan& Shown() const { return *plan_; }

  // The font of texts in the plan.
  const QFont& TextFont() const { return textFont_; }
  void SetTextFont(const QFont& font);

  // Zooms around `point` of the view; 1 is the whole plan.
  double Zoom() const { return zoom_; }
  void ZoomBy(double factor, QPointF point);
  void ShowWhole();

  // Paints what the view shows, with lines and patterns for paper, into a square of its size.
  void PaintOnPaper(QPainter& painter) const;
  // The side of the view's square.
  double Side() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void LayOut();
  // Where the plan's world lies, the enlarged panel's and the frame's.
  QRectF Square() const;
  QRectF FrameSquare() const;
  // What the frame leaves of the view.
  QRectF PanelRoom() const;
  void Paint(QPainter& painter, const PaintStyle& style) const;
  void KeepInView();
  void ShowHint(const QMouseEvent& event);

  PlanRequest request_;
  std::optional<Plan> plan_;
  QFont textFont_;
  double zoom_ = 1;
  QPointF moved_;  // of the plan's middle from the view's
  std::optional<QPointF> dragged_;
};

}  // namespace korva::desktop
