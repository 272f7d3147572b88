// The tabs of an input form. A tab that is chosen, by mouse or keys, keeps the focus on the tab bar, so that
// no field is entered or left that nobody touched; the wheel turns no tabs.
#pragma once

#include <QTabWidget>

namespace korva::desktop {

class FormTabs final : public QTabWidget {
 public:
  FormTabs(const QString& name, QWidget* parent);

  // A further tab; its page scrolls where the screen has no room for all of it.
  void AddPage(QWidget* page, const QString& caption);

  // Turns to a tab, from wherever the focus is.
  void Choose(int tab);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace korva::desktop
