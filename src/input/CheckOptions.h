// What the Options dialog refuses.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// The names of the boxes of the range of parametric graphs, and the least that they take, in percent. The
// settings file may hold less.
inline constexpr const char* kRangeMinBox = "Text1";
inline constexpr const char* kRangeMaxBox = "Text2";
inline constexpr int kLeastRange = 2;

struct OptionsRefusal {
  std::string Text;
  bool IsRange = false;  // a fault of one field; else of both together
  std::string Control;   // that gets the focus
};

// The first fault of the range of parametric graphs, from the texts of its ends in percent, or nothing.
std::optional<OptionsRefusal> CheckOptions(std::string_view minimum, std::string_view maximum);

}  // namespace korva
