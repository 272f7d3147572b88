// Windows in front, and how boxes and file dialogs are answered.
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>
#include <algorithm>

#include "desktop/RandomActionsWorld.h"

namespace korva::desktop::random {

namespace {

void AnswerBox(World& world, QMessageBox& box) {
  const auto buttons = box.buttons();
  QAbstractButton* button = world.Random.Pick(buttons);
  Note("answer " + button->text().toStdString() + " to " + box.text().left(100).toStdString());
  ClickOn(*button);
}

void AnswerFiles(World& world, QFileDialog& dialog) {
  if (world.Random.Chance(25)) {
    Note("cancel " + dialog.windowTitle().toStdString());
    dialog.reject();
    return;
  }
  const std::string file = SomeFile(world);
  Note("take " + file);
  dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(file));
  KeyClick(*dialog.windowHandle(), Qt::Key_Return);
}

}  // namespace

QWidget* Front() {
  if (QWidget* popup = QApplication::activePopupWidget()) {
    return popup;
  }
  if (QWidget* modal = QApplication::activeModalWidget()) {
    return modal;
  }
  // The platform without a screen leaves a menu that was closed active.
  if (QWidget* active = QApplication::activeWindow(); active != nullptr && active->isVisible()) {
    return active;
  }
  const QWidgetList all = VisibleWindows();
  const auto enabled = std::find_if(all.begin(), all.end(), [](const QWidget* w) { return w->isEnabled(); });
  return enabled == all.end() ? nullptr : *enabled;
}

QWidgetList VisibleWindows() {
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* window) {
    return !window->isVisible() || window->isMinimized() || window->windowType() == Qt::Desktop;
  });
  const auto place = [](const QWidget* w) {
    return std::tuple(w->objectName(), w->windowTitle(), w->x(), w->y(), w->width(), w->height());
  };
  std::sort(windows.begin(), windows.end(),
            [&](const QWidget* a, const QWidget* b) { return place(a) < place(b); });
  return windows;
}

bool AnswerDialog(World& world) {
  QWidget* modal = QApplication::activeModalWidget();
  if (auto* files = qobject_cast<QFileDialog*>(modal)) {
    AnswerFiles(world, *files);
    return true;
  }
  auto* box = qobject_cast<QMessageBox*>(modal);
  if (box != nullptr && QApplication::activePopupWidget() == nullptr && world.Random.Chance(75)) {
    AnswerBox(world, *box);
    return true;
  }
  if (modal != nullptr && modal->windowHandle() != nullptr && world.Random.Chance(6)) {
    Note("leave " + modal->objectName().toStdString());
    KeyClick(*modal->windowHandle(), Qt::Key_Escape);
    return true;
  }
  return false;
}

void CloseFront(World& world) {
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
    Note("end: answer to " + box->text().left(100).toStdString());
    const bool saves = box->text().startsWith(QLatin1String("Save changes"));
    QAbstractButton* button = box->button(saves ? QMessageBox::No : QMessageBox::Yes);
    button != nullptr ? ClickOn(*button) : box->reject();
    return;
  }
  QWidget* front = Front();
  if (front == QApplication::activePopupWidget() && front != nullptr && front->windowHandle() != nullptr) {
    Note("end: leave " + front->objectName().toStdString());
    KeyClick(*front->windowHandle(), Qt::Key_Escape);
    return;
  }
  if (front == nullptr || front == world.Main) {
    for (QWidget* window : VisibleWindows()) {
      if (window != world.Main && window->isEnabled()) {
        front = window;
      }
    }
  }
  if (front != nullptr) {
    Note("end: close " + front->objectName().toStdString());
    front->close();
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isMinimized()) {
      window->showNormal();
    }
  }
}

}  // namespace korva::desktop::random
