#include <gtest/gtest.h>

#include "services/HelpTexts.h"
#include "services/HelpTopics.h"

namespace korva {
namespace {

using Labels = std::vector<std::string>;

TEST(HelpTexts, AboutTellsNameVersionAndDate) {
  EXPECT_EQ(AboutText(),
            "KORVA-STROND\r\n\nVersion: 1.1.05\r\n\nRevision Date: 19-Feb-2023\r\n\n"
            "This program was originally created by:\r\n   The KORVA-STROND contributors\r\n\r\n"
            "Development of windows version:\r\n   The KORVA-STROND contributors\r\n\r\n"
            "Development of Strond2D routines:\r\n   The KORVA-STROND contributors\r\n");
  EXPECT_EQ(AboutTitle(), "About the KORVA-STROND Program");
}

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
