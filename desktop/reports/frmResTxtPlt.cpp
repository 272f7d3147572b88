#include "desktop/reports/frmResTxtPlt.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "commands/Attempt.h"
#include "commands/PlanCommands.h"
#include "commands/PrintCommands.h"
#include "core/Text.h"
#include "desktop/plan/frmPicture.h"
#include "desktop/reports/PageView.h"
#include "desktop/reports/frmPopUp.h"
#include "desktop/support/FormTools.h"
#include "reports/PageNames.h"
#include "services/HelpTopics.h"

namespace korva::desktop {

namespace {

constexpr std::size_t kLongestBoxText = 1024;
constexpr int kPageLines = 36;
constexpr int kLeastColumns = 80;

// Characters of the longest line of all pages.
int LongestLine(const OutputPages& pages) {
  std::size_t longest = kLeastColumns;
  for (const std::string& page : pages) {
    for (std::string_view left = page; !left.empty();) {
      const SplitLine split = TakeLine(left);
      longest = std::max(longest, CharacterCount(split.line));
      left = split.rest;
    }
  }
  return static_cast<int>(longest);
}

}  // namespace

frmResTxtPlt::frmResTxtPlt(Session& session, QWidget* returnTo)
    : QDialog(nullptr, Qt::Window), session_(session), returnTo_(returnTo) {
  setObjectName(QStringLiteral("frmResTxtPlt"));
  setWindowTitle(QStringLiteral("Results"));
  setAttribute(Qt::WA_DeleteOnClose);
  Build();
  NextPage();
  HistoryLog(session.State, "Results displayed");
  CenterForm(*this, returnTo_);
}

// The page's name and, where it holds no data, why.
QLayout* frmResTxtPlt::NewHead() {
  pageLabel_ = NewLabel(QStringLiteral("lblPage"), {}, this);
  QFont bold = pageLabel_->font();
  bold.setBold(true);
  pageLabel_->setFont(bold);
  emptyLabel_ = NewLabel(QStringLiteral("lblPageEmpty"), {}, this);
  auto* head = new QHBoxLayout;
  head->addWidget(pageLabel_);
  head->addSpacing(2 * SpacingUnit(*this));
  head->addWidget(emptyLabel_, 1);
  return head;
}

void frmResTxtPlt::Build() {
  text_ = new PageView("RichTextBox1", LongestLine(session_.State.OutBuf), kPageLines, this);
  previous_ =
      NewButton("Command5", "P&revious Page", "One page back (Ctrl+PgUp)", *this, [this] { PreviousPage(); });
  next_ =
      NewButton("cmdNextPage", "&Next Page", "One page forward (Ctrl+PgDown)", *this, [this] { NextPage(); });
  QPushButton* copyPage =
      NewButton("cmdCopyPage", "&Copy Page", "Copies this page as text", *this, [this] { CopyPage(); });
  QPushButton* copyAll =
      NewButton("cmdCopyAll", "Cop&y All", "Copies all pages as text", *this, [this] { CopyAll(); });
  QPushButton* printPage = NewButton("Command3", "&Print Page", "Prints this page", *this,
                                     [this] { Print("Current page printed", page_, page_); });
  QPushButton* printAll = NewButton("Command6", "Print &All", "Prints all pages", *this,
                                    [this] { Print("All pages printed", 0, session_.State.OutPageLast); });
  QPushButton* savePdf =
      NewButton("cmdSavePdf", kSavePdfCaption, "Writes all pages to a file as they would be printed", *this,
                [this] { SavePdf(); });
  QPushButton* view = NewButton("Command9", kViewPlanCaption, kViewPlanTip, *this, [this] { ViewPlan(); });
  QPushButton* helpFactors =
      NewButton("Command10", "Help on Stability Factors", "How to read stability factors", *this,
                [this] { session_.Main.ShowHelp({std::string(kStabilityFactorsTopic)}); });
  QPushButton* help = NewHelpButton("Command8", session_, this, kHelpTip);
  QPushButton* ok = NewButton("Command1", "OK", kCloseTip, *this, [this] { close(); });
  next_->setDefault(true);

  QVBoxLayout* all = NewColumn(this);
  all->addLayout(NewHead());
  all->addWidget(text_, 1);
  auto* paging = new QHBoxLayout;
  paging->addWidget(previous_);
  paging->addWidget(next_);
  paging->addStretch();
  for (QPushButton* tool : {copyPage, copyAll, printPage, printAll, savePdf, view}) {
    paging->addWidget(tool);
  }
  all->addLayout(paging);
  QBoxLayout* row = NewButtonRow(help, {ok});
  row->insertWidget(1, helpFactors);
  all->addLayout(row);
}

void frmResTxtPlt::Loadbuffer() {
  text_->setPlainText(FromUtf8(session_.State.OutBuf[page_]));
  const auto& run = session_.State.LastRun;
  const QString name = FromUtf8(PageName(run ? run->Model : kTraditionalModel, page_));
  pageLabel_->setText(QStringLiteral("%1 of %2: %3").arg(page_).arg(session_.State.OutPageLast).arg(name));
  emptyLabel_->setText(run ? FromUtf8(EmptyPageReason(run->Model, run->SideGobs, page_)) : QString());
  text_->setAccessibleName(QStringLiteral("Output page ") + pageLabel_->text());
  text_->setAccessibleDescription(emptyLabel_->text());
}

// A button with the focus would hand it to the next one when it is disabled, and the keys with it.
void frmResTxtPlt::EnablePaging(QPushButton& button, bool enabled) {
  if (!enabled && button.hasFocus()) {
    text_->setFocus();
  }
  button.setEnabled(enabled);
}

void frmResTxtPlt::NextPage() {
  if (page_ < session_.State.OutPageLast) {
    ++page_;
    Loadbuffer();
  }
  EnablePaging(*previous_, true);
  EnablePaging(*next_, page_ < session_.State.OutPageLast);
}

void frmResTxtPlt::PreviousPage() {
  if (page_ >= 1) {
    --page_;
    Loadbuffer();
  }
  EnablePaging(*next_, true);
  EnablePaging(*previous_, page_ != 0);
}

void frmResTxtPlt::CopyPage() {
  session_.Ports.Clipboard.SetText(session_.State.OutBuf[page_]);
  HistoryLog(session_.State, "Output page # " + std::to_string(page_) + "copied to clipboard");
}

void frmResTxtPlt::CopyAll() {
  CopyPages(session_.State, session_.Ports.Clipboard,
            JoinPages(session_.State, 0, session_.State.OutPageLast));
}

void frmResTxtPlt::Print(const char* logged, int first, int last) {
  HistoryLog(session_.State, logged);
  Attempt(session_.State, session_.Ports.Messages,
          [&] { PrintPages(session_.State, session_.Ports, first, last); });
  Loadbuffer();
}

void frmResTxtPlt::SavePdf() {
  Attempt(session_.State, session_.Ports.Messages, [this] {
    SaveTextAsPdf(session_.State, session_.Ports, JoinPages(session_.State, 0, session_.State.OutPageLast));
  });
}

void frmResTxtPlt::ViewPlan() {
  Attempt(session_.State, session_.Ports.Messages, [this] {
    if (frmPicture* plan = frmPicture::Open(session_, *this, kPlanFromResults)) {
      setEnabled(false);
      connect(plan, &frmPicture::Closed, this, &frmResTxtPlt::Loadbuffer);
    }
  });
}

void frmResTxtPlt::showPopWarnings() {
  const std::string& warnings = session_.State.WarningText;
  if (warnings.empty()) {
    return;
  }
  if (CharacterCount(warnings) <= kLongestBoxText) {
    ShowMessage(session_.State, session_.Ports.Messages,
                {.text = warnings, .title = std::string(kWarningsTitle)});
    return;
  }
  frmPopUp popUp(warnings, this);
  popUp.exec();
}

void frmResTxtPlt::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!warned_) {
    warned_ = true;  // once, when the pages stand behind the warnings
    QTimer::singleShot(0, this, &frmResTxtPlt::showPopWarnings);
  }
}

void frmResTxtPlt::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && next_->isEnabled()) {
    next_->setFocus();
  }
  QDialog::changeEvent(event);
}

void frmResTxtPlt::keyPressEvent(QKeyEvent* event) {
  const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
  if (control && event->key() == Qt::Key_PageDown) {
    NextPage();
  } else if (control && event->key() == Qt::Key_PageUp) {
    PreviousPage();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void frmResTxtPlt::reject() {
  close();
}

void frmResTxtPlt::closeEvent(QCloseEvent* event) {
  if (!isEnabled()) {  // the plan stands in front of it
    event->ignore();
    return;
  }
  if (returnTo_) {
    returnTo_->setEnabled(true);
    returnTo_->show();
    returnTo_->activateWindow();
  }
  session_.Main.Refresh();
  event->accept();
}

}  // namespace korva::desktop
