#include "desktop/services/QtFetch.h"

#include <QNetworkProxy>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "services/HttpAnswer.h"
#include "services/UpdateRules.h"

namespace korva::desktop {

namespace {

constexpr int kMostRedirects = 5;
constexpr quint16 kHttpPort = 80;
constexpr quint16 kHttpsPort = 443;
constexpr qint64 kReadBuffer = 1 << 20;
constexpr std::chrono::milliseconds kLongestSilence{30'000};

std::string SchemeOf(const QUrl& url) {
  return url.scheme().toStdString();
}

bool IsTrusted(const QUrl& url) {
  return url.isValid() && url.userInfo().isEmpty() &&
         IsTrustedConnection(SchemeOf(url), url.host().toStdString());
}

class QtRunning final : public QObject, public FetchPort::Running {
 public:
  QtRunning(const std::optional<QSslConfiguration>& security, const FetchQuestion& question,
            std::function<void(std::uint64_t)> progress, std::function<void(FetchAnswer)> done)
      : security_(security),
        most_(question.MostBytes),
        progress_(std::move(progress)),
        done_(std::move(done)) {
    for (QTimer* timer : {&limit_, &silence_}) {
      timer->setSingleShot(true);
    }
    // Queued, since the timers are gone once this has ended.
    const auto ends = [this](QTimer& timer, const char* fault) {
      connect(
          &timer, &QTimer::timeout, this, [this, fault] { End(QLatin1String(fault)); }, Qt::QueuedConnection);
    };
    ends(limit_, "it took too long");
    ends(silence_, "the server stopped responding");
    limit_.start(question.Limit);
    const QUrl address(QString::fromStdString(question.Address), QUrl::StrictMode);
    if (!IsTrusted(address)) {
      EndLater(QStringLiteral("the address is not secure"));
    } else {
      QTimer::singleShot(0, this, [this, address] { Ask(address); });  // which may fail at once
    }
  }
  QtRunning(const QtRunning&) = delete;
  QtRunning& operator=(const QtRunning&) = delete;
  ~QtRunning() override { Disconnect(); }

 private:
  void Ask(const QUrl& address) {
    address_ = address;
    answer_ = HttpAnswer(most_);
    silence_.start(kLongestSilence);
    socket_ = new QSslSocket(this);
    socket_->setProxy(QNetworkProxy::NoProxy);
    if (security_) {
      socket_->setSslConfiguration(*security_);
    }
    socket_->setReadBufferSize(kReadBuffer);
    connect(socket_, &QIODevice::readyRead, this, [this] {
      TakeBytes();
      Judge();
    });
    connect(socket_, &QAbstractSocket::disconnected, this, [this] {
      TakeBytes();
      answer_.Close();
      Judge();
    });
    connect(socket_, &QAbstractSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
      if (error != QAbstractSocket::RemoteHostClosedError) {  // which is an end like others
        End(socket_->errorString());
      }
    });
    if (SchemeOf(address) == "https") {
      connect(socket_, &QSslSocket::encrypted, this, [this] { SendRequest(); });
      socket_->connectToHostEncrypted(address.host(), static_cast<quint16>(address.port(kHttpsPort)));
    } else {
      connect(socket_, &QAbstractSocket::connected, this, [this] { SendRequest(); });
      socket_->connectToHost(address.host(), static_cast<quint16>(address.port(kHttpPort)));
    }
  }

  void SendRequest() {
    const QString path = address_.path(QUrl::FullyEncoded);
    const QString query = address_.hasQuery() ? '?' + address_.query(QUrl::FullyEncoded) : QString();
    const std::string request =
        HttpRequest(address_.authority(QUrl::FullyEncoded).toStdString(),
                    ((path.isEmpty() ? QStringLiteral("/") : path) + query).toStdString());
    socket_->write(request.data(), static_cast<qint64>(request.size()));
  }

  void TakeBytes() {
    const QByteArray bytes = socket_->readAll();
    if (bytes.isEmpty()) {
      return;
    }
    silence_.start(kLongestSilence);
    answer_.Take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!answer_.File().empty()) {
      progress_(answer_.File().size());
    }
  }

  void Judge() {
    if (!answer_.HasEnded()) {
      return;
    }
    const QUrl location(QString::fromStdString(answer_.Location()), QUrl::StrictMode);
    if (!answer_.Fault().empty() || answer_.Location().empty()) {
      End(QString::fromStdString(answer_.Fault()));
    } else {
      Redirect(location.isValid() ? address_.resolved(location) : location);
    }
  }

  void Redirect(const QUrl& target) {
    if (!IsTrusted(target) ||
        !MayRedirect(SchemeOf(address_), SchemeOf(target), target.host().toStdString())) {
      End(QStringLiteral("the server redirects to an address that is not secure"));
    } else if (++redirects_ > kMostRedirects) {
      End(QStringLiteral("too many redirects"));
    } else {
      Disconnect();
      Ask(target);
    }
  }

  // The connection may be in the middle of telling: it goes later.
  void Disconnect() {
    if (socket_ != nullptr) {
      socket_->disconnect(this);
      socket_->abort();
      socket_->setParent(nullptr);
      std::exchange(socket_, nullptr)->deleteLater();
    }
  }

  // The answer comes after the call that has begun the fetch.
  void EndLater(const QString& fault) {
    QTimer::singleShot(0, this, [this, fault] { End(fault); });
  }

  // The last call: who waits for the end may end this object. A limit that was just reached comes too late.
  void End(const QString& fault) {
    if (done_ == nullptr) {
      return;
    }
    limit_.stop();
    silence_.stop();
    Disconnect();
    FetchAnswer answer;
    answer.Complete = fault.isEmpty();
    answer.Reason = fault.toStdString();
    if (answer.Complete) {
      answer.Bytes = answer_.TakeFile();
    }
    std::exchange(done_, nullptr)(std::move(answer));
  }

  std::optional<QSslConfiguration> security_;
  std::uint64_t most_;
  std::function<void(std::uint64_t)> progress_;
  std::function<void(FetchAnswer)> done_;
  QTimer limit_;    // of all together
  QTimer silence_;  // since the last bytes
  QUrl address_;    // that is being asked
  int redirects_ = 0;
  QSslSocket* socket_ = nullptr;
  HttpAnswer answer_{0};
};

}  // namespace

std::unique_ptr<FetchPort::Running> QtFetch::Fetch(const FetchQuestion& question,
                                                   std::function<void(std::uint64_t)> progress,
                                                   std::function<void(FetchAnswer)> done) {
  return std::make_unique<QtRunning>(security_, question, std::move(progress), std::move(done));
}

}  // namespace korva::desktop
