#include "desktop/services/PaintSheet.h"

#include <QFontDatabase>

#include "core/FontNames.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

QFont PrinterFont() {
  const QStringList families = QFontDatabase::families();
  QString family = families.isEmpty() ? QString() : families.constFirst();
  for (const char* name : {kCourierFont, kMonoFont, "Courier", "Arial"}) {
    if (families.contains(QLatin1String(name))) {
      family = QLatin1String(name);
      break;
    }
  }
  QFont font(family);
  font.setPixelSize(kPrintFontSize);
  font.setKerning(false);
  font.setHintingPreference(QFont::PreferNoHinting);  // else the letters' widths depend on the size on screen
  return font;
}

void PaintSheet(QPainter& painter, const PrintedSheet& sheet, PaperSize paper, const QRectF& target) {
  painter.save();
  painter.translate(target.topLeft());
  painter.scale(target.width() / paper.Width, target.height() / paper.Height);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.setPen(QPen(Qt::black, kPrintRuleWidth));
  QFont font = PrinterFont();
  for (const SheetText& text : sheet.Texts) {
    font.setBold(text.Bold);
    painter.setFont(font);
    painter.drawText(QPointF(text.X, text.Y + kPrintAscent), FromUtf8(text.Text));
  }
  for (const SheetRule& rule : sheet.Rules) {
    painter.drawLine(QPointF(rule.X0, rule.Y), QPointF(rule.X1, rule.Y));
  }
  painter.restore();
}

}  // namespace korva::desktop
