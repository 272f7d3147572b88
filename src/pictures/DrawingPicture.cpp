#include "pictures/DrawingPicture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/FontNames.h"
#include "core/PlanLooks.h"
#include "pictures/CairoTools.h"
#include "pictures/PictureFile.h"

namespace korva {

namespace {

// Points.
constexpr double kSide = 720;
constexpr double kThin = 0.6;
constexpr Rgb kPaper = 0xffffff;
constexpr double kLineHeight = 1.15;  // of the font's size

class Painter {
 public:
  Painter(cairo_t* cairo, const Drawing& drawing, double textHeight)
      : cairo_(cairo),
        drawing_(drawing),
        scale_(kSide / std::max(drawing.High.X - drawing.Low.X, drawing.High.Y - drawing.Low.Y)),
        textSize_(textHeight * scale_ / kLineHeight) {
    cairo_select_font_face(cairo_, kSansFont, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo_, textSize_);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_MITER);
  }

  void Paint() {
    for (const DrawPolygon& polygon : drawing_.Polygons) {
      PaintPolygon(polygon);
    }
    SetColour(cairo_, 0);
    cairo_set_line_width(cairo_, kThin);
    for (const DrawLine& line : drawing_.Lines) {
      cairo_move_to(cairo_, X(line.From), Y(line.From));
      cairo_line_to(cairo_, X(line.To), Y(line.To));
      cairo_stroke(cairo_);
    }
    for (const DrawText& text : drawing_.Texts) {
      PaintText(text);
    }
  }

 private:
  double X(const DrawPoint& point) const { return (point.X - drawing_.Low.X) * scale_; }
  double Y(const DrawPoint& point) const { return (drawing_.High.Y - point.Y) * scale_; }

  void PaintPolygon(const DrawPolygon& polygon) {
    const PlanLook& look = LookOf(polygon.Layer);
    cairo_new_path(cairo_);
    for (const DrawPoint& corner : polygon.Corners) {
      cairo_line_to(cairo_, X(corner), Y(corner));
    }
    cairo_close_path(cairo_);
    if (!look.Dashed) {
      SetColour(cairo_, look.Light.Fill.value_or(kPaper));
      cairo_fill_preserve(cairo_);
    }
    if (look.Over != PlanPattern::kNone) {
      PaintPattern(look);
    }
    SetColour(cairo_, look.Light.Line);
    cairo_set_line_width(cairo_, look.FileWidth);
    cairo_set_dash(cairo_, kFileSizes.Dashes.data(),
                   look.Dashed ? static_cast<int>(kFileSizes.Dashes.size()) : 0, 0);
    cairo_stroke(cairo_);
    cairo_set_dash(cairo_, nullptr, 0, 0);
  }

  // Inside the path that stands, which stays.
  void PaintPattern(const PlanLook& look) {
    cairo_path_t* outline = cairo_copy_path(cairo_);
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_path_extents(cairo_, &left, &top, &right, &bottom);
    cairo_save(cairo_);
    cairo_clip(cairo_);
    SetColour(cairo_, look.Light.Line);
    if (look.Over == PlanPattern::kHatch) {
      Hatch(left, top, right, bottom);
    } else {
      Dots(left, top, right, bottom);
    }
    cairo_restore(cairo_);
    cairo_new_path(cairo_);
    cairo_append_path(cairo_, outline);
    cairo_path_destroy(outline);
  }

  // Lines at 45 degrees, in step over the whole drawing.
  void Hatch(double left, double top, double right, double bottom) {
    cairo_set_line_width(cairo_, kThin);
    const int last = static_cast<int>(std::ceil((right + bottom) / kFileSizes.HatchStep));
    for (int i = static_cast<int>(std::floor((left + top) / kFileSizes.HatchStep)); i <= last; ++i) {
      const double sum = i * kFileSizes.HatchStep;
      cairo_move_to(cairo_, sum - top, top);
      cairo_line_to(cairo_, sum - bottom, bottom);
    }
    cairo_stroke(cairo_);
  }

  void Dots(double left, double top, double right, double bottom) {
    const auto index = [](double at) { return static_cast<int>(std::floor(at / kFileSizes.DotStep)); };
    for (int row = index(top); row <= index(bottom) + 1; ++row) {
      for (int column = index(left); column <= index(right) + 1; ++column) {
        const double shift = row % 2 == 0 ? 0 : kFileSizes.DotStep / 2;
        cairo_new_sub_path(cairo_);
        cairo_arc(cairo_, column * kFileSizes.DotStep + shift, row * kFileSizes.DotStep, kFileSizes.Dot / 2,
                  0, 2 * std::numbers::pi);
      }
    }
    cairo_fill(cairo_);
  }

  double Advance(const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_, text.c_str(), &extents);
    return extents.x_advance;
  }

  // The text in lines of at most `room`, broken at blanks.
  std::vector<std::string> Lines(const std::string& text, double room) {
    std::vector<std::string> lines(1);
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find(' ', at + 1), text.size());
      const std::string word = text.substr(at, end - at);
      if (!lines.back().empty() && Advance(lines.back() + word) > room) {
        lines.emplace_back(word.substr(word.find_first_not_of(' ')));
      } else {
        lines.back() += word;
      }
      at = end;
    }
    return lines;
  }

  void PaintText(const DrawText& text) {
    cairo_save(cairo_);
    cairo_translate(cairo_, X(text.At), Y(text.At));
    if (text.Upright) {
      cairo_rotate(cairo_, -std::numbers::pi / 2);
    }
    cairo_scale(cairo_, text.Scale, text.Scale);
    const double height = textSize_ * kLineHeight;
    double y = -height / 2;
    for (const std::string& line :
         text.Room > 0 ? Lines(text.Text, text.Room * scale_) : std::vector{text.Text}) {
      const double width = Advance(line);
      const double x = -text.Along * width;
      if (text.Background) {
        SetColour(cairo_, kPaper, kBackgroundOpacity);
        cairo_rectangle(cairo_, x - 1, y, width + 2, height);
        cairo_fill(cairo_);
      }
      SetColour(cairo_, 0);
      cairo_move_to(cairo_, x, y + 0.8 * height);
      cairo_show_text(cairo_, line.c_str());
      y += height;
    }
    cairo_restore(cairo_);
  }

  cairo_t* cairo_;
  const Drawing& drawing_;
  double scale_;
  double textSize_;
};

}  // namespace

std::string DrawingPicture(const Drawing& drawing, double textHeight, PictureKind kind) {
  return PictureBytes(kind, {kSide, kSide},
                      [&](cairo_t* cairo) { Painter(cairo, drawing, textHeight).Paint(); });
}

}  // namespace korva
