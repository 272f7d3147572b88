#include "desktop/support/ScrollBody.h"

#include <QTimer>

namespace korva::desktop {

namespace {

constexpr int kLeastColumns = 30;  // characters
constexpr int kLeastLines = 8;

}  // namespace

ScrollBody::ScrollBody(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(content);
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
}

QSize ScrollBody::sizeHint() const {
  return widget()->sizeHint();
}

QSize ScrollBody::minimumSizeHint() const {
  const QSize least(fontMetrics().averageCharWidth() * kLeastColumns,
                    fontMetrics().lineSpacing() * kLeastLines);
  return least.boundedTo(widget()->minimumSizeHint());
}

void ScrollBody::Reveal(const QWidget& widget) {
  const QRect place(widget.mapTo(this->widget(), QPoint()), widget.size());
  const int margin = fontMetrics().height();
  ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + margin,
                place.height() / 2 + margin);
}

void BringIntoView(QWidget& widget) {
  QTimer::singleShot(0, &widget, [&widget] {
    for (QWidget* outer = widget.parentWidget(); outer != nullptr; outer = outer->parentWidget()) {
      if (auto* body = dynamic_cast<ScrollBody*>(outer)) {
        body->Reveal(widget);
      }
    }
  });
}

}  // namespace korva::desktop
