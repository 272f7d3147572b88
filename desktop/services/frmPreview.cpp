#include "desktop/services/frmPreview.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "commands/PrintCommands.h"
#include "desktop/reports/PageView.h"
#include "desktop/reports/SheetView.h"
#include "desktop/support/FormTools.h"
#include "services/PagePrinter.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 80;
constexpr int kLines = 40;

}  // namespace

frmPreview::frmPreview(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmPreview"));
  setWindowTitle(QStringLiteral("Print Preview"));
  Build();
  HistoryLog(session.State, "Preview displayed");
  CenterForm(*this);
}

QWidget* frmPreview::NewPages() {
  auto* pages = new QTabWidget(this);
  pages->setObjectName(QStringLiteral("tabPages"));
  auto* text = new PageView("RichTextBox1", kColumns, kLines, pages);
  text->setAccessibleName(QStringLiteral("Text of the page"));
  text->setPlainText(FromUtf8(session_.State.OutBuf[0]));
  sheets_ = new SheetView("SheetView1", pages);
  sheets_->setAccessibleName(QStringLiteral("Printed sheets"));
  ShowSheets();
  pages->addTab(text, QStringLiteral("&Text"));
  pages->addTab(sheets_, QStringLiteral("&Sheets"));
  return pages;
}

void frmPreview::Build() {
  QPushButton* copy =
      NewButton("Command2", "&Copy to Clipboard", "Copies the page as text", *this, [this] { CopyText(); });
  QPushButton* print = NewButton("Command3", "&Print", "Prints the page", *this, [this] { PrintPage(); });
  QPushButton* pdf = NewButton("cmdSavePdf", kSavePdfCaption, "Writes the printed sheets to a file", *this,
                               [this] { SavePdf(); });
  QPushButton* help = NewHelpButton("Command8", session_, this, kHelpTip);
  QPushButton* close = NewButton("Command1", "Close", kCloseTip, *this, [this] { accept(); });
  print->setDefault(true);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(NewPages(), 1);
  all->addLayout(NewButtonRow(help, {copy, print, pdf, close}));
}

void frmPreview::ShowSheets() {
  const PaperSize paper = PaperInUse(session_.State, session_.Ports.Printer);
  sheets_->Show(SheetsOf(session_.State.OutBuf[0], paper, LocalTimeNow()), paper);
}

void frmPreview::CopyText() {
  CopyPages(session_.State, session_.Ports.Clipboard, session_.State.OutBuf[0]);
}

void frmPreview::PrintPage() {
  Attempt(session_.State, session_.Ports.Messages,
          [this] { PrintText(session_.State, session_.Ports, session_.State.OutBuf[0]); });
  ShowSheets();  // the dialog may have brought other paper
}

void frmPreview::SavePdf() {
  Attempt(session_.State, session_.Ports.Messages,
          [this] { SaveTextAsPdf(session_.State, session_.Ports, session_.State.OutBuf[0]); });
}

}  // namespace korva::desktop
