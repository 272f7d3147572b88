#include "desktop/support/MenuCaption.h"

#include <QFontMetrics>

namespace korva::desktop {

QString MenuCaption(const QString& name, const QFont& font) {
  constexpr int kColumns = 80;
  const QFontMetrics metrics(font);
  return metrics.elidedText(name, Qt::ElideMiddle, metrics.averageCharWidth() * kColumns)
      .replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace korva::desktop
