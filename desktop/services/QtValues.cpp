#include "desktop/services/FontChoice.h"

#include <QFontDialog>
#include <algorithm>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr float kLeastSize = 7;  // points, as the settings file takes them
constexpr float kGreatestSize = 24;

}  // namespace

QFont FontOf(const FontSettings& settings) {
  QFont font(FromUtf8(settings.Name));
  font.setPointSizeF(static_cast<double>(settings.Size));
  font.setBold(settings.Bold != 0);
  font.setItalic(settings.Italic != 0);
  return font;
}

bool ChooseScreenFont(FontSettings& settings, QWidget& parent) {
  QFontDialog dialog(FontOf(settings), &parent);
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  DropButtonIcons(dialog);
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  const QFont font = dialog.selectedFont();
  settings.Name = font.family().toStdString();
  settings.Size = std::clamp(static_cast<float>(font.pointSizeF()), kLeastSize, kGreatestSize);
  settings.Bold = font.bold() ? -1 : 0;
  settings.Italic = font.italic() ? -1 : 0;
  return true;
}

}  // namespace korva::desktop
