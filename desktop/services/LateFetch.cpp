#include "desktop/services/LateFetch.h"

#include <QTimer>
#include <QUrl>
#include <utility>

#include "core/RuntimeError.h"
#include "files/OwnLibrary.h"
#include "services/UpdateRules.h"

namespace korva::desktop {

namespace {

// Begins when the program waits for events: at a start its window is on the screen by then.
class LateRunning final : public QObject, public FetchPort::Running {
 public:
  LateRunning(FetchQuestion question, std::function<void(std::uint64_t)> progress,
              std::function<void(FetchAnswer)> done)
      : question_(std::move(question)), progress_(std::move(progress)), done_(std::move(done)) {
    QTimer::singleShot(0, this, [this] { Begin(); });
  }

 private:
  void Begin() {
    FetchAnswer failure;
    if (!CanExist(QUrl(QString::fromStdString(question_.Address)).host().toStdString())) {
      failure.Reason = "this program was built without an update server";
    } else {
      try {
        FetchPort* fetches =
            reinterpret_cast<decltype(&KorvaFetch)>(OwnLibraryFunction("korvafetch", "KorvaFetch"))();
        running_ = fetches->Fetch(question_, std::move(progress_), std::move(done_));
        return;
      } catch (const RuntimeError& error) {
        failure.Reason = error.what();
      }
    }
    std::exchange(done_, nullptr)(std::move(failure));  // which may end this object
  }

  FetchQuestion question_;
  std::function<void(std::uint64_t)> progress_;
  std::function<void(FetchAnswer)> done_;
  std::unique_ptr<FetchPort::Running> running_;
};

}  // namespace

std::unique_ptr<FetchPort::Running> LateFetch::Fetch(const FetchQuestion& question,
                                                     std::function<void(std::uint64_t)> progress,
                                                     std::function<void(FetchAnswer)> done) {
  return std::make_unique<LateRunning>(question, std::move(progress), std::move(done));
}

}  // namespace korva::desktop
