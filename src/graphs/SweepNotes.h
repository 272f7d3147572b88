// What a person should know of a sweep beside its numbers.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/GraphData.h"

namespace korva {

// The texts of all notices in one.
std::string NoticeText(const std::vector<FormNotice>& notices);

// Points side by side about which there is a notice, of that reason if one is given: the first and the last
// of each run.
std::vector<std::pair<std::size_t, std::size_t>> NoticedPoints(const SweepData& data,
                                                               std::string_view reason = {});

// The curves of 1 to CurveCount that have no factor at all, since there is no barrier for it.
std::vector<int> CurvesWithoutFactor(const SweepData& data);

// What the input form would refuse, and of which points: {"pillars without length", "2.00 to 16.88"}.
struct NoticeRange {
  std::string Reason;
  std::string Values;
};
std::vector<NoticeRange> NoticeRanges(const SweepData& data);

// What a person should know of a graph: what the input form would refuse, which curves have no factor, and
// why points are missing. Empty if there is nothing. `curves` are shown.
std::vector<std::string> SweepNotes(const SweepData& data, int curves);

}  // namespace korva
