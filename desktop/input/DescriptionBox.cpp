#include "desktop/input/DescriptionBox.h"

#include <QKeyEvent>
#include <QMimeData>

namespace korva::desktop {

DescriptionBox::DescriptionBox(const QString& name, int greatestLength, QWidget* parent)
    : QPlainTextEdit(parent), greatestLength_(greatestLength) {
  setObjectName(name);
  setTabChangesFocus(true);
}

qsizetype DescriptionBox::Room() const {
  return std::max<qsizetype>(0,
                             greatestLength_ - (toPlainText().size() - textCursor().selectedText().size()));
}

void DescriptionBox::keyPressEvent(QKeyEvent* event) {
  const bool ends = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool types = ends || (!event->text().isEmpty() && event->text().front().isPrint() &&
                              (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0);
  if (types && Room() < 1) {
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

void DescriptionBox::insertFromMimeData(const QMimeData* source) {
  textCursor().insertText(source->text().left(Room()));
}

}  // namespace korva::desktop
