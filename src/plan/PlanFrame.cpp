#include "plan/PlanFrame.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/Encoding.h"
#include "core/Tables.h"
#include "core/Text.h"
#include "plan/PlanBox.h"
#include "plan/PlanLegend.h"
#include "plan/PlanNotes.h"
#include "plan/PlanPen.h"

namespace korva {

namespace {

// Text heights: gaps, from legend row to legend row, the width of a legend's sample.
constexpr double kGap = 0.6;
constexpr double kRow = 1.5;
constexpr double kSwatch = 1.6;
constexpr double kBlockRows = 2;
constexpr double kMostOfSide = 0.45;   // that the frame takes
constexpr double kLeastShare = 0.005;  // of the side, that its texts are high
constexpr double kShrinkFactor = 0.95;
constexpr double kCellInset = 0.4;
constexpr double kWideCell = 0.64;  // of the title block's width
constexpr double kScaleShare = 5;   // of the world's width, at most, for the scale

// Whether it has any width and height.
bool IsSeen(const DrawPolygon& polygon) {
  const auto [left, right] = std::minmax_element(polygon.Corners.begin(), polygon.Corners.end(),
                                                 [](auto& a, auto& b) { return a.X < b.X; });
  const auto [low, high] = std::minmax_element(polygon.Corners.begin(), polygon.Corners.end(),
                                               [](auto& a, auto& b) { return a.Y < b.Y; });
  return right->X > left->X && high->Y > low->Y;
}

// At most `length` characters of a text that may hold anything, with dots in its middle for the rest.
std::string Shortened(const std::string& bytes, std::size_t length) {
  std::string text = TextFromFileBytes(bytes);
  std::replace_if(text.begin(), text.end(), IsControl, ' ');
  const std::size_t count = CharacterCount(text);
  if (count <= length) {
    return text;
  }
  const std::size_t kept = length > 0 ? length - 1 : 0;
  const std::size_t end = kept / 2;
  return text.substr(0, BytesOfCharacters(text, kept - end)) + "\u2026" +
         text.substr(BytesOfCharacters(text, count - end));
}

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

PlanFrame::PlanFrame(const PlanRequest& request, const PlanGeometry& geometry, const Drawing& panel,
                     double side)
    : r_(request),
      side_(side),
      textHeight_(side * request.TextShare),
      height_(textHeight_),
      margin_(request.ProjectCalc.EntryWidth),
      zoneCutOff_(geometry.ZoneCutOff),
      kinds_(Kinds(panel)) {
  while (Above() + Below() > kMostOfSide * side_ && height_ > kLeastShare * side_) {
    height_ *= kShrinkFactor;
  }
}

double PlanFrame::Above() const {
  const double lines = std::ceil(TextLength(PlanCaption(r_)) * height_ / (side_ - 2 * margin_));
  return r_.Full ? (lines + kGap) * height_ : 0;
}

double PlanFrame::Below() const {
  if (!r_.Full) {
    return 0;
  }
  const auto rows = static_cast<double>(Legend().size() + NoteLines().size() + 1);
  return BlockHeight() + (rows * kRow + kGap) * height_;
}

// Painters count a text's room in its own, scaled letters.
void PlanFrame::AddText(Drawing& drawing, DrawPoint at, const std::string& text, double room) const {
  const double scale = height_ / textHeight_;
  drawing.Texts.push_back({at, false, text, 0, false, room / scale, scale});
}

Drawing PlanFrame::Records() const {
  Drawing frame;
  frame.High = {side_, side_};
  if (!r_.Full) {
    return frame;
  }
  AddText(frame, {margin_, side_ - margin_ - height_ / 2}, PlanCaption(r_), side_ - 2 * margin_);
  const auto rows = Legend();
  const auto notes = NoteLines();
  double y =
      margin_ + BlockHeight() + (static_cast<double>(rows.size() + notes.size()) + 0.5) * kRow * height_;
  for (const auto& row : rows) {
    AddLegendRow(frame, row, y);
    y -= kRow * height_;
  }
  for (const std::string& note : notes) {
    AddText(frame, {margin_, y}, note);
    y -= kRow * height_;
  }
  AddScale(frame, y);
  AddBlock(frame);
  return frame;
}

double PlanFrame::Length(const LegendEntry& entry) {
  return kSwatch + kGap + TextLength(entry.Text) + 2 * kGap;
}

// Rows A and B are left beside the active gob, rows C and D as bleeder pillars in the side gobs.
std::string PlanFrame::LeaveRowName() const {
  const Project& p = r_.ProjectCalc;
  const bool bleeders = (HasFirstSideGob(p) && IsSet(p.RowC)) || (HasSecondSideGob(p) && IsSet(p.RowD));
  const bool leaves = IsSet(p.RowA) || IsSet(p.RowB);
  return bleeders && leaves ? "Leave and bleeder pillar" : bleeders ? "Bleeder pillar" : "Leave pillar";
}

std::string PlanFrame::ZoneName() const {
  return fmt::format("{}, {}{}", kZoneName, LengthText(r_.ProjectCalc.BreadthAMZ, r_.Units),
                     zoneCutOff_ ? kNotToScale : "");
}

// Of what can be seen; none where no more than two kinds stand together.
std::vector<LegendEntry> PlanFrame::Kinds(const Drawing& panel) const {
  std::vector<LegendEntry> entries = LegendOf(panel, ZoneName(), LeaveRowName(), IsSeen);
  if (entries.size() <= kKindsWithoutLegend) {
    entries.clear();
  }
  return entries;
}

// In rows that fit.
std::vector<std::vector<LegendEntry>> PlanFrame::Legend() const {
  std::vector<std::vector<LegendEntry>> rows;
  double length = side_;
  for (const LegendEntry& entry : kinds_) {
    if (rows.empty() || (length + Length(entry)) * height_ > side_ - 2 * margin_) {
      rows.emplace_back();
      length = 0;
    }
    rows.back().push_back(entry);
    length += Length(entry);
  }
  return rows;
}

void PlanFrame::AddLegendRow(Drawing& drawing, const std::vector<LegendEntry>& row, double y) const {
  double x = margin_;
  for (const LegendEntry& entry : row) {
    const double right = x + kSwatch * height_;
    const double half = 0.4 * height_;
    drawing.Polygons.push_back(
        {entry.Layer, {{x, y - half}, {right, y - half}, {right, y + half}, {x, y + half}}});
    AddText(drawing, {right + kGap * height_, y}, entry.Text);
    x += Length(entry) * height_;
  }
}

std::vector<std::string> PlanFrame::NoteLines() const {
  const double columns = (side_ - 2 * margin_) / (TextLength("0") * height_);
  std::vector<std::string> lines;
  for (const std::string& note : PlanNotes(r_)) {
    // Of a panel without extent there are no columns, not even a number of them.
    const double length = columns > 21 ? std::min(columns, 500.0) : 21;
    const std::string wrapped = WrapText(note, static_cast<std::size_t>(length));
    for (std::string_view rest = wrapped; !rest.empty();) {
      const SplitLine split = TakeLine(rest);
      lines.emplace_back(split.line);
      rest = split.rest;
    }
  }
  return lines;
}

// A bar with its length at the right, and which way the retreat goes at the left. A view that enlarges the
// panel has a bar of its own.
void PlanFrame::AddScale(Drawing& drawing, double y) const {
  const double length = RoundLength(side_ / r_.Zoom / kScaleShare);
  const std::string text = fmt::format("{:g} {}", length, BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
  const double right = side_ - margin_ - (TextLength(text) + kGap) * height_;
  const double left = right - length * r_.Zoom;
  const double end = height_ / 2;
  drawing.Lines.push_back({{left, y}, {right, y}});
  for (const double x : {left, right}) {
    drawing.Lines.push_back({{x, y - end / 2}, {x, y + end / 2}});
  }
  AddText(drawing, {right + kGap * height_, y}, text);
  if (HasActiveGob(r_.ProjectCalc)) {
    AddText(drawing, {margin_, y}, std::string(kRetreatNote));
  }
}

double PlanFrame::BlockHeight() const {
  return r_.Title.Project.empty() ? 0 : kBlockRows * kRow * height_ + kGap * height_;
}

// Two rows of two cells in a box.
void PlanFrame::AddBlock(Drawing& drawing) const {
  if (r_.Title.Project.empty()) {
    return;
  }
  const double left = margin_;
  const double right = side_ - margin_;
  const double divide = left + kWideCell * (right - left);
  const double low = margin_;
  const double row = kRow * height_;
  for (const double y : {low, low + row, low + 2 * row}) {
    drawing.Lines.push_back({{left, y}, {right, y}});
  }
  for (const double x : {left, divide, right}) {
    drawing.Lines.push_back({{x, low}, {x, low + 2 * row}});
  }
  AddCell(drawing, left, divide, low + 1.5 * row, "Project: " + r_.Title.Project);
  AddCell(drawing, divide, right, low + 1.5 * row, "Model: " + r_.Title.Model);
  AddCell(drawing, left, divide, low + 0.5 * row, "Title: " + r_.Title.Title);
  AddCell(drawing, divide, right, low + 0.5 * row, "Date: " + r_.Title.Date);
}

void PlanFrame::AddCell(Drawing& drawing, double left, double right, double y,
                        const std::string& text) const {
  const double inset = kCellInset * height_;
  const double columns = (right - left - 2 * inset) / (TextLength("0") * height_);
  AddText(drawing, {left + inset, y},
          Shortened(text, static_cast<std::size_t>(std::clamp(columns, 0.0, 500.0))));
}

}  // namespace korva
