// The picture of the main window while no project is open: the program's name over a panel in plan.
#pragma once

#include <QWidget>

namespace korva::desktop {

class TitlePicture : public QWidget {
 public:
  explicit TitlePicture(QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korva::desktop
