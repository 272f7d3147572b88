// The window toolkit's side of printing.
#pragma once

#include <memory>
#include <vector>

#include "core/Ports.h"
#include "desktop/services/PicturePrinter.h"

class QPrinter;

namespace korva::desktop {

// One printer for as long as the program runs: what a dialog sets holds for what is printed later. It is made
// when it is needed first, which takes time.
class QtPrinter final : public PrinterPort, public PicturePrinter {
 public:
  QtPrinter();
  ~QtPrinter() override;

  bool SetUp() override;
  bool Choose() override;
  std::optional<PaperSize> Paper() override;
  void Print(const std::vector<PrintedSheet>& sheets, const std::string& title) override;
  bool PrintPicture(const QString& title, const Paint& paint) override;

 private:
  QPrinter& Printer();

  std::unique_ptr<QPrinter> printer_;
};

// The paper that is set on `printer`, in the direction it is printed on.
PaperSize PaperOf(const QPrinter& printer);

// Prints a document on `printer`. Run-time error 482 if that fails.
void PrintSheets(QPrinter& printer, const std::vector<PrintedSheet>& sheets);

// Prints one sheet; `paint` gets the part of the paper that can be printed on. Run-time error 482 if that
// fails.
void PrintOneSheet(QPrinter& printer, const PicturePrinter::Paint& paint);

}  // namespace korva::desktop
