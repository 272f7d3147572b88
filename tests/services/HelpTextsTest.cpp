#include <gtest/gtest.h>

#include "services/HelpTopics.h"

namespace korva {
namespace {

using Labels = std::vector<std::string>;

TEST(HelpTopics, LabelsOfFormsControlsAndArrays) {
  EXPECT_EQ(HelpLabel("frmKORVAParm"), "frmkorvaparm");
  EXPECT_EQ(HelpLabel("frmKORVAParm", "txtDepth"), "frmkorvaparm-txtdepth");
  EXPECT_EQ(HelpLabel("frmMain", "mnuFileItem(13)"), "frmmain-mnufileitem-13");
}

TEST(HelpTopics, AnIndexThenItsArrayThenWhatHoldsThemThenTheForm) {
  EXPECT_EQ(HelpLabels("frmSet", {"qt_tabwidget_tabbar", "", "optUnits(1)", "Frame2", "SSTab1"}),
            (Labels{"frmset-optunits-1", "frmset-optunits", "frmset-frame2", "frmset-sstab1", "frmset"}));
  EXPECT_EQ(HelpLabels("frmSet", {}), Labels{"frmset"});
  EXPECT_TRUE(HelpLabels("", {}).empty());
}

}  // namespace
}  // namespace korva
