#include <gtest/gtest.h>

#include "input/FormNotices.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::DevelopmentPanel;

TEST(FormNotices, TellWhatTheFormWouldRefuse) {
  EXPECT_TRUE(FormNotices(DevelopmentPanel()).empty());
  const auto notice = [](const auto& put) {
    Project p = DevelopmentPanel();
    put(p);
    const auto notices = FormNotices(p);
    EXPECT_EQ(notices.size(), 1U);
    return notices.empty() ? "" : notices.front();
  };
  EXPECT_NE(notice([](Project& p) { p.XcutAngle = 29.9; }).find("29.9"), std::string::npos);
  EXPECT_NE(notice([](Project& p) { p.ArchFactor = 0.27F; }).find("0.27"), std::string::npos);
  EXPECT_NE(notice([](Project& p) { p.XcutCenters[2] = 20; }).find("row 2"), std::string::npos);
  EXPECT_NE(notice([](Project& p) { p.XcutSpacing = 20; }).find("no length"), std::string::npos);
  EXPECT_NE(notice([](Project& p) { p.XcutAngle = 30, p.XcutSpacing = 40; }).find("no length"),
            std::string::npos);
  Project p = DevelopmentPanel();
  p.XcutAngle = 30;
  p.ArchFactor = 0.28F;
  p.XcutCenters[1] = 20.1;
  EXPECT_TRUE(FormNotices(p).empty());
}

}  // namespace
}  // namespace korva
