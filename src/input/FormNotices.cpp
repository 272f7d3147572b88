#include "input/FormNotices.h"

#include <fmt/format.h>

#include <cmath>

#include "core/Limits.h"
#include "core/NumberText.h"

namespace korva {

std::vector<FormNotice> FormNotices(const Project& p) {
  std::vector<FormNotice> notices;
  if (p.XcutAngle < kLeastXcutAngle) {
    notices.push_back(
        {fmt::format("crosscut angle below {} degrees", kLeastXcutAngle),
         fmt::format("the crosscut angle of {} degrees is below the {} that the input form asks for",
                     GeneralText(p.XcutAngle), kLeastXcutAngle)});
  }
  const double clearLength = p.XcutSpacing * std::sin(p.XcutAngle * kRadiansPerDegree) - p.EntryWidth;
  if (p.XcutSpacing <= p.EntryWidth || clearLength <= 0) {
    notices.push_back(
        {"pillars without length",
         "the pillars have no length: the crosscut spacing leaves nothing beside the entry width"});
  }
  if (!ComputesArch(p) && p.ArchFactor < kLeastArchFactorSingle) {
    notices.push_back({fmt::format("arch factor below {}", kLeastArchFactor),
                       fmt::format("the arch factor of {} is below the {} that the input form asks for",
                                   GeneralText(p.ArchFactor), kLeastArchFactor)});
  }
  for (int i = 1; i <= PillarRows(p); ++i) {
    if (p.XcutCenters[i] <= p.EntryWidth) {
      notices.push_back(
          {"pillars without width",
           fmt::format("the pillars of row {} have no width: center-to-center distance {}, entry width {}", i,
                       GeneralText(p.XcutCenters[i]), GeneralText(p.EntryWidth))});
    }
  }
  return notices;
}

}  // namespace korva
