// Fills a view with the text of a file, a little at a time, so that the windows stay alive.
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <string>

#include "desktop/support/Session.h"
#include "services/ShownFile.h"

class QPlainTextEdit;

namespace korva::desktop {

class TextLoader final : public QObject {
  Q_OBJECT

 public:
  TextLoader(Session& session, QPlainTextEdit& view);

  // Empties the view and begins with `file`. Run-time errors of opening it; later ones are reported.
  void Load(const std::string& file);
  // Ends at once and empties the view.
  void Clear();

 signals:
  // How far it is, in words; nothing after the end of a file that is shown whole.
  void Progress(const QString& words);

 private:
  void Step();

  Session& session_;
  QPlainTextEdit& view_;
  std::shared_ptr<ShownFile> file_;
  QTimer timer_;
};

}  // namespace korva::desktop
