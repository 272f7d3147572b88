#include "desktop/plan/PaintDrawing.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "desktop/support/FormTools.h"
#include "desktop/support/Theme.h"

namespace korva::desktop {

namespace {

constexpr double kLeastPoints = 8;
constexpr double kOutline = 1.5;

struct LayerLook {
  QPen Pen;
  QBrush Brush;
};

LayerLook Filled(QRgb line, QRgb fill, double width = 1) {
  return {QPen(QColor(line), width), QBrush(QColor(fill))};
}

LayerLook Pick(bool dark, const LayerLook& inLight, const LayerLook& inDark) {
  return dark ? inDark : inLight;
}

LayerLook Hatched(QRgb colour) {
  return {QPen(QColor(colour), 1), QBrush(QColor(colour), Qt::BDiagPattern)};
}

LayerLook Dashed(QRgb colour) {
  return {QPen(QColor(colour), 2, Qt::DashLine), Qt::NoBrush};
}

LayerLook LookOf(DrawLayer layer, const QPalette& palette) {
  const bool dark = IsDark(palette);
  switch (layer) {
    case DrawLayer::kPillar:
      return Pick(dark, Filled(0x4a4a4a, 0xd9d9d9), Filled(0xc8c8c8, 0x3a3a3a));
    case DrawLayer::kBarrier:
      return Pick(dark, Filled(0x8a6d3b, 0xf0e4cc, kOutline), Filled(0xd8b36a, 0x4a3d22, kOutline));
    case DrawLayer::kLeaveRow:
      return Pick(dark, Filled(0x2f6f9f, 0xd6e6f2, kOutline), Filled(0x8cc0e8, 0x1f3a50, kOutline));
    case DrawLayer::kGob:
      return Pick(dark, Hatched(0x9a9a9a), Hatched(0x7a7a7a));
    case DrawLayer::kActiveMiningZone:
      return Pick(dark, Dashed(0xb5451b), Dashed(0xff9d6b));
    case DrawLayer::kText:
      break;
  }
  return {QPen(palette.color(QPalette::WindowText)), Qt::NoBrush};
}

// The legend's entries in rows of at most the room's width.
class Legend {
 public:
  Legend(const Drawing& drawing, const PaintStyle& style, double width)
      : style_(style), metrics_(style.Font) {
    const double swatch = metrics_.height();
    double x = 0;
    const auto place = [&](const LegendEntry* entry, const QString& text) {
      const double size = metrics_.horizontalAdvance(text) + (entry != nullptr ? 1.5 * swatch : 0) + swatch;
      if (x > 0 && x + size > width + swatch) {
        x = 0;
        ++rows_;
      }
      items_.push_back({entry, text, x, rows_ - 1});
      x += size;
    };
    rows_ = drawing.Legend.empty() ? 0 : 1;
    for (const LegendEntry& entry : drawing.Legend) {
      place(&entry, FromUtf8(entry.Text));
    }
    if (!drawing.Note.empty()) {
      place(nullptr, FromUtf8(drawing.Note));
    }
  }

  double Height() const { return rows_ * RowHeight(); }

  void Paint(QPainter& painter, QPointF at) const {
    const double swatch = metrics_.height();
    for (const Item& item : items_) {
      QPointF corner = at + QPointF(item.x, item.row * RowHeight());
      if (item.entry != nullptr) {
        const LayerLook look = LookOf(item.entry->Layer, style_.Palette);
        painter.setPen(look.Pen);
        painter.setBrush(look.Brush);
        painter.drawRect(QRectF(corner + QPointF(1, 0.15 * swatch), QSizeF(1.1 * swatch, 0.7 * swatch)));
        corner += QPointF(1.5 * swatch, 0);
      }
      painter.setPen(style_.Palette.color(QPalette::WindowText));
      painter.drawText(corner + QPointF(0, metrics_.ascent()), item.text);
    }
  }

 private:
  struct Item {
    const LegendEntry* entry;
    QString text;
    double x;
    int row;
  };

  double RowHeight() const { return 1.35 * metrics_.height(); }

  const PaintStyle& style_;
  QFontMetricsF metrics_;
  std::vector<Item> items_;
  int rows_ = 0;
};

// World units to the painter's.
class Fit {
 public:
  Fit(const Drawing& drawing, const QRectF& room)
      : scale_(std::min(room.width() / (drawing.High.X - drawing.Low.X),
                        room.height() / (drawing.High.Y - drawing.Low.Y))),
        middle_(room.center()),
        worldMiddle_((drawing.Low.X + drawing.High.X) / 2, (drawing.Low.Y + drawing.High.Y) / 2) {}

  QPointF operator()(const DrawPoint& point) const {
    return middle_ + QPointF((point.X - worldMiddle_.x()) * scale_, -(point.Y - worldMiddle_.y()) * scale_);
  }

 private:
  double scale_;
  QPointF middle_;
  QPointF worldMiddle_;
};

// A text on a plate of the window's colour, so that it reads on any pattern.
void PaintText(QPainter& painter, const Fit& fit, const DrawText& text, const PaintStyle& style) {
  const QString words = FromUtf8(text.Text);
  const QFontMetricsF metrics(style.Font);
  QRectF plate(0, 0, metrics.horizontalAdvance(words) + 4, metrics.height());
  plate.moveCenter({0, 0});
  painter.save();
  painter.translate(fit(text.At));
  if (text.Upright) {
    painter.rotate(-90);
  }
  if (words.size() > 1) {
    QColor back = style.Palette.color(QPalette::Window);
    back.setAlphaF(0.85F);
    painter.fillRect(plate, back);
  }
  painter.setPen(style.Palette.color(QPalette::WindowText));
  painter.drawText(plate, Qt::AlignCenter, words);
  painter.restore();
}

}  // namespace

QFont DrawingFont(const QFont& windowFont) {
  QFont font(windowFont);
  font.setPointSizeF(std::max(kLeastPoints, windowFont.pointSizeF() - 1));
  return font;
}

void PaintDrawing(QPainter& painter, const QRectF& room, const Drawing& drawing, const PaintStyle& style) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(style.Font);
  const Legend legend(drawing, style, room.width());
  const double below = style.Texts ? legend.Height() : 0;
  const QRectF upper = room.adjusted(2, 2, -2, -2 - below);
  if (upper.width() <= 0 || upper.height() <= 0) {
    return;
  }
  const Fit fit(drawing, upper);
  for (const DrawPolygon& polygon : drawing.Polygons) {
    const LayerLook look = LookOf(polygon.Layer, style.Palette);
    painter.setPen(look.Pen);
    painter.setBrush(look.Brush);
    QPolygonF outline;
    for (const DrawPoint& corner : polygon.Corners) {
      outline << fit(corner);
    }
    painter.drawPolygon(outline);
  }
  if (!style.Texts) {
    return;
  }
  for (const DrawText& text : drawing.Texts) {
    PaintText(painter, fit, text, style);
  }
  legend.Paint(painter, {room.left(), room.bottom() - below});
}

}  // namespace korva::desktop
