#include "desktop/reports/SheetView.h"

#include <QPaintEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "desktop/services/PaintSheet.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr double kLeastScale = 0.4;  // of the size on paper
constexpr double kGreatestScale = 1.5;
constexpr int kShadow = 90;  // its opacity of 255
constexpr double kFirstScale = 0.7;

}  // namespace

// The sheets with a gap around each.
class SheetView::Sheets final : public QWidget {
 public:
  explicit Sheets(QWidget* parent) : QWidget(parent) {}

  void Set(std::vector<PrintedSheet> sheets, PaperSize paper) {
    sheets_ = std::move(sheets);
    paper_ = paper;
  }

  // The pixels of a sheet and its gaps at `scale`.
  QSize SizeAt(double scale, std::size_t count) const {
    const QSizeF sheet = SheetSize(scale);
    const int gap = 2 * SpacingUnit(*this);
    return {static_cast<int>(sheet.width()) + 2 * gap,
            static_cast<int>(sheet.height() + gap) * static_cast<int>(count) + gap};
  }

  void Fit(int width) {
    const double wide = width - 4 * SpacingUnit(*this);
    const double scale = std::clamp(wide / SheetSize(1).width(), kLeastScale, kGreatestScale);
    scale_ = scale;
    const QSize size = SizeAt(scale, sheets_.size());
    resize(std::max(width, size.width()), size.height());
    update();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Mid));
    const int gap = 2 * SpacingUnit(*this);
    const QSizeF size = SheetSize(scale_);
    QRectF sheet(QPointF(std::floor((width() - size.width()) / 2), gap), size);
    for (const PrintedSheet& records : sheets_) {
      if (sheet.intersects(event->rect())) {
        painter.fillRect(sheet.translated(gap / 6.0, gap / 6.0), QColor(0, 0, 0, kShadow));
        painter.fillRect(sheet, Qt::white);
        PaintSheet(painter, records, paper_, sheet);
      }
      sheet.translate(0, static_cast<int>(size.height() + gap));
    }
  }

 private:
  QSizeF SheetSize(double scale) const {
    const double pixels = scale * logicalDpiX() / kTwipsInInch;
    return QSizeF(paper_.Width * pixels, paper_.Height * pixels);
  }

  std::vector<PrintedSheet> sheets_;
  PaperSize paper_ = kLetterPaper;
  double scale_ = 1;
};

SheetView::SheetView(const char* name, QWidget* parent) : QScrollArea(parent) {
  setObjectName(QLatin1String(name));
  sheets_ = new Sheets(this);
  setWidget(sheets_);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // else it comes and goes with the width
  verticalScrollBar()->setSingleStep(3 * fontMetrics().height());
}

void SheetView::Show(std::vector<PrintedSheet> sheets, PaperSize paper) {
  sheets_->Set(std::move(sheets), paper);
  Fit();
}

void SheetView::Fit() {
  sheets_->Fit(viewport()->width());
}

QSize SheetView::sizeHint() const {
  const int bar = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
  return sheets_->SizeAt(kFirstScale, 1) + QSize(bar, 2 * frameWidth());
}

void SheetView::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  Fit();
}

}  // namespace korva::desktop
