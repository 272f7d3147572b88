#include "services/PagesPdf.h"

#include <cairo.h>

#include "core/Encoding.h"
#include "core/FontNames.h"
#include "pictures/PictureFile.h"

namespace korva {

namespace {

constexpr double kTwipsInPoint = kTwipsInInch / 72;

void PaintSheet(cairo_t* cairo, const PrintedSheet& sheet) {
  cairo_scale(cairo, 1 / kTwipsInPoint, 1 / kTwipsInPoint);
  cairo_set_source_rgb(cairo, 0, 0, 0);
  for (const SheetText& text : sheet.Texts) {
    // The free twin of "Courier New", with the same widths.
    cairo_select_font_face(cairo, kMonoFont, CAIRO_FONT_SLANT_NORMAL,
                           text.Bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, kPrintFontSize);
    cairo_move_to(cairo, text.X, text.Y + kPrintAscent);
    cairo_show_text(cairo, text.Text.c_str());
  }
  cairo_set_line_width(cairo, kPrintRuleWidth);
  for (const SheetRule& rule : sheet.Rules) {
    cairo_move_to(cairo, rule.X0, rule.Y);
    cairo_line_to(cairo, rule.X1, rule.Y);
    cairo_stroke(cairo);
  }
}

}  // namespace

std::string PagesPdf(const std::vector<PrintedSheet>& sheets, PaperSize paper, std::string_view title) {
  // A file name may hold any bytes.
  return PdfBytes({paper.Width / kTwipsInPoint, paper.Height / kTwipsInPoint},
                  static_cast<int>(sheets.size()), TextFromFileBytes(title),
                  [&sheets](cairo_t* cairo, int page) {
                    cairo_save(cairo);
                    PaintSheet(cairo, sheets[static_cast<std::size_t>(page)]);
                    cairo_restore(cairo);
                  });
}

}  // namespace korva
