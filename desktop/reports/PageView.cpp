#include "desktop/reports/PageView.h"

#include <QScrollBar>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

PageView::PageView(const char* name, int columns, int lines, QWidget* parent)
    : QPlainTextEdit(parent), columns_(columns), lines_(lines) {
  setObjectName(QLatin1String(name));
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(NoWrap);
  setFont(FixedPitchFont());
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
}

QSize PageView::sizeHint() const {
  const QFontMetrics metrics(font());
  const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  const int bar = verticalScrollBar()->sizeHint().width();
  return {metrics.horizontalAdvance(QString(columns_, QLatin1Char('0'))) + frame + bar,
          metrics.lineSpacing() * lines_ + frame};
}

}  // namespace korva::desktop
