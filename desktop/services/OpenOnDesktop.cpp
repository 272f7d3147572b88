#include "desktop/services/OpenOnDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace korva::desktop {

namespace {

// Where a desktop is running, the opener hands the document over and ends. Where there is none it becomes the
// viewer itself and stays: it is not ended with this program.
bool HasOpened(const QString& opener, const QString& argument, std::chrono::milliseconds patience) {
  auto* process = new QProcess;
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  QEventLoop wait;
  QObject::connect(process, &QProcess::finished, &wait, &QEventLoop::quit);
  QTimer::singleShot(patience, &wait, &QEventLoop::quit);
  process->start(opener, {argument});
  if (process->waitForStarted() && process->state() != QProcess::NotRunning) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    wait.exec(QEventLoop::ExcludeUserInputEvents);
    QApplication::restoreOverrideCursor();
  }
  if (process->state() != QProcess::NotRunning) {
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    return true;
  }
  process->deleteLater();
  return process->error() == QProcess::UnknownError && process->exitStatus() == QProcess::NormalExit &&
         process->exitCode() == 0;
}

}  // namespace

// The toolkit starts the same opener where there is one, and does not look how it ends.
bool OpenOnDesktop(const QUrl& what, std::chrono::milliseconds patience) {
  const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (opener.isEmpty()) {
    return QDesktopServices::openUrl(what);
  }
  return HasOpened(opener, what.isLocalFile() ? what.toLocalFile() : what.toString(QUrl::FullyEncoded),
                   patience);
}

}  // namespace korva::desktop
