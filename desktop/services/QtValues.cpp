#include "desktop/services/QtValues.h"

#include <QApplication>
#include <QFontDialog>
#include <QInputDialog>
#include <algorithm>

#include "core/Limits.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

QFont FontOf(const FontSettings& settings) {
  QFont font(FromUtf8(settings.Name));
  font.setPointSizeF(static_cast<double>(settings.Size));
  font.setBold(settings.Bold != 0);
  font.setItalic(settings.Italic != 0);
  return font;
}

std::optional<FontSettings> QtValues::ChooseFont(const FontSettings& font) {
  QFontDialog dialog(FontOf(font), QApplication::activeWindow());
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  DropButtonIcons(dialog);
  if (dialog.exec() != QDialog::Accepted) {
    return std::nullopt;
  }
  const QFont chosen = dialog.selectedFont();
  return FontSettings{chosen.family().toStdString(),
                      std::clamp(static_cast<float>(chosen.pointSizeF()), kLeastFont, kGreatestFont),
                      chosen.bold() ? -1 : 0, chosen.italic() ? -1 : 0};
}

std::optional<std::string> QtValues::EnterText(const TextQuestion& question) {
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setObjectName(QStringLiteral("TextDialog"));
  dialog.setWindowTitle(FromUtf8(question.Title));
  dialog.setLabelText(FromUtf8(question.What));
  dialog.setTextValue(FromUtf8(question.Text));
  DropButtonIcons(dialog);
  if (dialog.exec() != QDialog::Accepted) {
    return std::nullopt;
  }
  return dialog.textValue().toStdString();
}

}  // namespace korva::desktop
