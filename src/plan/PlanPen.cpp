#include "plan/PlanPen.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "core/Format.h"
#include "core/Tables.h"

namespace korva {

namespace {

constexpr double kTickShare = 1.0 / 75;  // of the world's width
constexpr double kLeastScale = 0.01;     // a text is never nothing
constexpr double kBreak = 0.35;          // ticks from the gap of a broken line to its marks
constexpr double kLineStep = 1.1;        // text heights from line to line

// A way to write a name.
struct NameLayout {
  NameLayout(std::vector<std::string> lines, bool upright) : Lines(std::move(lines)), Upright(upright) {}
  std::vector<std::string> Lines;
  bool Upright;
  double Scale = 0;
  DrawPoint Middle;
};

double ScaleIn(const DrawBox& room, const NameLayout& layout, double textHeight) {
  double longest = 0;
  for (const std::string& line : layout.Lines) {
    longest = std::max(longest, TextLength(line) * textHeight);
  }
  const double high = static_cast<double>(layout.Lines.size()) * kLineStep * textHeight;
  const double scale = layout.Upright ? std::min(room.Height() / longest, room.Width() / high)
                                      : std::min(room.Width() / longest, room.Height() / high);
  return std::clamp(kFitting * scale, kLeastScale, 1.0);
}

// Whether a part of `line` lies in `box`: what its ends leave of it on both axes is not nothing.
bool RunsThrough(const DrawLine& line, const DrawBox& box) {
  double begin = 0;
  double end = 1;
  const auto cut = [&](double from, double way, double low, double high) {
    if (way == 0) {
      end = from < low || from > high ? -1 : end;
      return;
    }
    begin = std::max(begin, std::min((low - from) / way, (high - from) / way));
    end = std::min(end, std::max((low - from) / way, (high - from) / way));
  };
  cut(line.From.X, line.To.X - line.From.X, box.Low.X, box.High.X);
  cut(line.From.Y, line.To.Y - line.From.Y, box.Low.Y, box.High.Y);
  return begin <= end;
}

}  // namespace

DrawPoint At(const PlanPoint& point) {
  return {static_cast<double>(point.X), static_cast<double>(point.Y)};
}

std::string Whole(double value) {
  return Format(value, "#0");
}

std::string Exact(double value) {
  return Format(value, "#.##");
}

std::string LengthText(double length, UnitSystem units) {
  return fmt::format("{} {}", Exact(length), BareUnit(UnitLabel(UnitKind::kLength, units)));
}

PlanPen::PlanPen(double side, double textHeight) : tick_(side * kTickShare), height_(textHeight) {}

void PlanPen::Text(DrawPoint at, std::string text, bool upright, double along, bool background) {
  drawing_.Texts.push_back({at, upright, std::move(text), along, background});
}

void PlanPen::Fit(double length, double height) {
  DrawText& text = drawing_.Texts.back();
  const double scale = std::min({1.0, length / (TextLength(text.Text) * height_), height / height_});
  text.Scale = std::max(kLeastScale, scale);
}

void PlanPen::Name(const std::vector<DrawBox>& rooms, const std::vector<std::string>& lines) {
  const std::vector<std::string> one = {fmt::format("{}", fmt::join(lines, " "))};
  NameLayout best({}, false);
  for (const DrawBox& room : rooms) {
    for (NameLayout layout : {NameLayout{one, false}, NameLayout{lines, false}, NameLayout{one, true}}) {
      layout.Scale = ScaleIn(room, layout, height_);
      layout.Middle = {(room.Low.X + room.High.X) / 2, (room.Low.Y + room.High.Y) / 2};
      best = layout.Scale > best.Scale ? layout : best;
    }
  }
  const double step = kLineStep * height_ * best.Scale;
  double y = best.Middle.Y + step * (static_cast<double>(best.Lines.size()) - 1) / 2;
  for (const std::string& line : best.Lines) {
    Text({best.Middle.X, y}, line, best.Upright, 0.5, true);
    Last().Scale = best.Scale;
    y -= step;
  }
}

void PlanPen::AddBackgrounds(const std::vector<PlanPoint>& corners) {
  for (DrawText& text : drawing_.Texts) {
    const DrawBox box = BoxOf(text, height_);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const DrawLine side = {At(corners[i]), At(corners[(i + 1) % corners.size()])};
      text.Background = text.Background || RunsThrough(side, box);
    }
  }
}

void PlanPen::HorizontalDimension(double x0, double x1, double y, const std::string& text, bool background,
                                  bool above) {
  drawing_.Lines.push_back({{x0, y}, {x1, y}});
  for (const double x : {x0, x1}) {
    drawing_.Lines.push_back({{x, y - tick_ / 2}, {x, y + tick_ / 2}});
  }
  Text({(x0 + x1) / 2, y}, text, false, 0.5, background);
  Fit(kFitting * (x1 - x0), height_);
  Last().At.Y += (above ? 1 : -1) * kBesideLine * height_ * Last().Scale;
}

void PlanPen::VerticalDimension(double y0, double y1, double x, const std::string& text, bool background,
                                bool broken) {
  if (broken) {
    const double gap = y0 + kBreakAt * (y1 - y0);
    drawing_.Lines.push_back({{x, y0}, {x, gap - kBreak * tick_}});
    drawing_.Lines.push_back({{x, gap + kBreak * tick_}, {x, y1}});
    for (const double y : {gap - kBreak * tick_, gap + kBreak * tick_}) {
      drawing_.Lines.push_back({{x - tick_ / 2, y - tick_ / 4}, {x + tick_ / 2, y + tick_ / 4}});
    }
  } else {
    drawing_.Lines.push_back({{x, y0}, {x, y1}});
  }
  for (const double y : {y0, y1}) {
    drawing_.Lines.push_back({{x - tick_ / 2, y}, {x + tick_ / 2, y}});
  }
  Text({x - kBesideLine * height_, (y0 + y1) / 2}, text, true, 0.5, background);
}

double PlanPen::Lowest(double x0, double x1, double none) const {
  return LowestOf(drawing_, height_, x0, x1).value_or(none);
}

}  // namespace korva
