#include "desktop/support/Icons.h"

#include <QFile>
#include <QIconEngine>
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

// The colours that stand in the files.
constexpr const char* kLineColour = "#202020";
constexpr const char* kAccentColour = "#b5451b";

// Draws a picture when it is shown, at the size that it is shown in.
class PictureEngine final : public QIconEngine {
 public:
  PictureEngine(const QByteArray& normal, const QByteArray& disabled)
      : normal_(normal), disabled_(disabled) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QSvgRenderer(mode == QIcon::Disabled ? disabled_ : normal_).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PictureEngine(*this); }

 private:
  QByteArray normal_;  // SVG
  QByteArray disabled_;
};

QByteArray Svg(const QString& name) {
  QFile file(QStringLiteral(":/korva/%1.svg").arg(name));
  file.open(QIODevice::ReadOnly);
  return file.readAll();
}

QByteArray Coloured(QByteArray svg, const QColor& line, const QColor& accent) {
  return svg.replace(kLineColour, line.name().toUtf8()).replace(kAccentColour, accent.name().toUtf8());
}

}  // namespace

void InitResources() {
  InitKorvaResources();
}

QIcon ProgramIcon() {
  const QByteArray svg = Svg(QStringLiteral("korva-strond"));
  return QIcon(new PictureEngine(svg, svg));
}

QIcon ThemedIcon(const QString& name, const QPalette& palette) {
  const QByteArray svg = Svg(name);
  const QColor line = palette.color(QPalette::Active, QPalette::ButtonText);
  const QColor pale = palette.color(QPalette::Disabled, QPalette::ButtonText);
  return QIcon(new PictureEngine(Coloured(svg, line, AccentColour(palette)), Coloured(svg, pale, pale)));
}

}  // namespace korva::desktop
