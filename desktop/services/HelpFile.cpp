#include "desktop/services/HelpFile.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpSearchEngine>
#include <QThread>

#include "services/HelpTopics.h"

namespace korva::desktop {

namespace {

constexpr int kLongestWork = 5000;  // milliseconds

// The name and the folder of the pages inside the file, as it was made with.
constexpr const char* kBase = "qthelp://org.korva-strond.help/help/";

}  // namespace

HelpFile::HelpFile() : folder_(QDir::tempPath() + QStringLiteral("/korva-strond-help-XXXXXX")) {}

// The toolkit's threads, which search and read the contents and the index, must not find their engine gone.
// One that does not end keeps it.
HelpFile::~HelpFile() {
  for (QDeadlineTimer limit(kLongestWork); IsBusy() && !limit.hasExpired();) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    QThread::msleep(1);
  }
  if (IsBusy()) {
    static_cast<void>(engine_.release());
  }
}

bool HelpFile::IsBusy() const {
  return engine_ && (isSearching_ || engine_->contentModel()->isCreatingContents() ||
                     engine_->indexModel()->isCreatingIndex());
}

void HelpFile::Search(const QString& query) {
  isSearching_ = true;
  engine_->searchEngine()->search(query);
}

std::unique_ptr<HelpFile> HelpFile::Open(const QString& name) {
  std::unique_ptr<HelpFile> file(new HelpFile);
  if (!file->folder_.isValid()) {
    return nullptr;
  }
  file->engine_ = std::make_unique<QHelpEngine>(file->folder_.filePath(QStringLiteral("help.qhc")));
  file->engine_->setReadOnly(false);
  file->engine_->setUsesFilterEngine(true);
  if (!file->engine_->setupData() || !file->engine_->registerDocumentation(name) ||
      !file->engine_->setupData()) {
    return nullptr;
  }
  QObject::connect(file->engine_->searchEngine(), &QHelpSearchEngine::searchingFinished, file->engine_.get(),
                   [searching = &file->isSearching_] { *searching = false; });
  file->ReadLabels();
  return file->Bytes(file->StartPage()).isEmpty() ? nullptr : std::move(file);
}

void HelpFile::ReadLabels() {
  const QUrl base{QLatin1String(kBase)};
  for (const QByteArray& line : Bytes(base.resolved(QUrl(QStringLiteral("labels.tsv")))).split('\n')) {
    if (const auto tab = line.indexOf('\t'); tab > 0) {
      topics_[line.first(tab).toStdString()] = base.resolved(QUrl(QString::fromUtf8(line.sliced(tab + 1))));
    }
  }
}

QUrl HelpFile::Topic(const std::vector<std::string>& labels) const {
  for (const std::string& label : labels) {
    if (const auto topic = topics_.find(label); topic != topics_.end()) {
      return topic->second;
    }
  }
  return {};
}

QUrl HelpFile::StartPage() const {
  return Topic({std::string(kStartTopic)}).adjusted(QUrl::RemoveFragment);
}

}  // namespace korva::desktop
