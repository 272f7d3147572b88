#include "desktop/plan/PaintDrawing.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "core/PlanLooks.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Theme.h"

namespace korva::desktop {

namespace {

constexpr double kLeastPoints = 8;

// Lines at 45 degrees, in step over the whole drawing.
void Hatch(QPainter& painter, const QRectF& room, double step) {
  QList<QLineF> lines;
  const double last = room.right() + room.bottom();
  for (double sum = std::floor((room.left() + room.top()) / step) * step; sum <= last; sum += step) {
    lines << QLineF(sum - room.top(), room.top(), sum - room.bottom(), room.bottom());
  }
  painter.drawLines(lines);
}

void Dots(QPainter& painter, const QRectF& room, double step) {
  QList<QPointF> dots;
  for (int row = static_cast<int>(room.top() / step); row * step <= room.bottom(); ++row) {
    for (int column = static_cast<int>(room.left() / step); column * step <= room.right(); ++column) {
      dots << QPointF((column + (row % 2 == 0 ? 0.0 : 0.5)) * step, row * step);
    }
  }
  painter.drawPoints(dots);
}

// In colours of the theme; on paper also with what tells the kinds apart without colour.
void PaintPolygon(QPainter& painter, const QPolygonF& outline, DrawLayer layer, const PaintStyle& style) {
  const double unit = style.Unit;
  const PlanLook& look = LookOf(layer);
  const PlanColours& colours = IsDark(style.Palette) ? look.Dark : look.Light;
  QPen pen(QColor(colours.Line), look.ScreenWidth * unit);
  if (look.Dashed) {  // in widths of the line
    pen.setDashPattern(
        {kScreenSizes.Dashes[0] / look.ScreenWidth, kScreenSizes.Dashes[1] / look.ScreenWidth});
  }
  painter.setPen(pen);
  painter.setBrush(colours.Fill ? QBrush(QColor(*colours.Fill)) : QBrush(Qt::NoBrush));
  painter.drawPolygon(outline);
  if (look.Over == PlanPattern::kNone || (look.Over == PlanPattern::kDots && !style.Paper)) {
    return;
  }
  painter.save();
  QPainterPath path;
  path.addPolygon(outline);
  painter.setRenderHint(QPainter::Antialiasing, style.Paper);  // on the screen it would take most of the time
  painter.setClipPath(path, Qt::IntersectClip);
  const QRectF room = outline.boundingRect().intersected(painter.clipBoundingRect());
  if (look.Over == PlanPattern::kHatch) {
    Hatch(painter, room, kScreenSizes.HatchStep * unit);
  } else {
    painter.setPen(QPen(QColor(colours.Line), kScreenSizes.Dot * unit, Qt::SolidLine, Qt::RoundCap));
    Dots(painter, room, kScreenSizes.DotStep * unit);
  }
  painter.restore();
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
        const QRectF room(corner + QPointF(1, 0.15 * swatch), QSizeF(1.1 * swatch, 0.7 * swatch));
        PaintPolygon(painter, room, item.entry->Layer, style_);
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
  double Length(double world) const { return world * scale_; }

 private:
  double scale_;
  QPointF middle_;
  QPointF worldMiddle_;
};

void PaintLines(QPainter& painter, const Fit& fit, const Drawing& drawing, const PaintStyle& style) {
  painter.setPen(QPen(style.Palette.color(QPalette::WindowText), style.Unit));
  for (const DrawLine& line : drawing.Lines) {
    painter.drawLine(fit(line.From), fit(line.To));
  }
}

// A background of the window's colour makes it readable on any pattern.
void PaintText(QPainter& painter, const Fit& fit, const DrawText& text, const PaintStyle& style) {
  const QString words = FromUtf8(text.Text);
  const QFontMetricsF metrics(style.Font, painter.device());
  painter.save();
  painter.translate(fit(text.At));
  if (text.Upright) {
    painter.rotate(-90);
  }
  painter.scale(text.Scale, text.Scale);
  painter.setPen(style.Palette.color(QPalette::WindowText));
  if (text.Room > 0) {
    const QRectF room(0, -metrics.height() / 2, fit.Length(text.Room), 10 * metrics.height());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, words);
    painter.restore();
    return;
  }
  const double width = metrics.horizontalAdvance(words);
  const QRectF background(-text.Along * width - 2 * style.Unit, -metrics.height() / 2, width + 4 * style.Unit,
                          metrics.height());
  if (text.Background) {
    QColor back = style.Palette.color(QPalette::Window);
    back.setAlphaF(static_cast<float>(kBackgroundOpacity));
    painter.fillRect(background, back);
  }
  painter.drawText(background, Qt::AlignCenter, words);
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
    QPolygonF outline;
    for (const DrawPoint& corner : polygon.Corners) {
      outline << fit(corner);
    }
    PaintPolygon(painter, outline, polygon.Layer, style);
  }
  if (!style.Texts) {
    return;
  }
  PaintLines(painter, fit, drawing, style);
  for (const DrawText& text : drawing.Texts) {
    PaintText(painter, fit, text, style);
  }
  legend.Paint(painter, {room.left(), room.bottom() - below});
}

}  // namespace korva::desktop
