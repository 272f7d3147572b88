#include "desktop/services/Capture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPixmap>
#include <QWidget>

namespace korva::desktop {

void CopyDialogToClipboard(Session& session, QWidget& form) {
  QGuiApplication::clipboard()->setPixmap(form.grab());
  ShowMessage(session.State, session.Outside.Messages,
              {.text = "Screenshot of dialog copied to clipboard",
               .title = session.State.Titles.TitleMessage,
               .topic = "messages-forms"});
}

}  // namespace korva::desktop
