#include "pictures/PictureFile.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/RuntimeError.h"

namespace korva {

namespace {

constexpr double kPixels = 2;  // of a PNG in a point

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

cairo_status_t Append(void* text, const unsigned char* bytes, unsigned count) {
  try {
    static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

void Require(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw RuntimeError(ErrorNumber::kOutOfMemory,
                       fmt::format("the picture: {}", cairo_status_to_string(status)));
  }
}

void Finish(const Surface& surface) {
  cairo_surface_finish(surface.get());
  Require(cairo_surface_status(surface.get()));
}

void PaintSheet(cairo_t* cairo, const std::function<void(cairo_t*)>& paint) {
  cairo_set_source_rgb(cairo, 1, 1, 1);
  cairo_paint(cairo);
  paint(cairo);
  Require(cairo_status(cairo));
}

std::string PngBytes(PictureSize size, const std::function<void(cairo_t*)>& paint) {
  const auto pixels = [](double points) { return static_cast<int>(std::ceil(points * kPixels)); };
  const Surface surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(size.Width), pixels(size.Height)),
      cairo_surface_destroy);
  const Context cairo(cairo_create(surface.get()), cairo_destroy);
  cairo_scale(cairo.get(), kPixels, kPixels);
  PaintSheet(cairo.get(), paint);
  std::string bytes;
  Require(cairo_surface_write_to_png_stream(surface.get(), Append, &bytes));
  return bytes;
}

std::string SvgBytes(PictureSize size, const std::function<void(cairo_t*)>& paint) {
  std::string bytes;
  const Surface surface(cairo_svg_surface_create_for_stream(Append, &bytes, size.Width, size.Height),
                        cairo_surface_destroy);
  {
    const Context cairo(cairo_create(surface.get()), cairo_destroy);
    PaintSheet(cairo.get(), paint);
  }
  Finish(surface);
  return bytes;
}

}  // namespace

std::string PictureBytes(PictureKind kind, PictureSize size, const std::function<void(cairo_t*)>& paint) {
  switch (kind) {
    case PictureKind::kSvg:
      return SvgBytes(size, paint);
    case PictureKind::kPdf:
      return PdfBytes(size, 1, {}, [&paint](cairo_t* cairo, int) { paint(cairo); });
    case PictureKind::kPng:
      break;
  }
  return PngBytes(size, paint);
}

std::string PdfBytes(PictureSize size, int pages, std::string_view title,
                     const std::function<void(cairo_t*, int page)>& paint) {
  std::string bytes;
  const Surface surface(cairo_pdf_surface_create_for_stream(Append, &bytes, size.Width, size.Height),
                        cairo_surface_destroy);
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, std::string(title).c_str());
  {
    const Context cairo(cairo_create(surface.get()), cairo_destroy);
    for (int page = 0; page < pages; ++page) {
      PaintSheet(cairo.get(), [&](cairo_t* sheet) { paint(sheet, page); });
      cairo_show_page(cairo.get());
    }
  }
  Finish(surface);
  return bytes;
}

}  // namespace korva
