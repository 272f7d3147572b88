// A label and an item of a menu for a file name, or another text, of any length.
#pragma once

#include <QLabel>

class QAction;
class QMenu;

namespace korva::desktop {

// Leaves out the middle of what does not fit; the tool tip has it all.
class PathLabel final : public QLabel {
 public:
  PathLabel(const char* name, QWidget* parent);

  void ShowPath(const QString& path);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The caption of an item of `menu`, which no name makes wider than a screen; the tool tip of one whose middle
// is left out has all of it.
void CaptionItem(QMenu& menu, QAction& item, const QString& caption);

}  // namespace korva::desktop
