#include "desktop/support/FormTools.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "commands/Attempt.h"
#include "core/FontNames.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

namespace {

constexpr int kTitleButtonColumns = 20;  // characters: icon and buttons of the title bar

// Passes the wheel on.
class WheelFilter final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Wheel) {
      event->ignore();
      return true;
    }
    return false;
  }
};

// Hands the focus of the tab key to the one of its group that is set, so that the blank key changes nothing.
class Option final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QRadioButton::focusInEvent(event);
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (!byTab || isChecked() || parentWidget() == nullptr) {
      return;
    }
    const auto group = parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
    const auto set = std::find_if(group.begin(), group.end(), [](const QRadioButton* option) {
      return option->isChecked() && option->isEnabled() && option->isVisible();
    });
    if (set != group.end()) {
      (*set)->setFocus(event->reason());
    }
  }
};

// A window of the program that is open, the active one if there is one; none at the start.
const QWidget* OpenWindow() {
  if (const QWidget* active = QApplication::activeWindow()) {
    return active;
  }
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto open = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && !window->property(kAuxiliaryWindowProperty).toBool() &&
           (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
  });
  return open == windows.end() ? nullptr : *open;
}

// What the title bar and the borders take: as on a window that has them already, else a guess.
QMargins FrameOf(const QWidget& window) {
  const QRect inside = window.geometry();
  const QRect outside = window.frameGeometry();
  const int line = window.fontMetrics().height();
  if (!window.isVisible() || outside.top() == inside.top()) {
    return {line / 4, 2 * line, line / 4, line / 4};
  }
  // A maximised window has a title bar, but its borders may be off the screen.
  const int border = window.isMaximized() ? line / 2 : 0;
  return {std::max(border, inside.left() - outside.left()), inside.top() - outside.top(),
          std::max(border, outside.right() - inside.right()),
          std::max(border, outside.bottom() - inside.bottom())};
}

}  // namespace

QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString IndexedName(const char* array, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

QPushButton* NewButton(const char* name, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) +
                          2 * button->fontMetrics().height());
  return button;
}

QPushButton* NewButton(const char* name, const char* caption, const char* tip, QWidget& form,
                       std::function<void()> action) {
  QPushButton* button = NewButton(name, QLatin1String(caption), &form);
  button->setToolTip(QLatin1String(tip));
  QObject::connect(button, &QPushButton::clicked, &form, std::move(action));
  return button;
}

QPushButton* NewHelpButton(const char* name, Session& session, QWidget* form, const char* tip) {
  return NewButton(name, kHelpCaption, tip, *form, [&session] { ShowHelpHint(session); });
}

QLabel* NewLabel(const QString& name, const QString& caption, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QCheckBox* NewCheckBox(const char* name, const QString& caption, QWidget* parent) {
  auto* box = new QCheckBox(caption, parent);
  box->setObjectName(QLatin1String(name));
  return box;
}

QRadioButton* NewOption(const QString& name, const QString& caption, QWidget* parent) {
  auto* option = new Option(caption, parent);
  option->setObjectName(name);
  return option;
}

QComboBox* NewList(const QString& name, QWidget* parent) {
  auto* list = new QComboBox(parent);
  list->setObjectName(name);
  LetWheelPass(*list);
  return list;
}

QMenu* AddMenu(QMenuBar& bar, const char* name, const char* caption) {
  QMenu* menu = bar.addMenu(QLatin1String(caption));
  menu->setObjectName(QLatin1String(name));
  menu->menuAction()->setObjectName(menu->objectName());
  return menu;
}

QAction* AddItem(Session& session, QMenu& menu, const char* array, int index, const char* caption,
                 std::function<void()> command) {
  QAction* action = menu.addAction(QLatin1String(caption));
  action->setObjectName(IndexedName(array, index));
  action->setMenuRole(QAction::NoRole);
  QObject::connect(action, &QAction::triggered, &menu, [&session, command = std::move(command)] {
    Attempt(session.State, session.Ports.Messages, command);
  });
  return action;
}

void SetColumns(QLineEdit& box, int digits) {
  const QFontMetrics metrics(box.font());
  box.setFixedWidth(metrics.horizontalAdvance(QLatin1Char('0')) * (digits + 1) + metrics.height());
}

void LetWheelPass(QWidget& control) {
  control.installEventFilter(new WheelFilter(&control));
}

int GetArrayIndex(std::span<QRadioButton* const> options) {
  int found = 0;
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i]->isChecked()) {
      found = static_cast<int>(i);
    }
  }
  return found;
}

