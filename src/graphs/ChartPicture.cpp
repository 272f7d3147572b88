#include "graphs/ChartPicture.h"

#include <cairo.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "pictures/PictureFile.h"

namespace korva {

namespace {

// Points.
constexpr double kWidth = 760;
constexpr double kHeight = 520;
constexpr double kMargin = 18;
constexpr double kTextSize = 12;
constexpr double kTitleSize = 15;
constexpr double kTick = 5;
constexpr double kGap = 6;
constexpr double kLineWidth = 2;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kGridColour = 0xe0e0e0;
constexpr std::uint32_t kReferenceColour = 0x808080;
constexpr double kNoteHeight = 1.4 * kTextSize;

struct Box {
  double Left = 0;
  double Top = 0;
  double Right = 0;
  double Bottom = 0;
};

class Painter {
 public:
  Painter(const Chart& chart, cairo_t* cairo) : chart_(chart), cairo_(cairo) {
    cairo_select_font_face(cairo_, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    Place();
  }

  void Paint() {
    PaintBands();
    PaintAxes();
    cairo_save(cairo_);
    cairo_rectangle(cairo_, plot_.Left - kGap, plot_.Top - kGap, plot_.Right - plot_.Left + 2 * kGap,
                    plot_.Bottom - plot_.Top + 2 * kGap);
    cairo_clip(cairo_);
    for (std::size_t i = 0; i < chart_.Curves.size(); ++i) {
      PaintCurve(i);
    }
    cairo_restore(cairo_);
    PaintReference();
    if (chart_.Legend) {
      PaintLegend();
    }
    PaintNotes();
  }

 private:
  void Colour(std::uint32_t rgb) {
    const auto part = [rgb](unsigned shift) { return static_cast<double>((rgb >> shift) & 0xff) / 255; };
    cairo_set_source_rgb(cairo_, part(16), part(8), part(0));
  }

  double TextWidth(const std::string& text, double size = kTextSize) {
    cairo_set_font_size(cairo_, size);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_, text.c_str(), &extents);
    return extents.x_advance;
  }

  // Text from `x` on, or around or up to it, with its base line at `y`.
  void Text(const std::string& text, double x, double y, double share = 0, double size = kTextSize) {
    const double width = TextWidth(text, size);
    cairo_move_to(cairo_, x - share * width, y);
    cairo_show_text(cairo_, text.c_str());
  }

  void Line(double x0, double y0, double x1, double y1) {
    cairo_move_to(cairo_, x0, y0);
    cairo_line_to(cairo_, x1, y1);
    cairo_stroke(cairo_);
  }

  double LegendWidth() {
    double width = 0;
    for (const ChartCurve& curve : chart_.Curves) {
      width = std::max(width, TextWidth(curve.Label));
    }
    return width + kSample + 3 * kGap;
  }
  double LegendHeight() const { return static_cast<double>(chart_.Curves.size()) * kRowHeight + 2 * kGap; }

  void Place() {
    notes_ = NoteLines(chart_.Notes, kWidth - 2 * kMargin,
                       [this](const std::string& text) { return TextWidth(text); });
    bottom_ = kHeight - static_cast<double>(notes_.size()) * kNoteHeight;
    double labels = 0;
    for (int i = 0; i < chart_.YScale.Labels(); ++i) {
      labels = std::max(labels, TextWidth(chart_.YScale.Text(i)));
    }
    plot_ = {kMargin + 2 * kTextSize + labels + kTick + kGap, kMargin + kTitleSize + 3 * kGap,
             kWidth - kMargin - 2 * kGap, bottom_ - kMargin - 3.5 * kTextSize - kTick - kGap};
    if (chart_.Reference) {
      plot_.Right -= TextWidth(ReferenceText()) - kGap;
    }
    if (chart_.Legend && !(legendInside_ = LegendInside())) {
      plot_.Right -= LegendWidth() + kGap;
    }
  }

  double X(double value) const {
    return plot_.Left + (value - chart_.XScale.Low) / (chart_.XScale.High - chart_.XScale.Low) *
                            (plot_.Right - plot_.Left);
  }
  double Y(double value) const {
    return plot_.Bottom - (value - chart_.YScale.Low) / (chart_.YScale.High - chart_.YScale.Low) *
                              (plot_.Bottom - plot_.Top);
  }

