#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "input/FormNotices.h"
#include "support/Panels.h"

namespace korva {
namespace {

TEST(FormNotices, TellWhatTheFormWouldRefuse) {
  // A part of the notice; none where the form would take the value.
  for (const auto& [put, notice] : std::vector<std::pair<void (*)(Project&), const char*>>{
           {[](Project& p) { p.XcutAngle = 29.9; }, "29.9"},
           {[](Project& p) { p.ArchAuto = 0, p.ArchFactor = 0.27F; }, "0.27"},
           {[](Project& p) { p.ArchFactor = 0.27F; }, nullptr},  // the form computes it
           {[](Project& p) { p.XcutCenters[2] = 20; }, "row 2"},
           {[](Project& p) { p.XcutSpacing = 20; }, "no length"},
           {[](Project& p) { p.XcutAngle = 30, p.XcutSpacing = 40; }, "no length"},
           {[](Project& p) {
              p.XcutAngle = 30, p.ArchAuto = 0, p.ArchFactor = 0.28F, p.XcutCenters[1] = 20.1;
            },
            nullptr},
       }) {
    Project p = test::DevelopmentPanel();
    put(p);
    const auto notices = FormNotices(p);
    ASSERT_EQ(notices.size(), notice ? 1U : 0U);
    EXPECT_TRUE(!notice || notices.front().Text.find(notice) != std::string::npos) << notices.front().Text;
  }
}

}  // namespace
}  // namespace korva
