// What the output pages are called, and why one may hold no data.
#pragma once

#include <string_view>

#include "core/OverburdenModel.h"

namespace korva {

// The name of page `page`, 0 to 5, of a run of `model`; the laminated model lays its pages out otherwise than
// the traditional one.
std::string_view PageName(OverburdenModel model, int page);

// Why that page holds no data, a sentence; empty if it does. `sideGobs` is how many the run had.
std::string_view EmptyPageReason(OverburdenModel model, int sideGobs, int page);

}  // namespace korva
