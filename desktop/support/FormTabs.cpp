#include "desktop/support/FormTabs.h"

#include <QKeyEvent>
#include <QTabBar>

#include "desktop/support/FormTools.h"
#include "desktop/support/ScrollBody.h"

namespace korva::desktop {

FormTabs::FormTabs(const QString& name, QWidget* parent) : QTabWidget(parent) {
  setObjectName(name);
  tabBar()->setFocusPolicy(Qt::StrongFocus);
  LetWheelPass(*tabBar());
}

void FormTabs::AddPage(QWidget* page, const QString& caption) {
  addTab(new ScrollBody(page, this), caption);
}

void FormTabs::Choose(int tab) {
  if (tab != currentIndex()) {
    tabBar()->setFocus();
  }
  setCurrentIndex(tab);
}

void FormTabs::keyPressEvent(QKeyEvent* event) {
  const bool turns = (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) &&
                     event->modifiers().testFlag(Qt::ControlModifier);
  if (turns) {
    tabBar()->setFocus(Qt::TabFocusReason);
  }
  QTabWidget::keyPressEvent(event);
}

}  // namespace korva::desktop
