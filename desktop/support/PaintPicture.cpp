#include "desktop/support/PaintPicture.h"

#include <QPolygonF>

#include "commands/Formats.h"
#include "core/FontNames.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr double kMiterLimit = 10;

QPolygonF PolygonOf(const std::vector<DrawPoint>& points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const DrawPoint& point : points) {
    polygon << QPointF(point.X, point.Y);
  }
  return polygon;
}

// Corners as those of files.
void SetLook(QPainter& painter, std::optional<Rgb> fill, const PicturePen& look, Qt::PenCapStyle cap) {
  painter.setBrush(fill ? QBrush(QColor(*fill)) : QBrush(Qt::NoBrush));
  QPen pen(QColor(look.Colour), look.Width, look.Width > 0 ? Qt::SolidLine : Qt::NoPen, cap,
           Qt::SvgMiterJoin);
  pen.setMiterLimit(kMiterLimit);
  if (look.Dash > 0) {
    pen.setDashPattern({look.Dash / look.Width, look.Dash / look.Width});
  }
  painter.setPen(pen);
}

// A line without dashes piece by piece, which is many times faster than the stroke of it all; the pieces
// overlap where they meet.
void Paint(QPainter& painter, const PicturePath& path) {
  const QPolygonF points = PolygonOf(path.Points);
  if (path.Fill) {
    SetLook(painter, path.Fill, {}, Qt::FlatCap);
    painter.drawPolygon(points);
  }
  if (path.Pen.Width <= 0) {
    return;
  }
  if (path.Pen.Dash > 0) {
    SetLook(painter, {}, path.Pen, Qt::FlatCap);
    path.Closed ? painter.drawPolygon(points) : painter.drawPolyline(points);
    return;
  }
  QList<QLineF> lines;
  for (qsizetype i = path.Closed ? 0 : 1; i < points.size(); ++i) {
    lines << QLineF(points[i > 0 ? i - 1 : points.size() - 1], points[i]);
  }
  SetLook(painter, {}, path.Pen, points.size() > 2 ? Qt::SquareCap : Qt::FlatCap);
  painter.drawLines(lines);
}

void Paint(QPainter& painter, const PictureSymbol& symbol, bool likeLast) {
  if (!likeLast) {  // which takes as long as the painting
    SetLook(painter, symbol.Fill, symbol.Pen, Qt::FlatCap);
  }
  const QPointF at(symbol.At.X, symbol.At.Y);
  if (symbol.Shape == SymbolShape::kDisc) {
    painter.drawEllipse(at, symbol.Radius, symbol.Radius);
  } else {
    painter.drawPolygon(PolygonOf(SymbolCorners(symbol.Shape, symbol.Radius)).translated(at));
  }
}

void Paint(QPainter& painter, const PictureRaster& raster) {
  const QImage image(reinterpret_cast<const uchar*>(raster.Pixels.data()), static_cast<int>(raster.Columns),
                     static_cast<int>(raster.Rows()), QImage::Format_ARGB32_Premultiplied);
  painter.drawImage(QRectF(raster.Box.Left, raster.Box.Top, raster.Box.Width(), raster.Box.Height()), image);
}

// The font of the engine's measure; its widths grow with its size here, too.
QFont PictureFont(double pixels) {
  QFont font{QLatin1String(kSansFont)};
  font.setPixelSize(static_cast<int>(pixels));
  font.setHintingPreference(QFont::PreferVerticalHinting);
  font.setKerning(false);
  return font;
}

void Paint(QPainter& painter, const PictureText& text) {
  painter.save();
  painter.setFont(PictureFont(text.Pixels));
  painter.setPen(QColor(text.Colour));
  painter.translate(text.At.X, text.At.Y);
  if (text.Upright) {
    painter.rotate(-90);
  }
  painter.drawText(QPointF(-text.Along * Formats().TextWidth(text.Text, text.Pixels), 0),
                   FromUtf8(text.Text));
  painter.restore();
}

}  // namespace

void PaintPicture(QPainter& painter, const Picture& picture) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  const PictureBox& clip = picture.Clip;
  const QRectF room(clip.Left, clip.Top, clip.Width(), clip.Height());
  painter.setClipRect(room.toAlignedRect(),
                      Qt::IntersectClip);  // of whole pixels, which costs next to nothing
  const PictureSymbol* last = nullptr;
  for (const auto& record : picture.Records) {
    const auto* path = std::get_if<PicturePath>(&record);
    const auto* symbol = std::get_if<PictureSymbol>(&record);
    const bool clipped = (path != nullptr && path->Clipped) || (symbol != nullptr && symbol->Clipped);
    if (painter.hasClipping() != clipped) {
      painter.setClipping(clipped);
    }
    if (path != nullptr) {
      Paint(painter, *path);
    } else if (symbol != nullptr) {
      Paint(painter, *symbol, last != nullptr && last->Fill == symbol->Fill && last->Pen == symbol->Pen);
    } else if (const auto* raster = std::get_if<PictureRaster>(&record)) {
      Paint(painter, *raster);
    } else {
      Paint(painter, std::get<PictureText>(record));
    }
    last = symbol;
  }
  painter.restore();
}

}  // namespace korva::desktop
