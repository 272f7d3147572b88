// Fetching from servers on this machine that behave, and from many that do not.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "desktop/services/LateFetch.h"
#include "desktop/services/QtFetch.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

using namespace std::chrono_literals;

// Answers each request with the same bytes.
template <class Listener>
class Server {
 public:
  explicit Server(QByteArray answer, bool closes = true) : Answer(std::move(answer)) {
    QObject::connect(&Socket, &QTcpServer::pendingConnectionAvailable, &Socket, [this, closes] {
      QTcpSocket* connection = Socket.nextPendingConnection();
      QObject::connect(connection, &QTcpSocket::readyRead, connection, [this, connection, closes] {
        Request += connection->readAll();
        if (Request.endsWith("\r\n\r\n")) {
          ++Requests;
          connection->write(Answer);
          if (closes) {
            connection->disconnectFromHost();
          }
        }
      });
    });
    EXPECT_TRUE(Socket.listen(QHostAddress::LocalHost));
  }

  std::string Address(const char* scheme = "http") const {
    return QStringLiteral("%1://127.0.0.1:%2/file")
        .arg(QLatin1String(scheme))
        .arg(Socket.serverPort())
        .toStdString();
  }

  Listener Socket;
  QByteArray Answer;
  QByteArray Request;
  int Requests = 0;
};
using PlainServer = Server<QTcpServer>;

QByteArray Page(const QByteArray& body, const QByteArray& head = {}) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + head + "\r\n" +
         body;
}

// The answer to one question; a fetch that never ends fails the test.
FetchAnswer Fetched(FetchPort& port, const std::string& address, std::uint64_t most = 1000,
                    std::chrono::milliseconds limit = 5s) {
  std::optional<FetchAnswer> answer;
  const auto running = port.Fetch(
      {address, most, limit}, [](std::uint64_t) {}, [&](FetchAnswer given) { answer = std::move(given); });
  EXPECT_FALSE(answer) << "the answer comes after the call";
  EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, 10'000)) << address;
  return answer.value_or(FetchAnswer{});
}

std::string ReasonOf(const QByteArray& answer, bool closes = true, std::chrono::milliseconds limit = 5s) {
  PlainServer server(answer, closes);
  QtFetch port;
  const FetchAnswer given = Fetched(port, server.Address(), 1000, limit);
  EXPECT_FALSE(given.Complete) << answer.toStdString();
  EXPECT_TRUE(given.Bytes.empty());
  return given.Reason;
}

