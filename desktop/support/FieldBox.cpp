#include "desktop/support/FieldBox.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>

#include "core/NumberParsing.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/ScrollBody.h"
#include "desktop/support/Theme.h"

namespace korva::desktop {

FieldBox::FieldBox(const QString& name, int greatestLength, QWidget* parent)
    : QLineEdit(parent), greatestLength_(greatestLength) {
  setObjectName(name);
  setAcceptDrops(false);  // a dropped file is for the main window
  connect(this, &QLineEdit::textChanged, this, &FieldBox::TakeChange);
}

void FieldBox::Explain(const QString& caption, const QString& explanation) {
  explanation_ = explanation;
  setAccessibleName(caption);
  ShowTip();
}

void FieldBox::RemarkOn(Remark remark) {
  remark_ = std::move(remark);
  TakeChange();
}

void FieldBox::HoldNumber(Remark remark) {
  number_ = true;
  setAlignment(Qt::AlignRight);
  RemarkOn(std::move(remark));
}

void FieldBox::Fill(std::string_view text) {
  setText(FromUtf8(text));
}

std::string FieldBox::Text() const {
  return text().toStdString();
}

void FieldBox::ShowRefused(const QString& reason) {
  BringIntoView(*this);
  setFocus();
  selectAll();
  refusal_ = reason;
  ShowTip();
}

// Characters that may still be typed in place of the selection. QLineEdit's own limit would also cut what the
// program fills in.
qsizetype FieldBox::Room() const {
  return greatestLength_ == 0
             ? maxLength()
             : std::max<qsizetype>(0, greatestLength_ - (text().size() - selectedText().size()));
}

void FieldBox::Paste(const QString& text) {
  if (!isReadOnly()) {
    insert((number_ ? FromUtf8(CleanNumberText(text.toStdString())) : text).left(Room()));
  }
}

void FieldBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    Paste(QGuiApplication::clipboard()->text());
    return;
  }
  const bool types = !event->text().isEmpty() && event->text().front().isPrint() &&
                     (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  if (types && event->text().size() > Room()) {
    return;
  }
  QLineEdit::keyPressEvent(event);
}

void FieldBox::inputMethodEvent(QInputMethodEvent* event) {
  if (event->commitString().size() > Room()) {
    event->setCommitString(event->commitString().left(Room()), event->replacementStart(),
                           event->replacementLength());
  }
  QLineEdit::inputMethodEvent(event);
}

void FieldBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
    Paste(QGuiApplication::clipboard()->text(QClipboard::Selection));
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
}

void FieldBox::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (auto* paste = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
    paste->disconnect(SIGNAL(triggered(bool)));
    connect(paste, &QAction::triggered, this, [this] { Paste(QGuiApplication::clipboard()->text()); });
  }
  menu->popup(event->globalPos());
}

void FieldBox::TakeChange() {
  refusal_.clear();
  shownRemark_ = remark_ ? FromUtf8(remark_(Text()).value_or(std::string())) : QString();
  ShowTip();
}

void FieldBox::ShowTip() {
  QStringList lines{explanation_, shownRemark_};
  lines.removeAll(QString());
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
  setToolTip(refusal_.isEmpty() ? accessibleDescription() : refusal_);
  update();
}

void FieldBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
    return;
  }
  selectAll();
  if (event->reason() == Qt::MouseFocusReason) {
    QTimer::singleShot(0, this, &QLineEdit::selectAll);  // the press that brought the focus has unselected it
  }
}

void FieldBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
    emit FocusLeft();
  }
}

void FieldBox::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (refusal_.isEmpty() && shownRemark_.isEmpty()) {
    return;
  }
  QPainter painter(this);
  painter.setPen(refusal_.isEmpty() ? QPen(AccentColour(palette()), 1, Qt::DotLine)
                                    : QPen(RefusedColour(palette())));
  constexpr double kHalf = 0.5;  // of the pen, all of which stays inside at every scale
  painter.drawRect(QRectF(rect()).adjusted(kHalf, kHalf, -kHalf, -kHalf));
}

}  // namespace korva::desktop
