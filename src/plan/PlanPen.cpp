#include "plan/PlanPen.h"

#include "core/Format.h"
#include "plan/PlanBox.h"

namespace korva {

namespace {

constexpr double kTickShare = 1.0 / 75;  // of the world's width
constexpr double kLeastScale = 0.5;

}  // namespace

DrawPoint At(const PlanPoint& point) {
  return {static_cast<double>(point.X), static_cast<double>(point.Y)};
}

std::string Whole(double value) {
  return Format(value, "#0");
}

PlanPen::PlanPen(double side, double textHeight) : tick_(side * kTickShare), height_(textHeight) {}

void PlanPen::Text(DrawPoint at, std::string text, bool upright, double along, bool plate) {
  drawing_.Texts.push_back({at, upright, std::move(text), along, plate});
}

void PlanPen::Fit(double length, double height) {
  DrawText& text = drawing_.Texts.back();
  const double scale = std::min({1.0, length / (TextLength(text.Text) * height_), height / height_});
  text.Scale = std::max(kLeastScale, scale);
}

void PlanPen::Across(double x0, double x1, double y, const std::string& text, bool plate, bool above) {
  drawing_.Lines.push_back({{x0, y}, {x1, y}});
  for (const double x : {x0, x1}) {
    drawing_.Lines.push_back({{x, y - tick_ / 2}, {x, y + tick_ / 2}});
  }
  Text({(x0 + x1) / 2, y + (above ? 1 : -1) * kBesideLine * height_}, text, false, 0.5, plate);
  Fit(kFitting * (x1 - x0), height_);
}

void PlanPen::Upward(double y0, double y1, double x, const std::string& text, bool plate) {
  drawing_.Lines.push_back({{x, y0}, {x, y1}});
  for (const double y : {y0, y1}) {
    drawing_.Lines.push_back({{x - tick_ / 2, y}, {x + tick_ / 2, y}});
  }
  Text({x - kBesideLine * height_, (y0 + y1) / 2}, text, true, 0.5, plate);
}

}  // namespace korva
