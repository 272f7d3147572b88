#include "desktop/core/StartPage.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "commands/Examples.h"
#include "core/FileNames.h"
#include "desktop/core/TitlePicture.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/PathLabel.h"

namespace korva::desktop {

StartPage::StartPage(const Folders& places, Commands commands, QWidget* parent)
    : QWidget(parent), places_(places), commands_(std::move(commands)), examples_(new QMenu(this)) {
  auto* picture = new TitlePicture(this);
  picture->setObjectName(QStringLiteral("Picture1"));
  QPushButton* begin =
      NewButton("cmdStartNew", "&New", "Begins a project (Ctrl+N)", *this, [this] { commands_.New(); });
  QPushButton* open = NewButton("cmdStartOpen", "O&pen...", "Opens a project file (Ctrl+O)", *this,
                                [this] { commands_.Open(); });
  QPushButton* examples = NewButton("cmdStartExamples", QStringLiteral("&Examples"), this);
  examples->setToolTip(QStringLiteral("Opens one of the example projects"));
  examples_->setObjectName(QStringLiteral("mnuStartExamples"));
  connect(examples_, &QMenu::aboutToShow, this, &StartPage::FillExamples);
  examples->setMenu(examples_);
  examples->setVisible(!places.Examples.empty());

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  int width = 0;
  for (QPushButton* button : {begin, open, examples}) {
    button->setAutoDefault(true);  // Enter presses the one with the focus
    width = std::max(width, button->sizeHint().width());
    buttons->addWidget(button);
  }
  for (QPushButton* button : {begin, open, examples}) {
    button->setMinimumWidth(width + 2 * SpacingUnit(*this));
  }
  buttons->addStretch();
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(picture, 1);
  all->addLayout(buttons);
}

// When it is opened, so that the start takes no longer for it.
void StartPage::FillExamples() {
  examples_->clear();
  for (const ExampleProject& example : ExampleProjects(places_)) {
    const QString caption =
        QStringLiteral("%1 (%2)").arg(FromUtf8(example.Title), FromUtf8(FileBaseName(example.File, false)));
    QAction* item = examples_->addAction(QString());
    CaptionItem(*examples_, *item, caption);
    item->setObjectName(IndexedName("mnuStartExamplesItem", static_cast<int>(examples_->actions().size())));
    connect(item, &QAction::triggered, this, [this, file = example.File] { commands_.OpenExample(file); });
  }
  if (examples_->isEmpty()) {
    examples_->addAction(QStringLiteral("There are no examples"))->setEnabled(false);
  }
}

}  // namespace korva::desktop
