// What the kinds of a plan look like, on the screen, on paper and in files.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "core/Drawing.h"

namespace korva {

// Dots stand only where black and white has to do: on paper and in files.
enum class PlanPattern { kNone, kHatch, kDots };

struct PlanColours {
  std::uint32_t Line = 0;             // red, green, blue; of a pattern, too
  std::optional<std::uint32_t> Fill;  // none: an outline alone, or a pattern on the paper
};

struct PlanLook {
  PlanColours Light;       // also of paper and files
  PlanColours Dark;        // of a dark screen
  double ScreenWidth = 1;  // of its outline, in pixels at 100 percent, on paper as on the screen
  double FileWidth = 1;    // in points
  PlanPattern Over = PlanPattern::kNone;
  bool Dashed = false;  // an outline alone
};

// By DrawLayer.
inline constexpr std::array<PlanLook, 5> kPlanLooks = {{
    {{0x4a4a4a, 0xd9d9d9}, {0xc8c8c8, 0x3a3a3a}},
    {{0x8a6d3b, 0xf0e4cc}, {0xd8b36a, 0x4a3d22}, 1.5, 1, PlanPattern::kDots},
    {{0x2f6f9f, 0xd6e6f2}, {0x8cc0e8, 0x1f3a50}, 1.5, 1.4},
    {{0x9a9a9a, {}}, {0x7a7a7a, {}}, 1, 0.6, PlanPattern::kHatch},
    {{0xb5451b, {}}, {0xff9d6b, {}}, 2, 1.4, PlanPattern::kNone, true},
}};

inline const PlanLook& LookOf(DrawLayer layer) {
  return kPlanLooks[static_cast<std::size_t>(layer)];
}

// Sizes of patterns and dashes, in pixels at 100 percent or in points.
struct PlanSizes {
  double HatchStep = 0;
  double DotStep = 0;
  double Dot = 0;                     // its diameter
  std::array<double, 2> Dashes = {};  // a dash, a gap
};
inline constexpr PlanSizes kScreenSizes = {8, 7, 1.6, {8, 4}};
inline constexpr PlanSizes kFileSizes = {7, 6, 1.4, {6, 3}};

inline constexpr double kBackgroundOpacity = 0.85;  // of a pattern that the background below a text covers

}  // namespace korva
