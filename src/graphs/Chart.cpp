#include "graphs/Chart.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/Limits.h"
#include "graphs/GraphTitles.h"
#include "graphs/SweepNotes.h"

namespace korva {

namespace {

void Widen(double& low, double& high, double value) {
  low = std::min(low, value);
  high = std::max(high, value);
}

void SetScales(Chart& chart) {
  constexpr double kNone = 1e308;
  double xLow = kNone;
  double xHigh = -kNone;
  // The reference line never lies on the frame.
  constexpr double kRoom = 0.01;
  double yLow = chart.Reference ? (1 - kRoom) * *chart.Reference : kNone;
  double yHigh = chart.Reference ? (1 + kRoom) * *chart.Reference : -kNone;
  for (const ChartCurve& curve : chart.Curves) {
    for (std::size_t i = 0; i < curve.X.size(); ++i) {
      Widen(xLow, xHigh, curve.X[i]);
      if (curve.Y[i] != kChartHole) {
        Widen(yLow, yHigh, curve.Y[i]);
      }
    }
  }
  chart.XScale = xLow > xHigh ? AxisScale{} : ScaleFor(xLow, xHigh);
  chart.YScale = yLow > yHigh ? AxisScale{} : ScaleFor(yLow, yHigh);
}

void AddCurves(Chart& chart, const SweepData& data, int curves) {
  const std::vector<int> without = CurvesWithoutFactor(data);
  for (int i = 1; i <= curves; ++i) {
    ChartCurve curve = {std::string(CurveLabel(i)), CurveColours.at(static_cast<std::size_t>(i - 1)), {}, {}};
    const auto points = static_cast<std::ptrdiff_t>(data.PointsOf(i));
    curve.X.assign(data.GraphData[0].begin(), data.GraphData[0].begin() + points);
    curve.Y.assign(data.GraphData[i].begin(), data.GraphData[i].begin() + points);
    if (std::find(without.begin(), without.end(), i) != without.end()) {
      std::fill(curve.Y.begin(), curve.Y.end(), kChartHole);
    }
    chart.Curves.push_back(std::move(curve));
  }
}

// Each band ends half way to the next point, or where the axis does.
void AddNotices(Chart& chart, const SweepData& data) {
  const auto x = [&data](std::size_t i) { return static_cast<double>(data.GraphData[0][i]); };
  const std::size_t points = data.Notices.size();
  const auto runs = NoticedPoints(data);
  for (const auto& [first, last] : runs) {
    chart.Bands.push_back({first == 0 ? chart.XScale.Low : (x(first - 1) + x(first)) / 2,
                           last + 1 == points ? chart.XScale.High : (x(last) + x(last + 1)) / 2});
  }
  for (std::size_t i = 0; i < points && !runs.empty(); ++i) {
    chart.PointNotices.push_back(NoticeText(data.Notices[i]));
  }
}

}  // namespace

bool IsHollow(const Chart& chart, std::size_t point) {
  return point < chart.PointNotices.size() && !chart.PointNotices[point].empty();
}

std::vector<std::string> NoteLines(const std::vector<std::string>& notes, double width,
                                   const std::function<double(const std::string& text)>& size) {
  const auto isInside = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
  };  // a character
  std::vector<std::string> lines;
  for (std::string rest : notes) {
    while (size(rest) > width) {
      std::size_t end = 0;
      for (std::size_t blank = rest.find(' ', 1);
           blank != std::string::npos && size(rest.substr(0, blank)) <= width;
           blank = rest.find(' ', blank + 1)) {
        end = blank;
      }
      if (end == 0) {  // a word longer than a line
        do {
          ++end;
        } while (end < rest.size() && (isInside(rest[end]) || size(rest.substr(0, end + 1)) <= width));
      }
      lines.push_back(rest.substr(0, end));
      rest.erase(0, end + (end < rest.size() && rest[end] == ' ' ? 1 : 0));
    }
    if (!rest.empty()) {
      lines.push_back(std::move(rest));
    }
  }
  return lines;
}

int AxisScale::Labels() const {
  return static_cast<int>(std::lround((High - Low) / Step)) + 1;
}

double AxisScale::Value(int label) const {
  return (std::round(Low / Step) + label) * Step;
}

std::string AxisScale::Text(int label) const {
  const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(Step) - 1e-9)), 0, 12);
  // A step of 2.5, 0.25 and so on has a digit more.
  const double scaled = Step * std::pow(10, decimals);
  const int digits = decimals + (std::abs(scaled - std::round(scaled)) > 1e-6 ? 1 : 0);
  const double value = Value(label);
  return fmt::format("{:.{}f}", value == 0 ? 0.0 : value, digits);
}

