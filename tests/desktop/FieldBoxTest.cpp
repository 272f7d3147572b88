#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
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

TEST(FieldBox, StoresWhatIsSeenOfAPastedNumber) {
  FieldBox box(QStringLiteral("txtExtentActiveGob"), 5);
  box.HoldNumber();
  QGuiApplication::clipboard()->setText(QStringLiteral("\uFEFF\t\u2212300\u00A0\r\n"));
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), "-300");
  FieldBox title(QStringLiteral("Text1"));
  QGuiApplication::clipboard()->setText(QStringLiteral(" a \u2212 b "));
  QTest::keyClick(&title, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(title.Text(), " a \u2212 b ") << "a text is no number";
}

TEST(FieldBox, SaysWhatATextCountsAs) {
  FieldBox box(QStringLiteral("txtDepthCover"), 10);
  box.HoldNumber();
  box.Explain(QStringLiteral("Depth of cover"), QStringLiteral("Above 0 ft"));
  QTest::keyClicks(&box, QStringLiteral("12,5"));
  EXPECT_EQ(box.toolTip(), QStringLiteral("Above 0 ft\ncounts as 12"));
  EXPECT_EQ(box.accessibleDescription(), box.toolTip());
  FieldBox plain(QStringLiteral("Text1"), 10);
  plain.Fill("12,5");
  plain.resize(box.size());
  EXPECT_NE(box.grab().toImage(), plain.grab().toImage()) << "a frame";
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(box.toolTip(), QStringLiteral("Above 0 ft"));
  EXPECT_EQ(box.accessibleDescription(), QStringLiteral("Above 0 ft"));
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

TEST(FieldBox, ItsFrameIsWholeAtEveryScale) {
  constexpr QSize kSize(100, 24);
  FieldBox box(QStringLiteral("txtDepthCover"));
  box.resize(kSize);
  const auto picture = [&](double scale) {
    QImage image(kSize * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    box.render(&image);
    return image;
  };
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    box.RemarkOn({});
    const QImage plain = picture(scale);
    box.ShowRefused(QStringLiteral("Invalid depth of cover"));
    const QImage framed = picture(scale);
    const QPoint middle = framed.rect().center();
    for (const QPoint side :
         {QPoint(middle.x(), 0), QPoint(0, middle.y()), QPoint(middle.x(), framed.height() - 1),
          QPoint(framed.width() - 1, middle.y())}) {
      EXPECT_NE(framed.pixel(side), plain.pixel(side)) << scale << ": " << side.x() << " " << side.y();
    }
  }
}

}  // namespace
}  // namespace korva::desktop
