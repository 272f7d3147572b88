#include <fmt/format.h>

#include <algorithm>

#include "plan/PlanRecords.h"

namespace korva {

namespace {

// Text heights, from the panel to the numbers and from row to row.
constexpr double kBelowPanel = 0.3;
constexpr double kRow = 1.1;
constexpr double kOfSpacing = 0.8;  // from number to number, that they take

struct Number {
  double X = 0;
  std::string Text;
};

// At most `most`, so that they keep apart.
double HeightOf(const std::vector<Number>& numbers, double most) {
  double height = most;
  for (std::size_t i = 1; i < numbers.size(); ++i) {
    const double lengths = (TextLength(numbers[i - 1].Text) + TextLength(numbers[i].Text)) / 2;
    height = std::min(height, kOfSpacing * (numbers[i].X - numbers[i - 1].X) / lengths);
  }
  return height;
}

void AddRow(PlanPen& pen, const std::vector<Number>& numbers, double y, double height) {
  for (const Number& number : numbers) {
    pen.Text({number.X, y}, number.Text, false);
    pen.Fit(TextLength(number.Text) * height, height);
  }
}

}  // namespace

void AddNumbers(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry) {
  const Project& p = request.ProjectCalc;
  if (p.NumberEntries < 2) {
    return;
  }
  std::vector<Number> entries;
  std::vector<Number> pillars;
  double right = 0;
  for (int i = 1; i < p.NumberEntries; ++i) {
    const double left = At(geometry.Pillars[i][1][0]).X;
    right = At(geometry.Pillars[i][1][1]).X;
    entries.push_back({left - p.EntryWidth / 2, fmt::format("E{}", i)});
    pillars.push_back({(left + right) / 2, fmt::format("P{}", i)});
  }
  entries.push_back({right + p.EntryWidth / 2, fmt::format("E{}", p.NumberEntries)});
  const double aside = TextLength(entries.back().Text) * pen.Height() / 2;
  const double lowest = pen.Lowest(entries.front().X - aside, entries.back().X + aside, 0);
  const double height = HeightOf(pillars, HeightOf(entries, pen.Height()));
  AddRow(pen, entries, lowest - (kBelowPanel + 0.5) * pen.Height(), height);
  AddRow(pen, pillars, lowest - (kBelowPanel + 0.5 + kRow) * pen.Height(), height);
}

}  // namespace korva
