#include "desktop/services/HelpTools.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

class JoiningKeys final : public QObject {
 public:
  JoiningKeys(QLineEdit& text, QAbstractItemView& list) : QObject(&list), text_(text), list_(list) {
    text.installEventFilter(this);
    list.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) {
      return false;
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    const QModelIndex line = list_.currentIndex();
    if (watched == &text_ && (key == Qt::Key_Down || key == Qt::Key_PageDown)) {
      list_.setCurrentIndex(line.isValid() ? line : list_.model()->index(0, 0));
      list_.setFocus();
      return true;
    }
    if (watched == &list_ && key == Qt::Key_Up && line.row() <= 0) {
      text_.setFocus();
      return true;
    }
    return false;
  }

 private:
  QLineEdit& text_;
  QAbstractItemView& list_;
};

}  // namespace

QLineEdit* NewHelpText(const char* name, const QString& meaning, QWidget* parent) {
  auto* text = new QLineEdit(parent);
  text->setObjectName(QLatin1String(name));
  text->setAccessibleName(meaning);
  text->setPlaceholderText(meaning);
  text->setClearButtonEnabled(true);
  return text;
}

void JoinToList(QLineEdit& text, QAbstractItemView& list) {
  new JoiningKeys(text, list);
}

QVBoxLayout* NewHelpTabLayout(QWidget& page) {
  auto* layout = new QVBoxLayout(&page);
  const int unit = SpacingUnit(page);
  layout->setContentsMargins(unit, unit, unit, unit);
  layout->setSpacing(unit);
  return layout;
}

}  // namespace korva::desktop
