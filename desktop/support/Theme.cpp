#include "desktop/support/Theme.h"

namespace korva::desktop {

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor AccentColour(const QPalette& palette) {
  return IsDark(palette) ? QColor(0xff, 0x9d, 0x6b) : QColor(0xb5, 0x45, 0x1b);
}

QColor RefusedColour(const QPalette& palette) {
  return IsDark(palette) ? QColor(0xff, 0x7a, 0x7a) : QColor(0xc0, 0x1c, 0x1c);
}

QPalette ThemePalette(bool dark) {
  if (!dark) {
    return QPalette(QColor(0xef, 0xef, 0xef));
  }
  QPalette palette(QColor(0x35, 0x35, 0x35));
  palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  palette.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2d, 0x2d));
  palette.setColor(QPalette::WindowText, QColor(0xf0, 0xf0, 0xf0));
  palette.setColor(QPalette::Text, QColor(0xf0, 0xf0, 0xf0));
  palette.setColor(QPalette::ButtonText, QColor(0xf0, 0xf0, 0xf0));
  palette.setColor(QPalette::PlaceholderText, QColor(0xa8, 0xa8, 0xa8));
  palette.setColor(QPalette::ToolTipBase, QColor(0x45, 0x45, 0x45));
  palette.setColor(QPalette::ToolTipText, QColor(0xf0, 0xf0, 0xf0));
  palette.setColor(QPalette::Link, QColor(0x8c, 0xc0, 0xe8));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0x9f));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x95, 0x95, 0x95));
  }
  return palette;
}

}  // namespace korva::desktop
