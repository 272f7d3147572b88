#include "pictures/PaintPicture.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <numbers>

#include "core/FontNames.h"
#include "pictures/CairoTools.h"
#include "pictures/PictureFile.h"

namespace korva {

namespace {

// Its widths grow with its size, on every kind of surface.
void SelectSans(cairo_t* cairo) {
  cairo_select_font_face(cairo, kSansFont, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_set_font_options(cairo, options);
  cairo_font_options_destroy(options);
}

void PaintArea(cairo_t* cairo, std::optional<Rgb> fill, const PicturePen& pen) {
  if (fill) {
    SetColour(cairo, *fill);
    cairo_fill_preserve(cairo);
  }
  if (pen.Width > 0) {
    SetColour(cairo, pen.Colour);
    cairo_set_line_width(cairo, pen.Width);
    cairo_set_dash(cairo, &pen.Dash, pen.Dash > 0 ? 1 : 0, 0);
    cairo_stroke_preserve(cairo);
  }
  cairo_new_path(cairo);
}

void TracePoints(cairo_t* cairo, const std::vector<DrawPoint>& points, bool closed) {
  for (const DrawPoint& point : points) {
    cairo_line_to(cairo, point.X, point.Y);
  }
  if (closed) {
    cairo_close_path(cairo);
  }
}

void Paint(cairo_t* cairo, const PicturePath& path) {
  TracePoints(cairo, path.Points, path.Closed);
  PaintArea(cairo, path.Fill, path.Pen);
}

void Paint(cairo_t* cairo, const PictureSymbol& symbol) {
  cairo_save(cairo);
  cairo_translate(cairo, symbol.At.X, symbol.At.Y);
  if (symbol.Shape == SymbolShape::kDisc) {
    cairo_arc(cairo, 0, 0, symbol.Radius, 0, 2 * std::numbers::pi);
  } else {
    TracePoints(cairo, SymbolCorners(symbol.Shape, symbol.Radius), true);
  }
  PaintArea(cairo, symbol.Fill, symbol.Pen);
  cairo_restore(cairo);
}

void Paint(cairo_t* cairo, const PictureText& text) {
  cairo_save(cairo);
  cairo_translate(cairo, text.At.X, text.At.Y);
  if (text.Upright) {
    cairo_rotate(cairo, -std::numbers::pi / 2);
  }
  SetColour(cairo, text.Colour);
  cairo_set_font_size(cairo, text.Pixels);
  cairo_move_to(cairo, -text.Along * TextWidth(text.Text, text.Pixels), 0);
  cairo_show_text(cairo, text.Text.c_str());
  cairo_new_path(cairo);
  cairo_restore(cairo);
}

void Paint(cairo_t* cairo, const PictureRaster& raster) {
  const auto columns = static_cast<int>(raster.Columns);
  const auto rows = static_cast<int>(raster.Rows());
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> image(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows), cairo_surface_destroy);
  if (unsigned char* pixels = cairo_image_surface_get_data(image.get()); pixels != nullptr) {
    std::memcpy(pixels, raster.Pixels.data(), 4 * raster.Columns * raster.Rows());
    cairo_surface_mark_dirty(image.get());
  }
  cairo_save(cairo);  // and in error if there is no memory for the image
  cairo_translate(cairo, raster.Box.Left, raster.Box.Top);
  cairo_scale(cairo, raster.Box.Width() / columns, raster.Box.Height() / rows);
  cairo_set_source_surface(cairo, image.get(), 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_NEAREST);
  cairo_paint(cairo);
  cairo_restore(cairo);
}

void PaintClipped(cairo_t* cairo, const PictureBox& clip, const auto& record) {
  cairo_save(cairo);
  cairo_rectangle(cairo, clip.Left, clip.Top, clip.Width(), clip.Height());
  cairo_clip(cairo);
  Paint(cairo, record);
  cairo_restore(cairo);
}

// Of a size at which nothing is rounded.
constexpr double kMeasured = 1000;

double Advance(const std::string& text) {
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
      cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1), cairo_surface_destroy);
  const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo(cairo_create(surface.get()), cairo_destroy);
  SelectSans(cairo.get());
  cairo_set_font_size(cairo.get(), kMeasured);
  cairo_text_extents_t extents;
  cairo_text_extents(cairo.get(), text.c_str(), &extents);
  return extents.x_advance;
}

}  // namespace

std::string PictureBytes(PictureKind kind, const Picture& picture) {
  return PictureBytes(kind, picture.Size, [&picture](cairo_t* cairo) {
    SelectSans(cairo);
    for (const auto& record : picture.Records) {
      std::visit(
          [&](const auto& of) {
            if constexpr (requires { of.Clipped; }) {
              if (of.Clipped) {
                PaintClipped(cairo, picture.Clip, of);
                return;
              }
            }
            Paint(cairo, of);
          },
          record);
    }
  });
}

double TextWidth(const std::string& text, double pixels) {
  constexpr std::size_t kAscii = 128;
  static const std::array<double, kAscii> kAdvances = [] {
    std::array<double, kAscii> advances{};
    for (std::size_t c = ' '; c < kAscii; ++c) {
      advances.at(c) = Advance(std::string(1, static_cast<char>(c)));
    }
    return advances;
  }();
  double width = 0;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= kAscii) {
      return Advance(text) * pixels / kMeasured;
    }
    width += kAdvances.at(code);
  }
  return width * pixels / kMeasured;
}

}  // namespace korva
