#include "plan/PlanFrame.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/Tables.h"
#include "plan/PlanBox.h"

namespace korva {

namespace {

// Text heights: gaps, from legend row to legend row, the width of a legend's sample.
constexpr double kGap = 0.6;
constexpr double kRow = 1.5;
constexpr double kSwatch = 1.6;
constexpr double kScaleShare = 5;  // of the world's width, at most, for the scale

// The greatest of 1, 2 and 5 times a power of ten that is at most `length`.
double RoundLength(double length) {
  const double power = std::pow(10, std::floor(std::log10(length)));
  for (const double step : {5.0, 2.0}) {
    if (step * power <= length) {
      return step * power;
    }
  }
  return power;
}

}  // namespace

PlanFrame::PlanFrame(const PlanRequest& request, double side)
    : r_(request), side_(side), height_(side * request.TextShare), margin_(request.ProjectCalc.EntryWidth) {}

double PlanFrame::CaptionHeight() const {
  const double lines = std::ceil(TextLength(PlanCaption(r_)) * height_ / (side_ - 2 * margin_));
  return r_.Full ? (lines + kGap) * height_ : 0;
}

double PlanFrame::LegendHeight(const Drawing& drawing) const {
  return r_.Full ? (static_cast<double>(Legend(drawing).size()) + 1) * kRow * height_ + kGap * height_ : 0;
}

void PlanFrame::Add(Drawing& drawing) const {
  if (!r_.Full) {
    return;
  }
  const auto rows = Legend(drawing);
  drawing.Texts.push_back(
      {{margin_, side_ - margin_ - height_ / 2}, false, PlanCaption(r_), 0, false, side_ - 2 * margin_});
  double y = margin_ + (static_cast<double>(rows.size()) + 0.5) * kRow * height_;
  for (const auto& row : rows) {
    AddLegendRow(drawing, row, y);
    y -= kRow * height_;
  }
  AddScale(drawing, margin_ + kRow * height_ / 2);
}

double PlanFrame::Length(const Entry& entry) {
  return kSwatch + kGap + TextLength(entry.Text) + 2 * kGap;
}

// Rows A and B are left beside the active gob, rows C and D as bleeder pillars in the side gobs.
std::string PlanFrame::LeaveRowName() const {
  const Project& p = r_.ProjectCalc;
  const bool bleeders = (p.LoadingCondition >= 2 && p.RowC == 1) || (p.LoadingCondition >= 3 && p.RowD == 1);
  const bool leaves = p.RowA == 1 || p.RowB == 1;
  return bleeders && leaves ? "Leave and bleeder pillar" : bleeders ? "Bleeder pillar" : "Leave pillar";
}

// In rows that fit; none where no more than two kinds stand together.
std::vector<std::vector<PlanFrame::Entry>> PlanFrame::Legend(const Drawing& drawing) const {
  std::vector<Entry> entries;
  for (const auto& [layer, text] : {std::pair<DrawLayer, std::string>{DrawLayer::kPillar, "Pillar"},
                                    {DrawLayer::kLeaveRow, LeaveRowName()},
                                    {DrawLayer::kBarrier, "Barrier pillar"},
                                    {DrawLayer::kGob, "Gob"}}) {
    if (std::any_of(drawing.Polygons.begin(), drawing.Polygons.end(),
                    [l = layer](const DrawPolygon& polygon) { return polygon.Layer == l; })) {
      entries.push_back({layer, text});
    }
  }
  std::vector<std::vector<Entry>> rows;
  double length = side_;
  for (const Entry& entry : entries.size() > 2 ? entries : std::vector<Entry>()) {
    if (rows.empty() || (length + Length(entry)) * height_ > side_ - 2 * margin_) {
      rows.emplace_back();
      length = 0;
    }
    rows.back().push_back(entry);
    length += Length(entry);
  }
  return rows;
}

void PlanFrame::AddLegendRow(Drawing& drawing, const std::vector<Entry>& row, double y) const {
  double x = margin_;
  for (const Entry& entry : row) {
    const double right = x + kSwatch * height_;
    const double half = 0.4 * height_;
    drawing.Polygons.push_back(
        {entry.Layer, {{x, y - half}, {right, y - half}, {right, y + half}, {x, y + half}}});
    drawing.Texts.push_back({{right + kGap * height_, y}, false, entry.Text, 0, false});
    x += Length(entry) * height_;
  }
}

// A bar with its length at the right, and which way the retreat goes at the left.
void PlanFrame::AddScale(Drawing& drawing, double y) const {
  const double length = RoundLength(side_ / kScaleShare);
  const std::string text = fmt::format("{:g} {}", length, BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
  const double right = side_ - margin_ - (TextLength(text) + kGap) * height_;
  const double end = height_ / 2;
  drawing.Lines.push_back({{right - length, y}, {right, y}});
  for (const double x : {right - length, right}) {
    drawing.Lines.push_back({{x, y - end / 2}, {x, y + end / 2}});
  }
  drawing.Texts.push_back({{right + kGap * height_, y}, false, text, 0, false});
  if (r_.ProjectCalc.LoadingCondition >= 1) {
    drawing.Texts.push_back({{margin_, y}, false, "Retreat from top to bottom", 0, false});
  }
}

}  // namespace korva
