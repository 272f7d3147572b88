#include "plan/PlanBox.h"

#include <algorithm>
#include <limits>

#include "core/Text.h"

namespace korva {

namespace {

constexpr double kDigit = 0.55;  // its width as a share of the line height

void Grow(DrawBox& box, const DrawPoint& point) {
  box.Low = {std::min(box.Low.X, point.X), std::min(box.Low.Y, point.Y)};
  box.High = {std::max(box.High.X, point.X), std::max(box.High.Y, point.Y)};
}

// `along` runs in the text's direction.
void GrowByText(DrawBox& box, const DrawText& text, double textHeight) {
  const double height = textHeight * text.Scale;
  const double length = TextLength(text.Text) * height;
  const double begin = -text.Along * length;
  for (const double along : {begin, begin + length}) {
    for (const double across : {-height / 2, height / 2}) {
      Grow(box, text.Upright ? DrawPoint{text.At.X + across, text.At.Y + along}
                             : DrawPoint{text.At.X + along, text.At.Y + across});
    }
  }
}

DrawBox Nothing() {
  constexpr double kFar = std::numeric_limits<double>::max();
  return {{kFar, kFar}, {-kFar, -kFar}};
}

// Hands the box of each record to `take`.
template <class Take>
void ForEachBox(const Drawing& drawing, double textHeight, const Take& take) {
  for (const DrawPolygon& polygon : drawing.Polygons) {
    DrawBox box = Nothing();
    for (const DrawPoint& corner : polygon.Corners) {
      Grow(box, corner);
    }
    take(box);
  }
  for (const DrawLine& line : drawing.Lines) {
    DrawBox box = Nothing();
    Grow(box, line.From);
    Grow(box, line.To);
    take(box);
  }
  for (const DrawText& text : drawing.Texts) {
    take(BoxOf(text, textHeight));
  }
}

}  // namespace

double TextLength(std::string_view text) {
  return kDigit * static_cast<double>(CharacterCount(text));
}

DrawBox BoxOf(const DrawText& text, double textHeight) {
  DrawBox box = Nothing();
  GrowByText(box, text, textHeight);
  return box;
}

DrawBox BoxOf(const Drawing& drawing, double textHeight) {
  DrawBox all = Nothing();
  ForEachBox(drawing, textHeight, [&all](const DrawBox& box) {
    Grow(all, box.Low);
    Grow(all, box.High);
  });
  return all;
}

std::optional<double> LowestOf(const Drawing& drawing, double textHeight, double x0, double x1) {
  std::optional<double> lowest;
  ForEachBox(drawing, textHeight, [&](const DrawBox& box) {
    if (box.Low.X <= x1 && box.High.X >= x0) {
      lowest = std::min(box.Low.Y, lowest.value_or(box.Low.Y));
    }
  });
  return lowest;
}

void Move(Drawing& drawing, DrawPoint by) {
  const auto move = [by](DrawPoint& point) {
    point.X += by.X;
    point.Y += by.Y;
  };
  for (DrawPolygon& polygon : drawing.Polygons) {
    std::for_each(polygon.Corners.begin(), polygon.Corners.end(), move);
  }
  for (DrawLine& line : drawing.Lines) {
    move(line.From);
    move(line.To);
  }
  for (DrawText& text : drawing.Texts) {
    move(text.At);
  }
}

}  // namespace korva
