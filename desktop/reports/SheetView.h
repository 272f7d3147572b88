// Printed sheets on the screen, one below the other.
#pragma once

#include <QScrollArea>
#include <vector>

#include "core/PrintedSheet.h"

namespace korva::desktop {

// As wide as the window, within what reads well; white paper in every theme.
class SheetView final : public QScrollArea {
 public:
  SheetView(const char* name, QWidget* parent);

  void Show(std::vector<PrintedSheet> sheets, PaperSize paper);

  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Sheets;
  void Fit();

  Sheets* sheets_ = nullptr;
};

}  // namespace korva::desktop
