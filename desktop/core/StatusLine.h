// The line at the bottom of the main window: file, units, model, saved or not, and a remark.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include "core/Korva.h"
#include "desktop/support/PathLabel.h"

namespace korva::desktop {

class StatusLine : public QStatusBar {
 public:
  explicit StatusLine(QWidget* parent);

  void Show(const Korva& korva);

 private:
  PathLabel* file_;
  PathLabel* remark_;
  QLabel* units_;
  QLabel* model_;
  QLabel* saved_;
};

}  // namespace korva::desktop