  // The legend in a corner in which no curve runs.
  std::optional<Box> LegendInside() {
    const double width = LegendWidth();
    const double height = LegendHeight();
    const double across = plot_.Right - plot_.Left;
    const double up = plot_.Bottom - plot_.Top;
    const auto corner = FreeCorner(chart_, {width / across, height / up, kGap / across, kGap / up});
    if (!corner) {
      return std::nullopt;
    }
    const bool right = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kBottomRight;
    const bool top = *corner == ChartCorner::kTopRight || *corner == ChartCorner::kTopLeft;
    Box box;
    box.Left = right ? plot_.Right - width - kGap : plot_.Left + kGap;
    box.Top = top ? plot_.Top + kGap : plot_.Bottom - height - kGap;
    box.Right = box.Left + width;
    box.Bottom = box.Top + height;
    return box;
  }

  void PaintBands() {
    Colour(kBandColour);
    for (const ChartBand& band : chart_.Bands) {
      cairo_rectangle(cairo_, X(band.From), plot_.Top, X(band.To) - X(band.From), plot_.Bottom - plot_.Top);
      cairo_fill(cairo_);
    }
  }

  void PaintNotes() {
    Colour(kBlack);
    for (std::size_t i = 0; i < notes_.size(); ++i) {
      Text(notes_[i], kMargin, bottom_ - kMargin + static_cast<double>(i + 1) * kNoteHeight);
    }
  }

  void PaintXLabels() {
    const AxisScale labels = ScaleThatFits(chart_.XScale.Low, chart_.XScale.High, plot_.Right - plot_.Left,
                                           kGap, [this](const std::string& text) { return TextWidth(text); });
    for (int i = 0; i < labels.Labels(); ++i) {
      const double x = X(labels.Value(i));
      if (x < plot_.Left - 1 || x > plot_.Right + 1) {
        continue;
      }
      if (chart_.VerticalGrid) {
        Colour(kGridColour);
        Line(x, plot_.Top, x, plot_.Bottom);
      }
      Colour(kBlack);
      Line(x, plot_.Bottom, x, plot_.Bottom + kTick);
      Text(labels.Text(i), x, plot_.Bottom + kTick + kGap + kTextSize, 0.5);
    }
  }

  void PaintAxes() {
    cairo_set_line_width(cairo_, 1);
    PaintXLabels();
    for (int i = 0; i < chart_.YScale.Labels(); ++i) {
      const double y = Y(chart_.YScale.Value(i));
      if (chart_.HorizontalGrid) {
        Colour(kGridColour);
        Line(plot_.Left, y, plot_.Right, y);
      }
      Colour(kBlack);
      Line(plot_.Left - kTick, y, plot_.Left, y);
      Text(chart_.YScale.Text(i), plot_.Left - kTick - kGap, y + 0.35 * kTextSize, 1);
    }
    cairo_rectangle(cairo_, plot_.Left, plot_.Top, plot_.Right - plot_.Left, plot_.Bottom - plot_.Top);
    cairo_stroke(cairo_);
    const double middle = (plot_.Left + plot_.Right) / 2;
    Text(chart_.Title, middle, kMargin + kTitleSize, 0.5, kTitleSize);
    Text(chart_.XTitle, middle, bottom_ - kMargin, 0.5);
    cairo_save(cairo_);
    cairo_translate(cairo_, kMargin + kTextSize, (plot_.Top + plot_.Bottom) / 2);
    cairo_rotate(cairo_, -std::numbers::pi / 2);
    Text(chart_.YTitle, 0, 0, 0.5);
    cairo_restore(cairo_);
  }

  void SymbolPath(std::size_t curve, double x, double y) {
    const double r = chart_.SymbolSize / 2.0 + 1;
    switch (curve) {
      case 0:
        cairo_arc(cairo_, x, y, r, 0, 2 * std::numbers::pi);
        break;
      case 1:
        cairo_rectangle(cairo_, x - r, y - r, 2 * r, 2 * r);
        break;
      case 2:
        cairo_move_to(cairo_, x, y - r);
        cairo_line_to(cairo_, x + r, y + r);
        cairo_line_to(cairo_, x - r, y + r);
        cairo_close_path(cairo_);
        break;
      default:
        cairo_move_to(cairo_, x, y - r);
        cairo_line_to(cairo_, x + r, y);
        cairo_line_to(cairo_, x, y + r);
        cairo_line_to(cairo_, x - r, y);
        cairo_close_path(cairo_);
        break;
    }
  }