AxisScale ScaleFor(double low, double high, int mostLabels) {
  if (!(high > low)) {
    const double room = low == 0 ? 1 : std::abs(low) / 2;
    low -= room;
    high += room;
  }
  double power = std::pow(10, std::floor(std::log10(high - low)) - 1);
  for (;; power *= 10) {
    for (const double digit : {1.0, 2.0, 2.5, 5.0}) {
      const double step = digit * power;
      const AxisScale scale = {std::floor(low / step + 1e-9) * step, std::ceil(high / step - 1e-9) * step,
                               step};
      if (scale.Labels() <= std::max(mostLabels, kLeastLabels)) {
        return scale;
      }
    }
  }
}

AxisScale ScaleThatFits(double low, double high, double length, double gap,
                        const std::function<double(const std::string& label)>& size) {
  for (int most = kMostLabels;; --most) {
    const AxisScale scale = ScaleFor(low, high, most);
    double room = 0;
    for (int label = 0; label < scale.Labels(); ++label) {
      room = std::max(room, size(scale.Text(label)) + gap);
    }
    if (most <= kLeastLabels || room * (scale.High - scale.Low) <= length * scale.Step) {
      return scale;
    }
  }
}

std::optional<ChartCorner> FreeCorner(const Chart& chart, const ChartBox& box) {
  const auto across = [&](double x) {
    return (x - chart.XScale.Low) / (chart.XScale.High - chart.XScale.Low);
  };
  const auto up = [&](double y) { return (y - chart.YScale.Low) / (chart.YScale.High - chart.YScale.Low); };
  for (const ChartCorner corner :
       {ChartCorner::kTopRight, ChartCorner::kTopLeft, ChartCorner::kBottomRight, ChartCorner::kBottomLeft}) {
    const bool right = corner == ChartCorner::kTopRight || corner == ChartCorner::kBottomRight;
    const bool top = corner == ChartCorner::kTopRight || corner == ChartCorner::kTopLeft;
    // The gaps stand on both sides of the box.
    const double width = box.Width + 2 * box.GapAcross;
    const double height = box.Height + 2 * box.GapUp;
    const auto covers = [&](double x, double y) {
      return (right ? x > 1 - width : x < width) && (top ? y > 1 - height : y < height);
    };
    const bool crossed = chart.Reference && covers(right ? 1 : 0, up(*chart.Reference));
    const bool taken = std::any_of(chart.Curves.begin(), chart.Curves.end(), [&](const ChartCurve& curve) {
      for (std::size_t i = 0; i < curve.X.size() && curve.Y[i] != kChartHole; ++i) {
        const std::size_t next = std::min(i + 1, curve.X.size() - 1);
        constexpr int kParts = 16;
        for (int part = 0; part <= kParts; ++part) {
          const double t = static_cast<double>(part) / kParts;
          if (covers(across(curve.X[i] + t * (curve.X[next] - curve.X[i])),
                     up(curve.Y[i] + t * (curve.Y[next] - curve.Y[i])))) {
            return true;
          }
        }
      }
      return false;
    });
    if (!crossed && !taken) {
      return corner;
    }
  }
  return std::nullopt;
}

double ReferenceFactor(int graph) {
  return YTitleOf(graph) == 0 ? kSoundSF : kSoundBarrierSF;
}

Chart ChartOf(const SweepData& data, int curves, const GraphSettings& settings, bool showReference) {
  constexpr int kHorizontal = 1;
  constexpr int kVertical = 2;
  constexpr int kLinesOnly = 1;
  constexpr int kSymbolsOnly = 2;
  Chart chart;
  chart.Title = settings.GraphTitle;
  chart.XTitle = settings.XAxisTitle[data.GraphIndex];
  chart.YTitle = settings.YAxisTitle[YTitleOf(data.GraphIndex)];
  chart.HorizontalGrid = (settings.GridStyle & kHorizontal) != 0;
  chart.VerticalGrid = (settings.GridStyle & kVertical) != 0;
  chart.Lines = settings.GraphStyle != kSymbolsOnly;
  chart.Symbols = settings.GraphStyle != kLinesOnly;
  chart.Legend = settings.CurveLegend;
  chart.SymbolSize = settings.SymbolSize;
  if (showReference) {
    chart.Reference = ReferenceFactor(data.GraphIndex);
  }
  AddCurves(chart, data, curves);
  SetScales(chart);
  AddNotices(chart, data);
  chart.Notes = SweepNotes(data, curves);
  return chart;
}

}  // namespace korva
