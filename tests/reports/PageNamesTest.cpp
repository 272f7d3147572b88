#include <gtest/gtest.h>

#include <string>

#include "core/Project.h"
#include "reports/PageNames.h"

namespace korva {
namespace {

TEST(PageNames, FollowTheModelThatLaidThePagesOut) {
  EXPECT_EQ(PageName(kTraditionalModel, 1), "Stability factors");
  EXPECT_EQ(PageName(kTraditionalModel, 2), "Active mining zone");
  EXPECT_EQ(PageName(kTraditionalModel, 5), "Remnant and leave pillars");
  for (const OverburdenModel model : {kLaminatedModel, kComparedModels}) {
    EXPECT_EQ(PageName(model, 2), "Pillars");
    EXPECT_EQ(PageName(model, 4), "Remnant pillars");
  }
}

TEST(PageNames, AnEmptyPageSaysWhy) {
  const auto reasons = [](OverburdenModel model, int sideGobs) {
    std::string pages;
    for (int page = 0; page <= 5; ++page) {
      pages += EmptyPageReason(model, sideGobs, page).empty() ? "" : std::to_string(page);
    }
    return pages;
  };
  EXPECT_EQ(reasons(kTraditionalModel, 0), "45");
  EXPECT_EQ(reasons(kTraditionalModel, 1), "");
  EXPECT_EQ(reasons(kLaminatedModel, 0), "345");
  EXPECT_EQ(reasons(kComparedModels, 2), "5");
  EXPECT_NE(EmptyPageReason(kTraditionalModel, 0, 4).find("no side gob"), std::string_view::npos);
  EXPECT_NE(EmptyPageReason(kLaminatedModel, 0, 5).find("laminated"), std::string_view::npos);
}

}  // namespace
}  // namespace korva
