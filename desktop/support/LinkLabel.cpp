#include "desktop/support/LinkLabel.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace korva::desktop {

LinkLabel::LinkLabel(const char* name, const QString& address, QWidget* parent) : QLabel(address, parent) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::Link);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
}

void LinkLabel::Mark(bool marked) {
  QFont marking = font();
  marking.setUnderline(marked);
  setFont(marking);
}

void LinkLabel::enterEvent(QEnterEvent* event) {
  Mark(true);
  QLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent* event) {
  Mark(hasFocus());
  QLabel::leaveEvent(event);
}

void LinkLabel::focusInEvent(QFocusEvent* event) {
  Mark(true);
  QLabel::focusInEvent(event);
}

void LinkLabel::focusOutEvent(QFocusEvent* event) {
  Mark(underMouse());
  QLabel::focusOutEvent(event);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    emit Clicked();
  }
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    emit Clicked();
  } else {
    QLabel::keyPressEvent(event);
  }
}

}  // namespace korva::desktop
