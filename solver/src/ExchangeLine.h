// Reading the exchange line.
#pragma once

#include <string_view>

#include "Panel.h"
#include "Status.h"

namespace korva::laminated {

inline constexpr int kExchangeFields = 52;

// The panel of an exchange line: 52 numbers with a decimal point, separated by commas, blanks around them,
// with or without a line end. Failure KORVASTROND_NOT_52_FIELDS for another count, KORVASTROND_FIELD plus its
// number for a field that is no number or has a value that its loading condition cannot use; lengths reach to
// 1e5, the depth to 1e4, the crosscut spacing and angle begin at 1. Fields that the loading condition does
// not use only have to be numbers.
Panel ReadExchangeLine(std::string_view text);

// The failure for a panel whose results are beyond all numbers: KORVASTROND_FIELD plus the number of the
// field that drives them there. It is so small that others are divided by it.
Failure OverflowFailure(const Panel& panel);

}  // namespace korva::laminated
