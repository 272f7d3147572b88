#include "desktop/services/QtFetch.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "core/Version.h"
#include "desktop/support/FormTools.h"
#include "services/UpdateRules.h"

namespace korva::desktop {

namespace {

constexpr int kMostRedirects = 5;
constexpr int kHttpOk = 200;
constexpr int kHttpRedirects = 3;  // hundreds
constexpr qint64 kReadBuffer = 1 << 20;
constexpr std::chrono::milliseconds kLongestSilence{30'000};

bool IsTrusted(const QUrl& url) {
  return url.isValid() && url.userInfo().isEmpty() &&
         IsTrustedRoad(url.scheme().toStdString(), url.host().toStdString());
}

class QtRunning final : public QObject, public FetchPort::Running {
 public:
  QtRunning(QNetworkAccessManager& manager, const QNetworkRequest& request, const FetchQuestion& question,
            std::function<void(std::uint64_t)> progress, std::function<void(FetchAnswer)> done)
      : most_(question.MostBytes),
        progress_(std::move(progress)),
        done_(std::move(done)),
        scheme_(request.url().scheme().toStdString()) {
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this, [this] { Stop(QStringLiteral("it took too long")); });
    limit_.start(question.Limit);
    if (!IsTrusted(request.url())) {
      reason_ = QStringLiteral("the address is not a safe one");
      QTimer::singleShot(0, this, [this] { End(); });
      return;
    }
    reply_ = manager.get(request);
    reply_->setReadBufferSize(kReadBuffer);
    connect(reply_, &QNetworkReply::redirected, this, [this](const QUrl& target) { Redirect(target); });
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { LookAtHead(); });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { TakeBytes(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { Finish(); });
  }
  QtRunning(const QtRunning&) = delete;
  QtRunning& operator=(const QtRunning&) = delete;
  ~QtRunning() override {
    if (reply_ != nullptr) {
      reply_->disconnect(this);
      reply_->abort();
      reply_->deleteLater();
    }
  }

 private:
  // The reply names the new address already: where it came from is kept here.
  void Redirect(const QUrl& target) {
    const std::string scheme = target.scheme().toStdString();
    if (IsTrusted(target) && MayRedirect(scheme_, scheme, target.host().toStdString())) {
      scheme_ = scheme;
      emit reply_->redirectAllowed();
    } else {
      Stop(QStringLiteral("the server sends on to an address that is not a safe one"));
    }
  }

  // The page of an error is not waited for.
  void LookAtHead() {
    const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (Status() != kHttpOk && Status() / 100 != kHttpRedirects) {
      Stop(StatusFault());
    } else if (Status() == kHttpOk && length.isValid() && length.toULongLong() > most_) {
      Stop(QStringLiteral("the file is too large"));
    }
  }

  void TakeBytes() {
    if (!reason_.isEmpty() || Status() != kHttpOk) {
      return;
    }
    // One byte too many is enough to know.
    const auto room = static_cast<qint64>(most_ + 1 - bytes_.size());
    bytes_ += reply_->read(room).toStdString();
    if (bytes_.size() > most_) {
      Stop(QStringLiteral("the file is too large"));
    } else {
      progress_(bytes_.size());
    }
  }

  // The first reason is the one that is told.
  void Stop(const QString& reason) {
    if (reason_.isEmpty()) {
      reason_ = reason;
    }
    // Not at once: the reply may be in the middle of telling.
    if (reply_ != nullptr) {
      QMetaObject::invokeMethod(reply_, &QNetworkReply::abort, Qt::QueuedConnection);
    }
  }

  void Finish() {
    TakeBytes();
    if (reason_.isEmpty()) {
      reason_ = FaultOfReply();
    }
    End();
  }

  QString FaultOfReply() const {
    const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
    const QByteArray encoding = reply_->rawHeader("Content-Encoding");
    if (reply_->error() != QNetworkReply::NoError) {
      return reply_->error() == QNetworkReply::OperationCanceledError
                 ? QStringLiteral("the server has fallen silent")
                 : reply_->errorString();
    }
    if (Status() != kHttpOk) {
      return StatusFault();
    }
    if (!encoding.isEmpty() && encoding.toLower() != "identity") {
      return QStringLiteral("the server sent the file in another form than asked for");
    }
    if (length.isValid() && length.toULongLong() != bytes_.size()) {
      return QStringLiteral("the file has another length than the server said");
    }
    return {};
  }

  QString StatusFault() const { return QStringLiteral("the server answered with status %1").arg(Status()); }
  int Status() const { return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }

  // The last call: who waits for the end may end this object.
  void End() {
    limit_.stop();
    FetchAnswer answer;
    answer.Complete = reason_.isEmpty();
    answer.Reason = reason_.toStdString();
    if (answer.Complete) {
      answer.Bytes = std::move(bytes_);
    }
    std::exchange(done_, nullptr)(std::move(answer));
  }

  QNetworkReply* reply_ = nullptr;
  QTimer limit_;
  std::uint64_t most_;
  std::function<void(std::uint64_t)> progress_;
  std::function<void(FetchAnswer)> done_;
  std::string scheme_;  // of the address that is being asked
  std::string bytes_;
  QString reason_;
};

}  // namespace

QtFetch::QtFetch(QSslConfiguration security) {
  security_.swap(security);
  manager_.setProxy(QNetworkProxy::NoProxy);
  manager_.setRedirectPolicy(QNetworkRequest::UserVerifiedRedirectPolicy);
}

std::unique_ptr<FetchPort::Running> QtFetch::Fetch(const FetchQuestion& question,
                                                   std::function<void(std::uint64_t)> progress,
                                                   std::function<void(FetchAnswer)> done) {
  QNetworkRequest request(QUrl(FromUtf8(question.Address), QUrl::StrictMode));
  request.setSslConfiguration(security_);
  request.setHeader(QNetworkRequest::UserAgentHeader, FromUtf8(ExeName));
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setMaximumRedirectsAllowed(kMostRedirects);
  request.setTransferTimeout(
      static_cast<int>(std::min<std::chrono::milliseconds>(kLongestSilence, question.Limit).count()));
  return std::make_unique<QtRunning>(manager_, request, question, std::move(progress), std::move(done));
}

}  // namespace korva::desktop
