// What a person does with mouse, keyboard and clipboard, and a desktop with its windows.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <array>

#include "desktop/RandomActionsWorld.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/Theme.h"

namespace korva::desktop::random {

namespace {

std::string NameOf(const QWidget& widget) {
  const QString name = widget.objectName();
  return (name.isEmpty() ? QLatin1String(widget.metaObject()->className()) : name).toStdString() + " of " +
         widget.window()->objectName().toStdString();
}

// Mostly the window in front.
QWidget* SomeWindow(World& world) {
  QWidget* front = Front();
  const QWidgetList all = VisibleWindows();
  return front != nullptr && (all.isEmpty() || world.Random.Chance(90)) ? front
         : all.isEmpty()                                                ? nullptr
                                                                        : world.Random.Pick(all);
}

// A widget of the window that can be seen; boxes and buttons more often than what lies around them.
QWidget* SomeWidget(World& world, const QWidget& window) {
  QWidgetList widgets;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window || widget->visibleRegion().isEmpty()) {
      continue;
    }
    const bool control = widget->focusPolicy() != Qt::NoFocus && widget->isEnabled();
    widgets.insert(widgets.size(), control ? 4 : 1, widget);
  }
  return widgets.isEmpty() ? nullptr : world.Random.Pick(widgets);
}

struct Spot {
  QWidget* Widget = nullptr;
  QWindow* Window = nullptr;
  QPoint At;  // in the window
};

// File dialogs reach further than the program's folder; only AnswerDialog touches them.
bool IsFileDialog(const QWidget* window) {
  for (; window != nullptr; window = window->parentWidget()) {
    if (qobject_cast<const QFileDialog*>(window) != nullptr) {
      return true;
    }
  }
  return false;
}

std::optional<Spot> SomeSpot(World& world) {
  const QWidget* window = SomeWindow(world);
  if (window == nullptr || IsFileDialog(window)) {
    return std::nullopt;
  }
  Spot spot;
  spot.Widget = SomeWidget(world, *window);
  if (spot.Widget == nullptr) {
    spot.Widget = const_cast<QWidget*>(window);
  }
  spot.Window = window->windowHandle();
  if (spot.Window == nullptr) {
    return std::nullopt;
  }
  const QRect seen = spot.Widget->visibleRegion().boundingRect();
  const QPoint inside(world.Random.Between(seen.left(), std::max(seen.left(), seen.right())),
                      world.Random.Between(seen.top(), std::max(seen.top(), seen.bottom())));
  spot.At = spot.Widget->mapTo(window, inside);
  return spot;
}

void Click(World& world) {
  const auto spot = SomeSpot(world);
  if (!spot) {
    return;
  }
  const int kind = world.Random.Between(1, 100);
  const auto keys = world.Random.Chance(5)   ? Qt::ControlModifier
                    : world.Random.Chance(5) ? Qt::ShiftModifier
                                             : Qt::NoModifier;
  Note("click " + NameOf(*spot->Widget));
  if (kind <= 10) {
    QTest::mouseDClick(spot->Window, Qt::LeftButton, keys, spot->At);
  } else {
    const auto button = kind <= 15 ? Qt::RightButton : kind <= 17 ? Qt::MiddleButton : Qt::LeftButton;
    QTest::mouseClick(spot->Window, button, keys, spot->At);
  }
}

void Drag(World& world) {
  const auto spot = SomeSpot(world);
  if (!spot) {
    return;
  }
  Note("drag in " + NameOf(*spot->Widget));
  const QPointer<QWindow> window = spot->Window;
  const auto button = world.Random.Chance(80) ? Qt::LeftButton : Qt::RightButton;
  QTest::mousePress(window, button, {}, spot->At);
  for (int step = world.Random.Between(1, 4); step > 0 && window; --step) {
    QTest::mouseMove(window, {world.Random.Between(0, window->width() - 1),
                              world.Random.Between(0, window->height() - 1)});
  }
  if (window) {
    QTest::mouseRelease(
        window, button, {},
        {world.Random.Between(0, window->width() - 1), world.Random.Between(0, window->height() - 1)});
  }
}

void Point(World& world) {
  if (const auto spot = SomeSpot(world)) {
    Note("point at " + NameOf(*spot->Widget));
    QTest::mouseMove(spot->Window, spot->At);
  }
}

