#include "core/Version.h"

#include <fmt/format.h>

#include <array>

namespace korva {

std::string ProgramVersionText(bool separated) {
  return separated ? fmt::format("{}.{}.{:02}", kVersionMajor, kVersionMinor, kVersionRevision)
                   : fmt::format("{}{}{:02}", kVersionMajor, kVersionMinor, kVersionRevision);
}

std::string RevisionDateText() {
  static constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  return fmt::format("{:02}-{}-{}", static_cast<unsigned>(kRevisionDate.day()),
                     kMonths[static_cast<unsigned>(kRevisionDate.month()) - 1],
                     static_cast<int>(kRevisionDate.year()));
}

}  // namespace korva
