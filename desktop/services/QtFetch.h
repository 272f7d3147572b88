// Fetching files with the window toolkit's network library.
#pragma once

#include <QNetworkAccessManager>
#include <QSslConfiguration>

#include "core/Ports.h"

namespace korva::desktop {

// Asks the server directly, without proxy, cookies, cache or compression. A status other than 200, a length
// that is not the announced one, a redirect to a less safe road and a certificate that does not hold are
// failures.
class QtFetch final : public FetchPort {
 public:
  explicit QtFetch(QSslConfiguration security = QSslConfiguration::defaultConfiguration());
  std::unique_ptr<Running> Fetch(const FetchQuestion& question, std::function<void(std::uint64_t)> progress,
                                 std::function<void(FetchAnswer)> done) override;

 private:
  QNetworkAccessManager manager_;
  QSslConfiguration security_;
};

}  // namespace korva::desktop
