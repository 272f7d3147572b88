// An address that opens with a click, Enter or the space bar.
#pragma once

#include <QLabel>

namespace korva::desktop {

// Underlined while the pointer is on it or it has the focus.
class LinkLabel final : public QLabel {
  Q_OBJECT

 public:
  LinkLabel(const char* name, const QString& address, QWidget* parent);

 signals:
  void Clicked();

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Mark(bool marked);
};

}  // namespace korva::desktop
