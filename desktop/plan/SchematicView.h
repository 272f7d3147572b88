// Shows one of the schematic pictures of a panel.
#pragma once

#include <QWidget>

#include "core/Drawing.h"

namespace korva::desktop {

class SchematicView : public QWidget {
 public:
  // `index` 0 to 28, as PanelPictureIndex gives it.
  explicit SchematicView(int index, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Drawing drawing_;
};

}  // namespace korva::desktop
