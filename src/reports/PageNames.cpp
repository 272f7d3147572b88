#include "reports/PageNames.h"

#include <array>

namespace korva {

namespace {

constexpr std::array<std::string_view, 6> kTraditionalPages = {
    "Inputs",  "Stability factors", "Active mining zone",
    "Pillars", "Barrier pillars",   "Remnant and leave pillars"};
constexpr std::array<std::string_view, 6> kLaminatedPages = {
    "Inputs", "Stability factors", "Pillars", "Barrier pillars", "Remnant pillars", "Empty"};
constexpr int kLastLaminatedPage = 4;

}  // namespace

std::string_view PageName(OverburdenModel model, int page) {
  return (UsesLaminated(model) ? kLaminatedPages : kTraditionalPages).at(static_cast<std::size_t>(page));
}

std::string_view EmptyPageReason(OverburdenModel model, int sideGobs, int page) {
  const bool laminated = UsesLaminated(model);
  if (laminated && page > kLastLaminatedPage) {
    return "This page is empty: the laminated model fills pages 1 to 4 only.";
  }
  const int barriers = laminated ? 3 : 4;  // and the remnants after them
  if (sideGobs == 0 && page >= barriers) {
    return page == barriers ? "There are no barrier pillars: the loading condition has no side gob."
                            : "There are no remnant pillars: the loading condition has no side gob.";
  }
  return {};
}

}  // namespace korva
