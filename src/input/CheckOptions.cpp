#include "input/CheckOptions.h"

#include "input/CheckFieldRange.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

constexpr double kLeast = 2;  // the settings file may hold less
constexpr double kGreatest = 150;

}  // namespace

std::optional<OptionsRefusal> CheckOptions(std::string_view minimum, std::string_view maximum) {
  for (const auto& [text, control] : {std::pair{minimum, "Text1"}, {maximum, "Text2"}}) {
    if (auto fault = CheckFieldRange(text, kLeast, kGreatest, {})) {
      return OptionsRefusal{std::move(*fault), true, control};
    }
  }
  if (!(FieldNumber(maximum) > FieldNumber(minimum))) {
    return OptionsRefusal{"Invalid range for parametric graphs. Min Value should be < Max Value", false,
                          "Text1"};
  }
  return std::nullopt;
}

}  // namespace korva