bool SetArrayIndex(std::span<QRadioButton* const> options, int index) {
  if (index < 0 || index >= static_cast<int>(options.size())) {
    return false;
  }
  options[static_cast<std::size_t>(index)]->setChecked(true);
  return true;
}

int SpacingUnit(const QWidget& widget) {
  return QFontMetrics(widget.font()).height() / 2;
}

void ApplySpacing(QLayout& layout, const QWidget& widget) {
  const int unit = SpacingUnit(widget);
  layout.setSpacing(unit);
  layout.setContentsMargins(2 * unit, 2 * unit, 2 * unit, 2 * unit);
}

QVBoxLayout* NewColumn(QWidget* widget) {
  auto* column = new QVBoxLayout(widget);
  ApplySpacing(*column, *widget);
  return column;
}

void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

QBoxLayout* NewButtonRow(QPushButton* help, const QList<QPushButton*>& buttons) {
  auto* row = new QHBoxLayout;
  if (help != nullptr) {
    row->addWidget(help);
  }
  row->addStretch();
  for (QPushButton* button : buttons) {
    row->addWidget(button);
  }
  return row;
}

QBoxLayout* NewOkCancelRow(QDialog& dialog, QPushButton* help, const char* okName, const char* cancelName,
                           const std::function<void()>& ok, const QList<QPushButton*>& between) {
  QPushButton* accept = NewButton(okName, "OK", "", dialog, ok);
  accept->setDefault(true);
  QPushButton* cancel = NewButton(cancelName, "Cancel", "", dialog, [&dialog] { dialog.reject(); });
  const QList<QPushButton*> buttons = QList{accept} + between + QList{cancel};
  QWidget* last = help;  // Tab goes along the row
  for (QPushButton* button : buttons) {
    QWidget::setTabOrder(last, button);
    last = button;
  }
  return NewButtonRow(help, buttons);
}

void DropButtonIcons(const QWidget& dialog) {
  for (const QDialogButtonBox* row : dialog.findChildren<QDialogButtonBox*>()) {
    for (QAbstractButton* button : row->buttons()) {
      button->setIcon({});
    }
  }
}

int TitleWidth(const QWidget& form) {
  return form.fontMetrics().horizontalAdvance(form.windowTitle()) +
         form.fontMetrics().averageCharWidth() * kTitleButtonColumns;
}

void CenterForm(QWidget& form, const QWidget* from) {
  const QWidget* opener = from != nullptr                  ? from
                          : form.parentWidget() != nullptr ? form.parentWidget()->window()
                                                           : OpenWindow();
  const QScreen* screen = opener != nullptr ? opener->screen() : form.screen();
  const QRect available =
      (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
  const QMargins frame = FrameOf(opener != nullptr ? *opener : form);
  const QSize room = available.marginsRemoved(frame).size();
  form.ensurePolished();
  QSize size = form.sizeHint().expandedTo(QSize(TitleWidth(form), 0));
  if (size.height() > room.height()) {
    size.rwidth() += form.style()->pixelMetric(QStyle::PM_ScrollBarExtent);  // it scrolls inside
  }
  size = size.boundedTo(room);
  form.resize(size);
  const QPoint middle = available.center() - QRect({}, size.grownBy(frame)).center();
  form.move(std::max(available.left(), middle.x()), std::max(available.top(), middle.y()));
}

QWidget* FrontWindow() {
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && active->property(kAuxiliaryWindowProperty).toBool()) {
    active = QApplication::activeModalWidget();
  }
  if (active != nullptr && active->isEnabled()) {
    return active;
  }
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto front = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && window->isEnabled() &&
           !window->property(kAuxiliaryWindowProperty).toBool() &&
           (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
  });
  return front == windows.end() ? active : *front;
}

void ShowHelpHint(Session& session) {
  ShowMessage(session.State, session.Ports.Messages,
              {.text = std::string(kHelpHint),
               .icon = MessageIcon::kExclamation,
               .title = "Help",
               .topic = "frmhelp-f1"});
}

QFont FixedPitchFont(int points) {
  for (const char* name : {kCourierFont, kMonoFont, "DejaVu Sans Mono"}) {
    const QString family = QLatin1String(name);
    if (QFontDatabase::families().contains(family)) {
      QFont font(family, points);
      const QFontMetrics metrics(font);
      if (metrics.horizontalAdvance(QLatin1Char('i')) == metrics.horizontalAdvance(QLatin1Char('W'))) {
        return font;
      }
    }
  }
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(points);
  return font;
}

}  // namespace korva::desktop
