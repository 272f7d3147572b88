#include "desktop/services/HelpTools.h"

#include <QVBoxLayout>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

QLineEdit* NewHelpText(const char* name, const QString& meaning, QWidget* parent) {
  auto* text = new QLineEdit(parent);
  text->setObjectName(QLatin1String(name));
  text->setAccessibleName(meaning);
  text->setPlaceholderText(meaning);
  text->setClearButtonEnabled(true);
  return text;
}

QVBoxLayout* NewHelpTabLayout(QWidget& page) {
  auto* layout = new QVBoxLayout(&page);
  const int unit = SpacingUnit(page);
  layout->setContentsMargins(unit, unit, unit, unit);
  layout->setSpacing(unit);
  return layout;
}

}  // namespace korva::desktop
