// The warnings of the parameters form. They inform and refuse nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/DataBase.h"
#include "core/UnitSystem.h"

namespace korva {

// A warning of the data base as the form shows it.
std::string FormWarning(std::string_view text);

// The warning for a field that has been left, or nothing for the value that the data base was analyzed with.
std::optional<std::string> WarningOn(std::string_view text, const DataBaseValue& usual, UnitSystem units);

}  // namespace korva