  void Symbol(std::size_t curve, double x, double y, bool hollow = false) {
    SymbolPath(curve, x, y);
    if (hollow) {
      Colour(0xffffff);
      cairo_fill_preserve(cairo_);
      Colour(chart_.Curves[curve].Colour);
      cairo_set_line_width(cairo_, kHollowWidth);
      cairo_stroke(cairo_);
      return;
    }
    cairo_fill(cairo_);
  }

  void PaintCurve(std::size_t index) {
    const ChartCurve& curve = chart_.Curves[index];
    Colour(curve.Colour);
    cairo_set_line_width(cairo_, kLineWidth);
    cairo_new_path(cairo_);
    for (std::size_t i = 0; i < curve.X.size(); ++i) {
      if (curve.Y[i] == kChartHole) {
        cairo_new_sub_path(cairo_);
        continue;
      }
      cairo_line_to(cairo_, X(curve.X[i]), Y(curve.Y[i]));
    }
    if (chart_.Lines) {
      cairo_stroke(cairo_);
    }
    cairo_new_path(cairo_);
    for (std::size_t i = 0; i < curve.X.size() && chart_.Symbols; ++i) {
      if (curve.Y[i] != kChartHole) {
        Symbol(index, X(curve.X[i]), Y(curve.Y[i]), IsHollow(chart_, i));
      }
    }
  }

  std::string ReferenceText() const { return fmt::format("{:.1f}", chart_.Reference.value_or(0)); }

  void PaintReference() {
    if (!chart_.Reference) {
      return;
    }
    const double y = Y(*chart_.Reference);
    const double dash = 5;
    Colour(kReferenceColour);
    cairo_set_line_width(cairo_, 1);
    cairo_set_dash(cairo_, &dash, 1, 0);
    Line(plot_.Left, y, plot_.Right, y);
    cairo_set_dash(cairo_, nullptr, 0, 0);
    Text(ReferenceText(), plot_.Right + kGap, y + 0.35 * kTextSize);
  }

  void PaintLegend() {
    Box box;
    if (legendInside_) {
      box = *legendInside_;
    } else {
      box.Left = kWidth - kMargin - LegendWidth();
      box.Top = plot_.Top;
      box.Right = kWidth - kMargin;
      box.Bottom = box.Top + LegendHeight();
    }
    Colour(0xffffff);
    cairo_rectangle(cairo_, box.Left, box.Top, box.Right - box.Left, box.Bottom - box.Top);
    cairo_fill_preserve(cairo_);
    Colour(kGridColour);
    cairo_set_line_width(cairo_, 1);
    cairo_stroke(cairo_);
    for (std::size_t i = 0; i < chart_.Curves.size(); ++i) {
      const double y = box.Top + kGap + (static_cast<double>(i) + 0.5) * kRowHeight;
      Colour(chart_.Curves[i].Colour);
      if (chart_.Lines) {
        cairo_set_line_width(cairo_, kLineWidth);
        Line(box.Left + kGap, y, box.Left + kGap + kSample, y);
      }
      if (chart_.Symbols) {
        Symbol(i, box.Left + kGap + kSample / 2, y);
      }
      Colour(kBlack);
      Text(chart_.Curves[i].Label, box.Left + 2 * kGap + kSample, y + 0.35 * kTextSize);
    }
  }

  static constexpr double kSample = 28;
  static constexpr double kHollowWidth = 1.5;
  static constexpr double kRowHeight = 1.5 * kTextSize;

  const Chart& chart_;
  cairo_t* cairo_;
  Box plot_;
  std::optional<Box> legendInside_;
  std::vector<std::string> notes_;
  double bottom_ = kHeight;
};

}  // namespace

std::string ChartPicture(const Chart& chart, PictureKind kind) {
  return PictureBytes(kind, {kWidth, kHeight}, [&chart](cairo_t* cairo) { Painter(chart, cairo).Paint(); });
}

}  // namespace korva