void Wheel(World& world) {
  const auto spot = SomeSpot(world);
  if (!spot) {
    return;
  }
  static constexpr std::array kTurns = {120, -120, 240, -240, 15, -15, 3000, -3000};
  const int turn = world.Random.Pick(kTurns);
  const auto keys = world.Random.Chance(20) ? Qt::ControlModifier : Qt::NoModifier;
  Note("wheel on " + NameOf(*spot->Widget));
  QWheelEvent event(spot->At, spot->Window->mapToGlobal(spot->At), {}, {0, turn}, Qt::NoButton, keys,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(spot->Window, &event);
}

// The window that keys go to, unless that is a file dialog.
QWindow* KeyWindow() {
  const QWidget* front = Front();
  return front == nullptr || IsFileDialog(front) || IsFileDialog(QApplication::activeWindow())
             ? nullptr
             : front->windowHandle();
}

void PressKey(World& world) {
  static constexpr std::array kKeys = {
      Qt::Key_Tab,   Qt::Key_Tab,  Qt::Key_Backtab,  Qt::Key_Return,    Qt::Key_Enter, Qt::Key_Escape,
      Qt::Key_Space, Qt::Key_Up,   Qt::Key_Down,     Qt::Key_Left,      Qt::Key_Right, Qt::Key_PageUp,
      Qt::Key_Home,  Qt::Key_End,  Qt::Key_PageDown, Qt::Key_Delete,    Qt::Key_F1,    Qt::Key_F5,
      Qt::Key_F10,   Qt::Key_Menu, Qt::Key_Alt,      Qt::Key_Backspace, Qt::Key_F4,    Qt::Key_Plus};
  QWindow* window = KeyWindow();
  if (window == nullptr) {
    return;
  }
  Dice& random = world.Random;
  const bool letter = random.Chance(35);
  const int key = letter ? Qt::Key_A + random.Between(0, 25) : random.Pick(kKeys);
  const auto keys = random.Chance(letter ? 40 : 8)   ? Qt::ControlModifier
                    : random.Chance(letter ? 40 : 4) ? Qt::AltModifier
                    : random.Chance(8)               ? Qt::ShiftModifier
                                                     : Qt::NoModifier;
  Note("key " + QKeySequence(QKeyCombination(keys, static_cast<Qt::Key>(key))).toString().toStdString());
  KeyClick(*window, key, keys);
}

void Type(World& world) {
  const QPointer<QWindow> window = KeyWindow();
  if (!window) {
    return;
  }
  QString text = world.Random.Chance(70) ? QString::number(world.Random.Between(0, 2000) / 4.0)
                                         : OddText(world).left(40);
  Note("type " + text.toStdString());
  for (const QChar c : std::as_const(text)) {
    if (!window || window != KeyWindow()) {
      return;
    }
    const char16_t code = c.unicode();
    if (code >= ' ' && code <= '~') {
      KeyClick(*window, c.toUpper().unicode(), c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, c);
    }
  }
}

void Paste(World& world) {
  QWindow* window = KeyWindow();
  if (window == nullptr) {
    return;
  }
  const QString text = OddText(world);
  Note("paste " + text.toStdString());
  QGuiApplication::clipboard()->setText(text);
  KeyClick(*window, Qt::Key_V, Qt::ControlModifier);
}

bool HasFrame(const QWidget& window) {
  return window.windowHandle() != nullptr &&
         (window.windowType() == Qt::Window || window.windowType() == Qt::Dialog);
}

// As a person moves and pulls it: within the screen, and no smaller than the window allows.
void Place(World& world) {
  QWidget* window = SomeWindow(world);
  if (window == nullptr || IsFileDialog(window) || !HasFrame(*window)) {
    return;
  }
  const int kind = world.Random.Between(1, 10);
  Note("place " + window->objectName().toStdString() + " " + std::to_string(kind));
  if (kind <= 4) {
    kind == 1 ? window->showMaximized() : kind == 2 ? window->showMinimized() : window->showNormal();
    return;
  }
  const QRect room = window->screen()->availableGeometry();
  const QSize frame = window->frameGeometry().size() - window->size();
  const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
  const QSize most = room.size() - frame;
  const QSize size(world.Random.Between(std::min(least.width(), most.width()), most.width()),
                   world.Random.Between(std::min(least.height(), most.height()), most.height()));
  window->showNormal();
  window->resize(size);
  window->move(room.left() + world.Random.Between(0, most.width() - size.width()),
               room.top() + world.Random.Between(0, most.height() - size.height()));
  window->setProperty(kPlacedProperty, true);
}

// From the task bar.
void Restore(World& /*world*/) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isMinimized()) {
      Note("restore " + window->objectName().toStdString());
      window->showNormal();
      window->activateWindow();
    }
  }
}

