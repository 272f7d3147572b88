#include "desktop/services/QtPrinter.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <cmath>

#include "core/RuntimeError.h"
#include "desktop/services/PaintSheet.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr double kTwipsInMillimetre = kTwipsInInch / 25.4;

[[noreturn]] void ThrowPrinter(const QPrinter& printer) {
  throw RuntimeError(ErrorNumber::kPrinter,
                     QStringLiteral("\"%1\" does not print").arg(printer.printerName()).toStdString());
}

void RequirePrinted(QPrinter& printer, bool done) {
  if (!done || printer.printerState() == QPrinter::Error) {
    ThrowPrinter(printer);
  }
}

// Printing to a file is left to the commands that write files safely.
bool Ask(QPrinter& printer, const QString& title, const QString& button) {
  QPrintDialog dialog(&printer, FrontWindow());
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  dialog.setWindowTitle(title);
  dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
  if (const auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
    if (QPushButton* ok = buttons->button(QDialogButtonBox::Ok)) {
      ok->setText(button);
    }
  }
  DropButtonIcons(dialog);
  return dialog.exec() == QDialog::Accepted;
}

// Gives a printer back the orientation that it had.
class KeptOrientation {
 public:
  explicit KeptOrientation(QPrinter& printer)
      : printer_(printer), orientation_(printer.pageLayout().orientation()) {}
  ~KeptOrientation() { printer_.setPageOrientation(orientation_); }
  KeptOrientation(const KeptOrientation&) = delete;
  KeptOrientation& operator=(const KeptOrientation&) = delete;

 private:
  QPrinter& printer_;
  QPageLayout::Orientation orientation_;
};

}  // namespace

void BeginPainting(QPainter& painter, QPaintDevice& sheet) {
  if (!painter.begin(&sheet)) {
    throw RuntimeError(ErrorNumber::kPrinter, "the printer accepts no document");
  }
}

PaperSize PaperOf(const QPrinter& printer) {
  const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
  const auto twips = [](double length) { return static_cast<int>(std::lround(length * kTwipsInMillimetre)); };
  return {twips(paper.width()), twips(paper.height())};
}

void PrintSheets(QPrinter& printer, const std::vector<PrintedSheet>& sheets) {
  printer.setFullPage(true);
  const PaperSize paper = PaperOf(printer);
  const QRectF whole(printer.pageLayout().fullRectPixels(printer.resolution()));
  QPainter painter;
  BeginPainting(painter, printer);
  bool printed = true;
  for (std::size_t i = 0; i < sheets.size() && printed; ++i) {
    printed = i == 0 || printer.newPage();
    if (printed) {
      PaintSheet(painter, sheets[i], paper, whole);
    } else {
      printer.abort();
    }
  }
  const bool ended = painter.end();
  RequirePrinted(printer, printed && ended);
}

void PrintOneSheet(QPrinter& printer, const PicturePrinter::Paint& paint) {
  printer.setFullPage(false);
  const QRect room = printer.pageLayout().paintRectPixels(printer.resolution());
  paint(printer, QRectF(QPointF(), room.size()));
  RequirePrinted(printer, true);
}

QtPrinter::QtPrinter() = default;
QtPrinter::~QtPrinter() = default;

// Without an installed printer the toolkit's own would write files under a name of its choice.
QPrinter& QtPrinter::Printer() {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    throw RuntimeError(ErrorNumber::kPrinter,
                       "No printer is installed. \"Save as PDF...\" and \"Save Picture...\" in the windows "
                       "write files that can be printed elsewhere.");
  }
  if (!printer_ || printer_->printerName().isEmpty()) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  }
  return *printer_;
}

bool QtPrinter::SetUp() {
  return Ask(Printer(), QStringLiteral("Printer Setup"), QStringLiteral("OK"));
}

bool QtPrinter::Choose() {
  return Ask(Printer(), QStringLiteral("Print"), QStringLiteral("&Print"));
}

std::optional<PaperSize> QtPrinter::Paper() {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    return std::nullopt;
  }
  return PaperOf(Printer());
}

void QtPrinter::Print(const std::vector<PrintedSheet>& sheets, const std::string& title) {
  QPrinter& printer = Printer();
  printer.setDocName(FromUtf8(title));
  PrintSheets(printer, sheets);
}

bool QtPrinter::PrintPicture(const QString& title, const Paint& paint) {
  QPrinter& printer = Printer();
  const KeptOrientation orientation(printer);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!Choose()) {
    return false;
  }
  printer.setDocName(title);
  PrintOneSheet(printer, paint);
  return true;
}

}  // namespace korva::desktop
