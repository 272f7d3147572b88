#include "desktop/services/Capture.h"

#include <QBuffer>
#include <QPixmap>
#include <QWidget>

namespace korva::desktop {

void CopyPicture(Session& session, const QPixmap& picture) {
  QBuffer png;
  picture.save(&png, "PNG");
  session.Ports.Clipboard.SetPicture(png.data().toStdString());
}

void CopyDialogToClipboard(Session& session, QWidget& form) {
  CopyPicture(session, form.grab());
  ShowMessage(session.State, session.Ports.Messages,
              {.text = "Screenshot of dialog copied to clipboard",
               .title = session.State.Titles.TitleMessage,
               .topic = "messages-forms"});
}

}  // namespace korva::desktop
