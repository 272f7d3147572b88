#include "desktop/support/PathLabel.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

namespace korva::desktop {

namespace {

constexpr int kItemColumns = 90;  // digits that an item of a menu is wide at most

// What shows `text` as it is.
QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace

PathLabel::PathLabel(const char* name, QWidget* parent) : QLabel(parent) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void PathLabel::ShowPath(const QString& path) {
  setText(path);
  setToolTip(PlainTip(path));
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

void CaptionItem(QMenu& menu, QAction& item, const QString& caption) {
  const QFontMetrics metrics = menu.fontMetrics();
  const int room = metrics.horizontalAdvance(QLatin1Char('0')) * kItemColumns;
  const QString shown = metrics.elidedText(caption, Qt::ElideMiddle, room);
  item.setText(QString(shown).replace(QLatin1Char('&'), QLatin1String("&&")));
  item.setToolTip(shown == caption ? QString() : PlainTip(caption));
  menu.setToolTipsVisible(true);
}

}  // namespace korva::desktop
