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
  HistoryLog(session.State.SessionHistory, session.State.Preferences, "Preview displayed");
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
  const auto button = [this](const char* name, const char* caption, const char* tip, auto action) {
    QPushButton* made = NewButton(name, QLatin1String(caption), this);
    made->setToolTip(QLatin1String(tip));
    connect(made, &QPushButton::clicked, this, action);
    return made;
  };
  QPushButton* copy =
      button("Command2", "&Copy to Clipboard", "Copies the page as text", [this] { CopyText(); });
  QPushButton* print = button("Command3", "&Print", "Prints the page", [this] { PrintPage(); });
  QPushButton* pdf =
      button("cmdSavePdf", "Save as P&DF...", "Writes the printed sheets to a file", [this] { SavePdf(); });
  QPushButton* help = button("Command8", "Help", "How to get help", [this] { ShowHelpHint(session_); });
  QPushButton* close = button("Command1", "Close", "Closes this window", [this] { accept(); });
  print->setDefault(true);
  auto* all = new QVBoxLayout(this);
  ApplySpacing(*all, *this);
  all->addWidget(NewPages(), 1);
  all->addLayout(NewButtonRow(help, {copy, print, pdf, close}));
}

void frmPreview::ShowSheets() {
  const PaperSize paper = PaperInUse(session_.State, session_.Outside.Printer);
  sheets_->Show(SheetsOf(session_.State.OutBuf[0], paper, LocalTimeNow()), paper);
}

void frmPreview::CopyText() {
  session_.Outside.Clipboard.SetText(session_.State.OutBuf[0]);
  HistoryLog(session_.State.SessionHistory, session_.State.Preferences, "Output copied to clipboard");
}

void frmPreview::PrintPage() {
  Attempt(session_.State, session_.Outside.Messages,
          [this] { PrintText(session_.State, session_.Outside, session_.State.OutBuf[0]); });
  ShowSheets();  // the dialog may have brought other paper
}

void frmPreview::SavePdf() {
  Attempt(session_.State, session_.Outside.Messages,
          [this] { SaveTextAsPdf(session_.State, session_.Outside, session_.State.OutBuf[0]); });
}

}  // namespace korva::desktop
