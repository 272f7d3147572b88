#include "desktop/support/Icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include "desktop/support/Theme.h"

// Outside a namespace, as the macro needs it.
static void InitKorvaResources() {
  Q_INIT_RESOURCE(korva);
}

namespace korva::desktop {

namespace {

constexpr int kSize = 24;
// The colours that stand in the files.
constexpr const char* kLineColour = "#202020";
constexpr const char* kAccentColour = "#b5451b";

QPixmap Rendered(QByteArray svg, const QColor& line, const QColor& accent, int scale) {
  svg.replace(kLineColour, line.name().toUtf8()).replace(kAccentColour, accent.name().toUtf8());
  QSvgRenderer renderer(svg);
  QPixmap pixmap(kSize * scale, kSize * scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter);
  painter.end();
  pixmap.setDevicePixelRatio(scale);
  return pixmap;
}

}  // namespace

void InitResources() {
  InitKorvaResources();
}

QIcon ThemedIcon(const QString& name, const QPalette& palette) {
  QFile file(QStringLiteral(":/korva/%1.svg").arg(name));
  QIcon icon;
  if (!file.open(QIODevice::ReadOnly)) {
    return icon;
  }
  const QByteArray svg = file.readAll();
  const QColor line = palette.color(QPalette::Active, QPalette::ButtonText);
  const QColor pale = palette.color(QPalette::Disabled, QPalette::ButtonText);
  for (const int scale : {1, 2}) {
    icon.addPixmap(Rendered(svg, line, AccentColour(palette), scale));
    icon.addPixmap(Rendered(svg, pale, pale, scale), QIcon::Disabled);
  }
  return icon;
}

}  // namespace korva::desktop
