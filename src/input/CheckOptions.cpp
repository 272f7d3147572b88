#include "input/CheckOptions.h"

#include "core/Limits.h"
#include "input/CheckFieldRange.h"
#include "input/FieldNumber.h"

namespace korva {

std::optional<OptionsRefusal> CheckOptions(std::string_view minimum, std::string_view maximum) {
  for (const auto& [text, control] : {std::pair{minimum, kRangeMinBox}, {maximum, kRangeMaxBox}}) {
    if (auto fault = CheckFieldRange(text, kLeastRange, kGreatestRange, {})) {
      return OptionsRefusal{std::move(*fault), true, control};
    }
  }
  if (!(FieldNumber(maximum) > FieldNumber(minimum))) {
    return OptionsRefusal{"Invalid range for parametric graphs. Min Value should be < Max Value", false,
                          kRangeMinBox};
  }
  return std::nullopt;
}

}  // namespace korva
