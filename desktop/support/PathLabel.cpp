#include "desktop/support/PathLabel.h"

#include <QPainter>
#include <QStyle>
#include <QTextDocument>

namespace korva::desktop {

PathLabel::PathLabel(const char* name, QWidget* parent) : QLabel(parent) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void PathLabel::ShowPath(const QString& path) {
  setText(path);
  setToolTip(Qt::mightBeRichText(path) ? Qt::convertFromPlainText(path) : path);
}

QSize PathLabel::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
  style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                        foregroundRole());
}

}  // namespace korva::desktop
