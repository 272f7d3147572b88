#include "desktop/services/frmUpdate.h"

#include <QDate>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

#include "core/Version.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/LinkLabel.h"
#include "desktop/support/Theme.h"
#include "services/UpdateRules.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 64;
constexpr int kWholeBar = 100;

std::chrono::sys_days Today() {
  static const QDate kEpoch(1970, 1, 1);
  return std::chrono::sys_days(std::chrono::days(kEpoch.daysTo(QDate::currentDate())));
}

// Room for so many lines, so that nothing moves when the text comes.
QLabel* NewNotice(const char* name, int lines, QWidget* parent) {
  QLabel* label = NewLabel(QLatin1String(name), {}, parent);
  label->setWordWrap(true);
  label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

frmUpdate::frmUpdate(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      lblLastVer_(NewNotice("lblLastVer", 1, this)),
      lblbytes_(NewNotice("lblbytes", 2, this)),
      ProgressBar1_(new QProgressBar(this)),
      cmdCheck_(NewButton("cmdCheck", "Check for Updates", "Asks the program's server for its latest version",
                          *this, [this] { cmdCheck_Click(); })),
      cmdDownUpdate_(NewButton("cmdDownUpdate", "Download Update",
                               "Fetches the setup program of that version and checks its signature", *this,
                               [this] { cmdDownUpdate_Click(); })),
      cmdInstall_(NewButton("cmdInstall", "Install Update", "Starts the setup program and ends this one",
                            *this, [this] { cmdInstall_Click(); })),
      Command1_(NewButton("Command1", "Close", "", *this, [this] { accept(); })),
      chkShow_(NewCheckBox("chkShow", QStringLiteral("Disable check for program updates"), this)),
      updates_(
          session.State, session.Ports, [this] { ShowView(); }, [this] { session_.Main.QuitNow(); }) {
  setObjectName(QStringLiteral("frmUpdate"));
  setWindowTitle(QStringLiteral("Program Updates for ") + FromUtf8(ExeName));
  ProgressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
  ProgressBar1_->setAccessibleName(QStringLiteral("Download"));
  ProgressBar1_->setTextVisible(false);
  ProgressBar1_->setFocusPolicy(Qt::ClickFocus);
  KeepPlace(*ProgressBar1_);
  chkShow_->setToolTip(QStringLiteral("Kept in the settings; the check at the start goes on"));
  LayOut();
  ShowView();
  CenterForm(*this);
}

void frmUpdate::LayOut() {
  QLabel* lblInfo = NewLabel(QStringLiteral("lblInfo"), FromUtf8(CurrentVersionText()), this);
  QLabel* lblUpdate = NewLabel(QStringLiteral("lblUpdate"), FromUtf8(ReleasedText(Today())), this);
  lblUpdate->setWordWrap(true);
  lblUpdate->setMinimumWidth(fontMetrics().averageCharWidth() * kColumns);
  auto* lblURL = new LinkLabel("lblURL", FromUtf8(session_.State.Updates.ProductPageUrl), this);
  lblURL->setToolTip(QStringLiteral("Opens the program's web page"));
  connect(lblURL, &LinkLabel::Clicked, this, [this] { updates_.OpenProductPage(); });
  auto* steps = new QHBoxLayout;
  for (QPushButton* step : {cmdCheck_, cmdDownUpdate_, cmdInstall_}) {
    steps->addWidget(step, 1);
  }
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(lblInfo);
  all->addWidget(lblUpdate);
  all->addWidget(lblURL, 0, Qt::AlignLeft);
  all->addSpacing(SpacingUnit(*this));
  all->addLayout(steps);
  all->addWidget(lblLastVer_);
  all->addWidget(ProgressBar1_);
  all->addWidget(lblbytes_);
  all->addStretch();
  all->addWidget(chkShow_);
  all->addLayout(NewButtonRow(nullptr, {Command1_}));
  const std::initializer_list<QWidget*> order = {lblURL,      cmdCheck_, cmdDownUpdate_,
                                                 cmdInstall_, chkShow_,  Command1_};
  for (auto next = order.begin() + 1; next != order.end(); ++next) {
    setTabOrder(*(next - 1), *next);
  }
  cmdCheck_->setDefault(true);
  cmdCheck_->setFocus();
}

void frmUpdate::ShowView() {
  const UpdateView& view = updates_.View();
  QPalette colours = palette();
  if (view.LastVersionIsRed) {
    colours.setColor(QPalette::WindowText, RefusedColour(palette()));
  }
  lblLastVer_->setPalette(colours);
  lblLastVer_->setText(FromUtf8(view.LastVersion));
  lblbytes_->setText(FromUtf8(view.Bytes));
  ProgressBar1_->setRange(0,
                          view.Progress == 0 ? 0 : kWholeBar);  // it moves by itself before anything has come
  ProgressBar1_->setValue(view.Progress);
  if (view.Busy) {
    ProgressBar1_->show();
  }
  // While buttons are off, the focus waits here and not on the next button that is on, which closes the
  // window.
  // The window may not be shown yet, or not be the active one.
  const QWidget* focus = focusWidget();
  const bool waits = focus == ProgressBar1_;
  if (view.Busy && (focus == cmdCheck_ || focus == cmdDownUpdate_ || focus == cmdInstall_)) {
    ProgressBar1_->setFocus();
  }
  cmdCheck_->setEnabled(!view.Busy);
  cmdDownUpdate_->setEnabled(view.MayDownload && !view.Busy);
  cmdInstall_->setEnabled(view.MayInstall && !view.Busy);
  if (waits && !view.Busy) {
    (view.MayInstall ? cmdInstall_ : view.MayDownload ? cmdDownUpdate_ : cmdCheck_)->setFocus();
  }
  ProgressBar1_->setVisible(view.Busy);  // an empty bar would look like a box for text
}

void frmUpdate::done(int result) {
  updates_.Close(chkShow_->isChecked());
  QDialog::done(result);
}

}  // namespace korva::desktop
