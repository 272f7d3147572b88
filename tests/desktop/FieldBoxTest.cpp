#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "desktop/support/FieldBox.h"

namespace korva::desktop {
namespace {

TEST(FieldBox, LimitsWhatIsTypedAndPastedNotWhatTheProgramFillsIn) {
  FieldBox box(QStringLiteral("txtEntryHeight"), 5);
  box.Fill("134.115");
  EXPECT_EQ(box.Text(), "134.115");
  QTest::keyClicks(&box, QStringLiteral("9"));
  EXPECT_EQ(box.Text(), "134.115");
  box.selectAll();
  QTest::keyClicks(&box, QStringLiteral("1234567"));
  EXPECT_EQ(box.Text(), "12345");
  QGuiApplication::clipboard()->setText(QStringLiteral("98.76543"));
  box.selectAll();
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), "98.76");
}

TEST(FieldBox, ShowsARefusalUntilTheTextChanges) {
  FieldBox box(QStringLiteral("txtDepthCover"));
  box.Explain(QStringLiteral("Depth of cover"), QStringLiteral("Above 0 ft"));
  box.Fill("0");
  box.ShowRefused(QStringLiteral("Invalid depth of cover"));
  EXPECT_EQ(box.toolTip(), QStringLiteral("Invalid depth of cover"));
  EXPECT_EQ(box.selectedText(), QStringLiteral("0"));
  QTest::keyClicks(&box, QStringLiteral("8"));
  EXPECT_EQ(box.toolTip(), QStringLiteral("Above 0 ft"));
}

}  // namespace
}  // namespace korva::desktop
