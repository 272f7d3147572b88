#include "core/Version.h"

#include <fmt/format.h>

namespace korva {

std::string ProgramVersionText(bool separated) {
  return separated ? fmt::format("{}.{}.{:02}", kVersionMajor, kVersionMinor, kVersionRevision)
                   : fmt::format("{}{}{:02}", kVersionMajor, kVersionMinor, kVersionRevision);
}

}  // namespace korva
