#include "desktop/graphs/frmStrondCalc.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "commands/SweepCommand.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

frmStrondCalc::frmStrondCalc(QWidget* parent) : QDialog(parent, Qt::Window) {
  setObjectName(QStringLiteral("frmStrondCalc"));
  setWindowTitle(QStringLiteral("KORVA-STROND Calculations"));
  auto* text =
      NewLabel(QStringLiteral("Label1"),
               QStringLiteral("The Strondel solution option for parametric graphs may take several minutes "
                              "to complete.  Click on Cancel at any time to stop calculations. "),
               this);
  text->setWordWrap(true);
  text->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
  auto* log = new QGroupBox(QStringLiteral("Progress Log"), this);
  log->setObjectName(QStringLiteral("Frame1"));
  lblProg_ = NewLabel(QStringLiteral("lblProg"), {}, log);
  lblProg_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  lblProg_->setAccessibleName(QStringLiteral("Progress Log"));
  auto* inner = new QVBoxLayout(log);
  inner->addWidget(lblProg_);
  QPushButton* cancel = NewButton("cmdCancel", "Cancel", "Ends the calculations after the current step",
                                  *this, [this] { emit Cancelled(); });
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(text);
  all->addWidget(log);
  all->addLayout(NewButtonRow(nullptr, {cancel}));
  CenterForm(*this);
}

void frmStrondCalc::ShowStep(int step, int capacity) {
  lblProg_->setText(FromUtf8(SweepStepText(step, capacity)));
}

void frmStrondCalc::reject() {
  emit Cancelled();
}

// It stays until the sweep has ended.
void frmStrondCalc::closeEvent(QCloseEvent* event) {
  if (event->spontaneous()) {
    emit Cancelled();
    event->ignore();
  }
}

}  // namespace korva::desktop
