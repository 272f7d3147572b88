#include "desktop/services/TextLoader.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTextCursor>

#include "commands/Attempt.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kStepTime = 8;  // milliseconds

}  // namespace

TextLoader::TextLoader(Session& session, QPlainTextEdit& view) : session_(session), view_(view) {
  view_.setUndoRedoEnabled(false);
  timer_.setSingleShot(true);  // no step while a message waits for its answer
  connect(&timer_, &QTimer::timeout, this, &TextLoader::Step);
}

void TextLoader::Load(const std::string& file) {
  Clear();
  file_ = std::make_shared<ShownFile>(file);
  emit Progress(QStringLiteral("Loading... 0%"));
  timer_.start(0);
}

void TextLoader::Clear() {
  timer_.stop();
  file_.reset();
  view_.clear();
  emit Progress({});
}

void TextLoader::Step() {
  const std::shared_ptr<ShownFile> file = file_;
  QElapsedTimer spent;
  spent.start();
  while (!file->Ended() && spent.elapsed() < kStepTime) {
    std::string piece;
    const auto result = Attempt(session_.State, session_.Ports.Messages, [&] { piece = file->Next(); });
    if (file != file_) {  // another was chosen while a message waited for its answer
      return;
    }
    if (result != AttemptResult::kDone) {
      emit Progress(QStringLiteral("The rest could not be read"));
      return;
    }
    QTextCursor end(view_.document());
    end.movePosition(QTextCursor::End);
    end.insertText(FromUtf8(piece));
  }
  if (!file->Ended()) {
    emit Progress(QStringLiteral("Loading... %1%").arg(file->Percent()));
    timer_.start(0);
  } else if (file->IsCut()) {
    emit Progress(QStringLiteral("Only the beginning is shown: at most %1 MB and %L2 lines")
                      .arg(file->Limits().Bytes >> 20)
                      .arg(file->Limits().Lines));
  } else {
    emit Progress({});
  }
}

}  // namespace korva::desktop
