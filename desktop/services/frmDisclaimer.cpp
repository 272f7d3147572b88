#include "desktop/services/frmDisclaimer.h"

#include <QLabel>
#include <QVBoxLayout>

#include "commands/AcceptForms.h"
#include "core/Text.h"
#include "core/Version.h"
#include "desktop/support/FormTools.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 76;

}  // namespace

frmDisclaimer::frmDisclaimer(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      chkShow_(NewCheckBox(
          "chkShow",
          QStringLiteral("I accept this disclaimer for this and any subsequent use of this program. "
                         "Please do not show this disclaimer again."),
          this)) {
  setObjectName(QStringLiteral("frmDisclaimer"));
  setWindowTitle(QStringLiteral("Disclaimer for ") + FromUtf8(ExeName));
  QLabel* text = NewLabel(QStringLiteral("lblDisclaimer"), FromUtf8(DisclaimerText()), this);
  text->setFont(FixedPitchFont());
  text->setWordWrap(true);
  text->setMinimumWidth(QFontMetrics(text->font()).horizontalAdvance(QLatin1Char('0')) * kColumns);
  chkShow_->setToolTip(QStringLiteral("The settings bring the disclaimer back"));
  QPushButton* accept = NewButton("Command1", "Accept and Continue", "", *this, [this] { AcceptTerms(); });
  accept->setDefault(true);
  QPushButton* refuse =
      NewButton("cmdNoAccept", "Do not Accept and Exit", "Ends the program", *this, [this] { reject(); });
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(text, 1);
  all->addWidget(chkShow_);
  all->addLayout(NewButtonRow(nullptr, {accept, refuse}));
  accept->setFocus();
  CenterForm(*this);
}

void frmDisclaimer::AcceptTerms() {
  if (chkShow_->isChecked()) {
    AcceptDisclaimer(session_.State);
  }
  accept();
}

}  // namespace korva::desktop
