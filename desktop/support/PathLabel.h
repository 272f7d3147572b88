// A label for a file name, or another text, of any length.
#pragma once

#include <QLabel>

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

}  // namespace korva::desktop