TEST(QtFetch, BringsAFileAsItIs) {
  PlainServer server(Page("1106\r\n", "Set-Cookie: a=b\r\n"));
  QtFetch port;
  std::vector<std::uint64_t> told;
  std::optional<FetchAnswer> answer;
  const auto running = port.Fetch(
      {server.Address(), 6, 5s}, [&](std::uint64_t bytes) { told.push_back(bytes); },
      [&](FetchAnswer given) { answer = std::move(given); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
  EXPECT_TRUE(answer->Complete) << answer->Reason;
  EXPECT_EQ(answer->Bytes, "1106\r\n");
  EXPECT_EQ(told.back(), 6U);
  EXPECT_TRUE(server.Request.contains("User-Agent: KORVA-STROND\r\n"));
  EXPECT_TRUE(server.Request.contains("Cache-Control: no-cache"));
  server.Request.clear();
  EXPECT_TRUE(Fetched(port, server.Address()).Complete);
  EXPECT_FALSE(server.Request.contains("Cookie")) << server.Request.toStdString();
}

TEST(LateFetch, LoadsTheSocketsAndAsksNoServerThatCannotExist) {
  LateFetch port;
  EXPECT_EQ(Fetched(port, "https://www.example.invalid/file").Reason,
            "this program was built without an update server");
  PlainServer server(Page("1106"));
  auto ended = port.Fetch(
      {server.Address(), 6, 5s}, [](std::uint64_t) {}, [](const FetchAnswer&) { FAIL(); });
  ended.reset();
  EXPECT_EQ(Fetched(port, server.Address()).Bytes, "1106");
  EXPECT_EQ(server.Requests, 1);
}

// What servers may answer, the reader of answers is asked.
TEST(QtFetch, RefusesWhatIsNotTheWholeFile) {
  EXPECT_EQ(ReasonOf("HTTP/1.1 404 Huge\r\nContent-Length: 99999999\r\n\r\nwaits", false),
            "the server answered with status 404")
      << "the page of an error is not waited for";
  EXPECT_EQ(ReasonOf("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1106"),
            "the file has another length than the server said")
      << "cut off";
  EXPECT_EQ(ReasonOf("HTTP/1.1 200 OK\r\n" + QByteArray("X: y\r\n").repeated(100'000), false),
            "the server's answer is incomplete");
  EXPECT_EQ(ReasonOf("HTTP/1.1 200 OK\r\n\r\n" + QByteArray(5'000'000, '1'), false), "the file is too large")
      << "without an announced length";
  EXPECT_EQ(ReasonOf(""), "the server closed the connection");
}

TEST(QtFetch, DoesNotWaitForEver) {
  PlainServer server("", false);
  QtFetch port;
  bool done = false;
  auto running = port.Fetch(
      {server.Address(), 1000, 100ms}, [](std::uint64_t) {}, [&](const FetchAnswer&) { done = true; });
  running.reset();
  EXPECT_EQ(ReasonOf("", false, 200ms), "it took too long") << "says nothing";
  EXPECT_EQ(ReasonOf("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1106", false, 200ms), "it took too long")
      << "stops in the middle";
  EXPECT_FALSE(done) << "a fetch that was ended has no answer";
}

QByteArray Redirect(const std::string& target) {
  return QByteArray("HTTP/1.1 302 Found\r\nContent-Length: 4\r\nLocation: ") + target.c_str() +
         "\r\n\r\n9999";
}

TEST(QtFetch, FollowsOnlySafeRedirects) {
  QtFetch port;
  for (const char* target :
       {"http://www.example.invalid/", "file:///etc/hostname", "data:,1106", "http://127.0.0.1:99999/",
        "http://127.0.0.1@www.example.invalid/", "http://user@127.0.0.1/", "ht tp://127.0.0.1/"}) {
    EXPECT_EQ(ReasonOf(Redirect(target)), "the server redirects to an address that is not secure") << target;
  }
  for (const char* address : {"http://www.example.invalid/file", "ftp://127.0.0.1/file",
                              "file:///etc/hostname", "", "http://127.0.0.1@www.example.invalid/"}) {
    EXPECT_EQ(Fetched(port, address).Reason, "the address is not secure") << address;
  }
}

TEST(QtFetch, FollowsFiveRedirectsAndAsksOnceForEach) {
  QtFetch port;
  std::vector<std::unique_ptr<PlainServer>> chain;
  chain.push_back(std::make_unique<PlainServer>(Page("1106")));
  for (int hop = 1; hop <= 6; ++hop) {
    chain.push_back(
        std::make_unique<PlainServer>(Redirect(chain.back()->Address() + "?from=" + std::to_string(hop))));
    const FetchAnswer answer = Fetched(port, chain.back()->Address());
    EXPECT_EQ(answer.Bytes, hop <= 5 ? "1106" : "") << hop;
    EXPECT_EQ(answer.Reason, hop <= 5 ? "" : "too many redirects") << hop;
  }
  EXPECT_EQ(chain[0]->Requests, 5);
  EXPECT_EQ(chain[1]->Requests, 6);
  EXPECT_TRUE(chain[0]->Request.startsWith("GET /file?from=1 HTTP/1.1\r\nHost: 127.0.0.1:"));
  PlainServer circle("");
  circle.Answer = Redirect("/file");  // of the same server
  EXPECT_EQ(Fetched(port, circle.Address()).Reason, "too many redirects");
  EXPECT_EQ(circle.Requests, 6);
}

// Servers whose certificate was made for this test.
class QtFetchTls : public testing::Test {
 protected:
  QtFetchTls() {
    QProcess openssl;
    openssl.start(
        QStringLiteral("openssl"),
        {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
         QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-subj"),
         QStringLiteral("/CN=127.0.0.1"), QStringLiteral("-addext"),
         QStringLiteral("subjectAltName=IP:127.0.0.1"), QStringLiteral("-days"), QStringLiteral("2"),
         QStringLiteral("-keyout"), Name("key.pem"), QStringLiteral("-out"), Name("cert.pem")});
    EXPECT_TRUE(openssl.waitForFinished());
    QFile key(Name("key.pem"));
    EXPECT_TRUE(key.open(QIODevice::ReadOnly));
    const auto certificates = QSslCertificate::fromPath(Name("cert.pem"));
    EXPECT_EQ(certificates.size(), 1);
    own.setLocalCertificateChain(certificates);
    own.setPrivateKey(QSslKey(&key, QSsl::Rsa));
    trusting.setCaCertificates(certificates);
  }

  QString Name(const char* file) const { return QString::fromStdString(folder / file); }

  TempFolder folder;
  QSslConfiguration own = QSslConfiguration::defaultConfiguration();
  QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
};

TEST_F(QtFetchTls, TakesACertificateThatHoldsAndNoOther) {
  Server<QSslServer> server(Page("1106"));
  server.Socket.setSslConfiguration(own);
  QtFetch knowing(trusting);
  EXPECT_EQ(Fetched(knowing, server.Address("https")).Bytes, "1106");
  QtFetch stranger;
  EXPECT_FALSE(Fetched(stranger, server.Address("https")).Complete) << "nobody vouches for it";
}

TEST_F(QtFetchTls, NeverGoesBackToPlainHttp) {
  PlainServer plain(Page("1106"));
  Server<QSslServer> server(QByteArray("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: ") +
                            plain.Address().c_str() + "\r\n\r\n");
  server.Socket.setSslConfiguration(own);
  QtFetch knowing(trusting);
  EXPECT_EQ(Fetched(knowing, server.Address("https")).Reason,
            "the server redirects to an address that is not secure");
  EXPECT_EQ(plain.Requests, 0);
}

}  // namespace
}  // namespace korva::desktop
