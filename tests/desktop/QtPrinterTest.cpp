#include <gtest/gtest.h>

#include <QPrinter>
#include <QPrinterInfo>

#include "desktop/FormBench.h"
#include "desktop/reports/SheetView.h"
#include "desktop/services/PaintSheet.h"
#include "desktop/services/QtPrinter.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

// One sheet in pixels of ten twips, its corner at (50, 30).
QImage Painted(const PrintedSheet& sheet) {
  constexpr PaperSize kPaper = {4000, 3000};
  QImage image(500, 400, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintSheet(painter, sheet, kPaper, QRectF(50, 30, 400, 300));
  return image;
}

TEST(PaintSheet, RecordsStandWhereTheyAreTold) {
  PrintedSheet sheet;
  sheet.Rules = {{1000, 3000, 2000}};
  const QRect rule = Ink(Painted(sheet));
  EXPECT_NEAR(rule.left(), 50 + 100, 1);
  EXPECT_NEAR(rule.right(), 50 + 300, 1);
  EXPECT_NEAR(rule.top(), 30 + 200, 1);
  EXPECT_LE(rule.height(), 2);

  sheet = {};
  sheet.Texts = {{1000, 2000, "MMMMMMMMMM"}};
  const QRect text = Ink(Painted(sheet));
  EXPECT_NEAR(text.left(), 50 + 100, 2);
  EXPECT_NEAR(text.right(), 50 + 100 + 108, 2) << "ten characters";
  EXPECT_NEAR(text.bottom(), 30 + 200 + 15, 1) << "base line";
  EXPECT_GT(text.top(), 30 + 200);
  sheet.Texts[0].Text = "iiiiiiiii\u00b5";
  EXPECT_NEAR(Ink(Painted(sheet)).right(), text.right(), 2) << "fixed pitch";
}

class PdfPrinter : public testing::Test {
 protected:
  PdfPrinter() {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder / "out.pdf"));
    printer.setPageSize(QPageSize(QPageSize::A4));
  }

  TempFolder folder;
  QPrinter printer{QPrinter::HighResolution};
};

TEST_F(PdfPrinter, PrintsSheetBySheetOnItsPaper) {
  EXPECT_EQ(PaperOf(printer).Width, kA4Paper.Width);
  EXPECT_EQ(PaperOf(printer).Height, kA4Paper.Height);
  PrintedSheet sheet;
  sheet.Texts = {{1152, 576, "text"}};
  PrintSheets(printer, {sheet, sheet, sheet});
  EXPECT_NE(TempFolder::Bytes(folder / "out.pdf").find("/Count 3\n"), std::string::npos);
  printer.setPageOrientation(QPageLayout::Landscape);
  EXPECT_EQ(PaperOf(printer).Width, kA4Paper.Height);
}

TEST_F(PdfPrinter, PicturesGetTheRoomWithinTheMargins) {
  QRectF got;
  PrintOneSheet(printer, [&](QPaintDevice& sheet, const QRectF& room) {
    QPainter painter;
    BeginPainting(painter, sheet);
    painter.drawRect(room);
    got = room;
  });
  const QRect whole = printer.pageLayout().fullRectPixels(printer.resolution());
  EXPECT_EQ(got.topLeft(), QPointF());
  EXPECT_LT(got.width(), whole.width());
  EXPECT_GT(got.width(), whole.width() * 0.8);
}

TEST_F(PdfPrinter, APrinterThatTakesNothingIsAnError) {
  printer.setOutputFileName(QString::fromStdString(folder / "none/out.pdf"));
  ExpectError(ErrorNumber::kPrinter, [&] { PrintSheets(printer, {PrintedSheet()}); });
}

TEST(QtPrinter, SaysThatThereIsNoPrinter) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) {
    GTEST_SKIP() << "there is one";
  }
  QtPrinter printer;
  const std::string told = "No printer is installed";
  EXPECT_FALSE(printer.Paper().has_value());
  EXPECT_TRUE(ExpectError(ErrorNumber::kPrinter, [&] { printer.SetUp(); }).starts_with(told));
  EXPECT_TRUE(ExpectError(ErrorNumber::kPrinter, [&] { printer.Choose(); }).starts_with(told));
  EXPECT_TRUE(ExpectError(ErrorNumber::kPrinter, [&] { printer.Print({}, "x"); }).starts_with(told));
  EXPECT_TRUE(
      ExpectError(ErrorNumber::kPrinter, [&] { printer.PrintPicture({}, nullptr); }).starts_with(told));
}

TEST(SheetView, SheetsFollowTheWidthOfTheWindow) {
  SheetView view("sheets", nullptr);
  view.Show({PrintedSheet(), PrintedSheet()}, kA4Paper);
  view.resize(500, 400);
  view.show();
  const QSize narrow = view.widget()->size();
  view.resize(900, 400);
  const QSize wide = view.widget()->size();
  EXPECT_EQ(narrow.width(), view.viewport()->width() - 400);
  EXPECT_NEAR(static_cast<double>(wide.height()) / narrow.height(), 1.8, 0.15);
  const QImage picture = view.widget()->grab().toImage();
  const auto whiteAt = [&](double down) {
    return picture.pixelColor(picture.width() / 2, static_cast<int>(picture.height() * down)) == Qt::white;
  };
  EXPECT_TRUE(whiteAt(0.25) && whiteAt(0.75));
  EXPECT_FALSE(whiteAt(0.5)) << "a gap between the sheets";
}

}  // namespace
}  // namespace korva::desktop
