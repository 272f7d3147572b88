// The unit calculator and the file conversion.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

#include "desktop/FormBench.h"
#include "desktop/options/frmConvert.h"
#include "desktop/options/frmUnits.h"
#include "support/Panels.h"

namespace korva::desktop {
namespace {

std::string TextIn(const QWidget& form, const char* box) {
  return The<QLineEdit>(form, box).text().toStdString();
}

TEST(UnitsForm, ConvertsAsItIsTypedAndWhenTheUnitChanges) {
  FormBench bench;
  frmUnits form(bench.Forms);
  form.show();
  EXPECT_EQ(TextIn(form, "txtStress") + TextIn(form, "Text10"), "00");
  The<QLineEdit>(form, "txtLength").setText(QStringLiteral("1,5 and more"));
  EXPECT_EQ(TextIn(form, "Text9"), "3.81");
  The<QRadioButton>(form, "Option2(3)").click();
  EXPECT_EQ(TextIn(form, "Text9"), "150");
  The<QLineEdit>(form, "txtLength").clear();
  EXPECT_EQ(TextIn(form, "Text7"), "0");
  The<QRadioButton>(form, "Option1(2)").click();
  The<QLineEdit>(form, "txtStress").setText(QStringLiteral("1"));
  EXPECT_EQ(TextIn(form, "Text2"), "6.944444444444444E-06");
  EXPECT_EQ(TextIn(form, "Text3"), "0.006944444444444444");
  EXPECT_EQ(bench.History(), "1. Loading Unit Conversion Form\r\n");
  const auto& result = The<QLineEdit>(form, "Text9");
  EXPECT_TRUE(result.isReadOnly());
  EXPECT_TRUE(!result.hasFrame() && result.palette().color(QPalette::Base).alpha() == 0)
      << "no box to type in";
}

TEST(UnitsForm, CopiesItsResultsAndTellsAnOverflow) {
  FormBench bench;
  frmUnits form(bench.Forms);
  form.show();
  The<QTabWidget>(form, "SSTab1").setCurrentIndex(3);
  The<QRadioButton>(form, "Option1(4)").click();
  The<QLineEdit>(form, "txtStress").setText(QStringLiteral("2"));
  Click(form, "cmdCopy");
  EXPECT_EQ(bench.Ports.Clipboard.Text.substr(bench.Ports.Clipboard.Text.find("2000000")),
            "2000000 Pa\n2 MPa\n");
  bench.Ports.Messages.Expect("Error occurred: Overflow (6). Procedure Terminated");
  The<QLineEdit>(form, "txtStress").setText(QStringLiteral("2e305"));
  EXPECT_EQ(TextIn(form, "Text6"), "") << "no earlier result stays";
}

TEST(ConversionForm, OffersTheOtherUnitsAlone) {
  FormBench bench;
  bench.State.Stored = test::Stored(test::DevelopmentPanel());
  bench.State.ProjectFileName = "/mine/panel.KVL";
  frmConvert form(bench.Forms);
  form.show();
  EXPECT_FALSE(The<QRadioButton>(form, "Option1(0)").isEnabled());
  EXPECT_TRUE(The<QRadioButton>(form, "Option1(1)").isChecked());
  EXPECT_TRUE(The<QRadioButton>(form, "Option2(0)").isChecked());
  EXPECT_FALSE(The<QRadioButton>(form, "Option2(1)").isEnabled());
  bench.Ports.Messages.Expect("Conversion Completed: The conversion form will be closed");
  Click(form, "Command2");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(bench.State.Stored.ProjectUnits, kMetric);
  EXPECT_EQ(bench.State.ProjectFileName, "Metric_panel.KVL");
  EXPECT_FALSE(bench.State.ProjectSaved);
}

TEST(ConversionForm, TellsAFailureAndLeavesTheProject) {
  FormBench bench;
  bench.State.Stored = test::Stored(test::DevelopmentPanel(), kMetric);
  bench.State.Stored.ProjectInput.DepthCover = 1e308;
  const StoredProject before = bench.State.Stored;
  frmConvert form(bench.Forms);
  form.show();
  bench.Ports.Messages.Expect("Error occurred: Overflow (6). Procedure Terminated");
  bench.Ports.Messages.Expect("Error in the Conversion Procedure. Call technical support");
  Click(form, "Command2");
  EXPECT_EQ(bench.State.Stored.ProjectUnits, kMetric);
  EXPECT_EQ(bench.State.Stored.ProjectInput, before.ProjectInput);
}

}  // namespace
}  // namespace korva::desktop
