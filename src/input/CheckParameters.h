// What the parameters form refuses.
#pragma once

#include <optional>
#include <string>

#include "input/ParameterTexts.h"

namespace korva {

struct ParameterRefusal {
  std::string Text;
  RefusalKind Kind = RefusalKind::kRange;
  ParameterTab Tab = ParameterTab::kStandardTab;
  std::string Control;  // that gets the focus
};

// The first test that the form fails, in the order in which a person fills it in; nothing if it may be taken.
// The limits differ on purpose from those of the check before a calculation.
std::optional<ParameterRefusal> CheckParameters(const ParameterTexts& texts);

}  // namespace korva