void ChangeTheme(World& world) {
  const bool dark = world.Random.Chance(50);
  Note(dark ? "dark theme" : "light theme");
  QApplication::setPalette(ThemePalette(dark));
}

void CloseWindow(World& world) {
  QWidget* window = SomeWindow(world);
  if (window != nullptr && !IsFileDialog(window) && HasFrame(*window)) {
    Note("close " + window->objectName().toStdString());
    window->windowHandle()->close();
  }
}

// A menu item of the program, also from a menu outside of the window.
void Choose(World& world) {
  const QWidget* window = world.Random.Chance(60) ? static_cast<QWidget*>(world.Main) : SomeWindow(world);
  if (window == nullptr || IsFileDialog(window)) {
    return;
  }
  QList<QAction*> actions;
  for (QAction* action : window->findChildren<QAction*>()) {
    const QString name = action->objectName();
    if (name.startsWith(QLatin1String("mnu")) || name.startsWith(QLatin1String("Toolbar1("))) {
      actions << action;
    }
  }
  if (actions.isEmpty()) {
    return;
  }
  QAction* action = world.Random.Pick(actions);
  if (action->objectName() == QLatin1String("mnuFileItem(13)") && world.Random.Chance(80)) {
    return;  // the end
  }
  Note("choose " + action->objectName().toStdString() + " of " + window->objectName().toStdString());
  action->trigger();
}

void OpenMenu(World& world) {
  QWindow* window = KeyWindow();
  if (window == nullptr) {
    return;
  }
  static constexpr std::array kMenus = {Qt::Key_F, Qt::Key_E, Qt::Key_C, Qt::Key_U, Qt::Key_H};
  const auto key = world.Random.Pick(kMenus);
  Note("menu " + QKeySequence(key).toString().toStdString());
  KeyClick(*window, key, Qt::AltModifier);
}

void WaitAWhile(World& world) {
  world.Pause = world.Random.Chance(3) ? world.Random.Between(1000, 3000) : world.Random.Between(5, 150);
  Note("wait " + std::to_string(world.Pause));
}

void Crash(World& world) {
  if (world.AtOuterLoop && world.Main != nullptr && QApplication::activePopupWidget() == nullptr &&
      QApplication::activeModalWidget() == nullptr) {
    world.ToldBefore = world.Random.Chance(70);
    Note(world.ToldBefore ? "crash, told before" : "crash");
    if (world.ToldBefore) {
      world.Main->KeepWork();
    }
    world.Crashes = true;
    QCoreApplication::exit();
  }
}

}  // namespace

void ClickOn(QWidget& widget) {
  if (QWindow* window = widget.window()->windowHandle()) {
    QTest::mouseClick(window, Qt::LeftButton, {}, widget.mapTo(widget.window(), widget.rect().center()));
  }
}

// The window may be gone by the time that the key is let go, and then the key goes to the one that has the
// focus.
void KeyClick(QWindow& window, int key, Qt::KeyboardModifiers keys, QString text) {
  if (text.isEmpty() && key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde &&
      (keys & ~Qt::ShiftModifier) == 0) {
    text = QChar(key);
    text = keys == Qt::ShiftModifier ? text : text.toLower();
  }
  const QPointer<QWindow> there = &window;
  qt_handleKeyEvent(there, QEvent::KeyPress, key, keys, text);
  qt_handleKeyEvent(there, QEvent::KeyRelease, key, keys, text);
}

const std::vector<Action>& InputActions() {
  static const std::vector<Action> actions = {{30, Click},      {4, Drag},        {3, Point},    {4, Wheel},
                                              {18, PressKey},   {8, Type},        {8, Paste},    {4, Place},
                                              {2, ChangeTheme}, {3, CloseWindow}, {10, Restore}, {10, Choose},
                                              {3, OpenMenu},    {5, WaitAWhile},  {1, Crash}};
  return actions;
}

}  // namespace korva::desktop::random
