#include "graphs/SweepNotes.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/Format.h"
#include "graphs/GraphTitles.h"

namespace korva {

namespace {

std::vector<std::string> ReasonsOf(const SweepData& data) {
  std::vector<std::string> reasons;
  for (const auto& notices : data.Notices) {
    for (const FormNotice& notice : notices) {
      if (std::find(reasons.begin(), reasons.end(), notice.Reason) == reasons.end()) {
        reasons.push_back(notice.Reason);
      }
    }
  }
  return reasons;
}

// The values of the points that have this reason: "2.00 to 16.88, 40.00".
std::string RangesOf(const SweepData& data, const std::string& reason) {
  const auto value = [&data](std::size_t i) { return Format(data.GraphData[0][i], "0.00"); };
  std::vector<std::string> ranges;
  for (const auto& [first, last] : NoticedPoints(data, reason)) {
    ranges.push_back(first == last ? value(first) : fmt::format("{} to {}", value(first), value(last)));
  }
  return fmt::format("{}", fmt::join(ranges, ", "));
}

}  // namespace

std::vector<std::pair<std::size_t, std::size_t>> NoticedPoints(const SweepData& data,
                                                               std::string_view reason) {
  const auto counts = [reason](const FormNotice& notice) {
    return reason.empty() || notice.Reason == reason;
  };
  std::vector<std::pair<std::size_t, std::size_t>> runs;
  for (std::size_t i = 0; i < data.Notices.size(); ++i) {
    if (std::none_of(data.Notices[i].begin(), data.Notices[i].end(), counts)) {
      continue;
    }
    if (runs.empty() || runs.back().second + 1 != i) {
      runs.emplace_back(i, i);
    }
    runs.back().second = i;
  }
  return runs;
}

std::string NoticeText(const std::vector<FormNotice>& notices) {
  std::string text;
  for (const FormNotice& notice : notices) {
    text += (text.empty() ? "" : "; ") + notice.Text;
  }
  return text;
}

std::vector<int> CurvesWithoutFactor(const SweepData& data) {
  std::vector<int> curves;
  for (int i = 1; i <= data.CurveCount && IsBarrierGraph(data.GraphIndex); ++i) {
    const auto& factors = data.GraphData[i];
    const auto points = static_cast<std::ptrdiff_t>(data.PointsOf(i));
    if (points > 0 &&
        std::all_of(factors.begin(), factors.begin() + points, [](float y) { return y == 0; })) {
      curves.push_back(i);
    }
  }
  return curves;
}

std::vector<NoticeRange> NoticeRanges(const SweepData& data) {
  std::vector<NoticeRange> ranges;
  for (const std::string& reason : ReasonsOf(data)) {
    ranges.push_back({reason, RangesOf(data, reason)});
  }
  return ranges;
}

std::vector<std::string> SweepNotes(const SweepData& data, int curves) {
  std::vector<std::string> notes;
  for (const NoticeRange& range : NoticeRanges(data)) {
    notes.push_back(fmt::format("Hollow, shaded: {} ({})", range.Reason, range.Values));
  }
  for (const bool second : {false, true}) {
    std::vector<std::string_view> without;
    for (const int curve : CurvesWithoutFactor(data)) {
      if (curve <= curves && IsOfSecondBarrier(data.GraphIndex, IsLaminatedCurve(curve)) == second) {
        without.push_back(CurveLabel(curve));
      }
    }
    if (!without.empty()) {
      notes.push_back(fmt::format("No {} barrier, so no factor: {}", second ? "second" : "first",
                                  fmt::join(without, ", ")));
    }
  }
  if (!data.Partial.empty()) {
    notes.push_back("Partial: " + data.Partial);
  }
  return notes;
}

}  // namespace korva
