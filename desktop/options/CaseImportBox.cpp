#include "desktop/options/CaseImportBox.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "commands/CaseImport.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTools.h"
#include "workbook/CaseRow.h"

namespace korva::desktop {

namespace {

constexpr int kRowDigits = 4;

}  // namespace

CaseImportBox::CaseImportBox(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
  Build();
  SetRunning(false);
}

void CaseImportBox::Build() {
  cmdImport_ =
      NewButton("cmdImport", "Import Excel", "Makes projects of the cases in a workbook, .xls or .xlsx",
                *this, [this] { Import(); });
  QLabel* caption = NewLabel(QStringLiteral("Label3"), QStringLiteral("Row:"), this);
  text3_ = new FieldBox(QStringLiteral("Text3"), 0, this);
  text3_->Explain(
      QStringLiteral("Row"),
      QStringLiteral("Enter 999 for all, or number of excel row. 0 takes the first case, row 3; other "
                     "numbers take nothing here (the command \"korva import cases\" takes any row)."));
  text3_->HoldNumber();
  SetColumns(*text3_, kRowDigits);
  text3_->Fill("0");
  caption->setBuddy(text3_);
  label4_ = NewLabel(QStringLiteral("Label4"), {}, this);
  label4_->setAccessibleName(QStringLiteral("State of the import"));
  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("prgImport"));
  progress_->setTextVisible(false);
  cancel_ = NewButton("cmdCancelImport", "Stop", "Ends the import after the current row", *this,
                      [this] { Cancel(); });
  reason_ = NewLabel(QStringLiteral("lblImport"), {}, this);
  reason_->setWordWrap(true);
  reason_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  reason_->setMinimumHeight(3 * fontMetrics().lineSpacing());
  reason_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  KeepPlace(*progress_);
  KeepPlace(*cancel_);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  int column = 0;
  for (QWidget* widget :
       std::initializer_list<QWidget*>{cmdImport_, caption, text3_, label4_, progress_, cancel_}) {
    grid->addWidget(widget, 0, column++);
  }
  grid->setColumnMinimumWidth(3, fontMetrics().horizontalAdvance(QStringLiteral("000:completed ")));
  grid->setColumnStretch(4, 1);
  grid->addWidget(reason_, 1, 0, 1, column);
}

void CaseImportBox::Import() {
  cancelled_ = false;
  const CaseImportSteps steps = {[this] { session_.Main.KeepDroppedWork(); },
                                 [this](const CaseImportState& state) { return MayContinue(state); }};
  const CaseImportState end = ImportCases(session_.State, session_.Ports, text3_->Text(), steps);
  SetRunning(false);
  if (!end.Text.empty()) {
    Show(end);
  }
  session_.Main.Refresh();
}

bool CaseImportBox::MayContinue(const CaseImportState& state) {
  SetRunning(true);
  Show(state);
  QCoreApplication::processEvents();
  return !cancelled_;
}

void CaseImportBox::Show(const CaseImportState& state) {
  label4_->setText(FromUtf8(state.Text));
  reason_->setText(FromUtf8(state.Reason));
  progress_->setRange(0, state.LastRow);  // 0: the workbook is being read
  progress_->setValue(state.Row);
}

void CaseImportBox::SetRunning(bool running) {
  progress_->setVisible(running);
  cancel_->setVisible(running);
  cmdImport_->setEnabled(!running);
  text3_->setEnabled(!running);
  if (running != running_) {
    running_ = running;
    emit RunningChanged(running);
  }
}

}  // namespace korva::desktop
