#include "desktop/services/frmResource.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "commands/HelpCommands.h"
#include "desktop/support/FormTools.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

frmResource::frmResource(Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmResource"));
  setWindowTitle(QStringLiteral("Resource Files"));
  auto* list = new QGridLayout;
  list->setVerticalSpacing(SpacingUnit(*this) / 2);
  list->setHorizontalSpacing(2 * SpacingUnit(*this));
  for (int i = 0; i < kResources; ++i) {
    const auto at = static_cast<std::size_t>(i);
    QPushButton* button =
        NewButton(qPrintable(IndexedName("Command1", i)), FromUtf8(ResourceTitles[at]), this);
    button->setToolTip(FromUtf8(ResourceFiles[at]));
    connect(button, &QPushButton::clicked, this, [&session, i] {
      Attempt(session.State, session.Ports.Messages, [&] { OpenResource(session.State, session.Ports, i); });
    });
    list->addWidget(button, i, 0);
    QLabel* state = NewLabel(IndexedName("lblState", i), {}, this);
    if (!HasResource(session.State.Places, i)) {
      state->setText(QStringLiteral("not installed"));
      button->setAccessibleDescription(state->text());
    }
    list->addWidget(state, i, 1);
  }
  list->setColumnStretch(2, 1);
  QPushButton* close = NewButton("Command2", "Close", "", *this, [this] { accept(); });
  close->setDefault(true);
  QVBoxLayout* all = NewColumn(this);
  all->addLayout(list);
  all->addLayout(NewButtonRow(nullptr, {close}));
  CenterForm(*this);
}

}  // namespace korva::desktop
