#include "desktop/options/AssociationBox.h"

#include <QFile>
#include <QHBoxLayout>

#include "commands/FileAssociation.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

std::string Resource(const char* name) {
  QFile file((QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace

AssociationBox::AssociationBox(Session& session, QWidget* parent)
    : QGroupBox(QStringLiteral("File association"), parent), session_(session) {
  QPushButton* associate =
      NewButton("cmdFileAssoc", "Create File Association", "Makes project files open with this program",
                *this, [this] { Associate(); });
  remove_ = NewButton("cmdFileAssocUndo", "Remove File Association",
                      "Makes project files open again as they did before", *this, [this] { Dissociate(); });
  auto* row = new QHBoxLayout(this);
  row->addWidget(associate);
  row->addWidget(remove_);
  row->addStretch();
  ShowState();
}

void AssociationBox::Associate() {
  AskFileAssociation(session_.State, session_.Ports,
                     {Resource(":/korva/korva-strond.svg"), Resource(":/korva/korva-strond-project.svg")});
  ShowState();
}

void AssociationBox::Dissociate() {
  AskFileDissociation(session_.State, session_.Ports);
  ShowState();
}

void AssociationBox::ShowState() {
  remove_->setEnabled(HasFileAssociation(session_.State));
}

}  // namespace korva::desktop
