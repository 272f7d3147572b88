#include "desktop/support/ContextHelp.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QVariant>

#include "services/HelpTopics.h"

namespace korva::desktop {

namespace {

// Menus and the lists of combo boxes are windows of their own, but belong to the form that they hang on.
bool IsForm(const QWidget& widget) {
  return widget.isWindow() && widget.windowType() != Qt::Popup;
}

}  // namespace

std::vector<std::string> HelpLabelsOf(const QWidget& control) {
  std::vector<std::string> labels;
  std::vector<std::string> controls;
  if (const auto* menu = qobject_cast<const QMenu*>(&control);
      menu != nullptr && menu->activeAction() != nullptr) {
    controls.push_back(menu->activeAction()->objectName().toStdString());
  }
  for (const QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget()) {
    if (!IsForm(*widget)) {
      controls.push_back(widget->objectName().toStdString());
      continue;
    }
    if (const QVariant topic = widget->property(kTopicProperty); topic.isValid()) {
      labels.push_back(topic.toString().toStdString());
    }
    const auto found = HelpLabels(widget->objectName().toStdString(), controls);
    labels.insert(labels.end(), found.begin(), found.end());
    controls.clear();  // a form that stands over another: that one's own topic
  }
  return labels;
}

ContextHelp::ContextHelp(std::function<void(const std::vector<std::string>& labels)> show)
    : show_(std::move(show)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool ContextHelp::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !receiver->isWidgetType()) {
    return false;
  }
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_F1 || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    return false;
  }
  const auto labels = HelpLabelsOf(*static_cast<QWidget*>(receiver));
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) {
      break;
    }
  }
  show_(labels);
  return true;
}

}  // namespace korva::desktop
