// Fetching files from web servers with the window toolkit's sockets.
#pragma once

#include <QSslConfiguration>
#include <optional>

#include "core/Ports.h"

namespace korva::desktop {

// Asks the server directly, without proxy, cookies, cache or compression. A status other than 200, a length
// that is not the announced one, a redirect to a less safe connection and a certificate that does not hold
// are failures. The toolkit's own web client is not used: it reads a head without end for as long as it
// comes, and asks servers twice that send on more than once.
class QtFetch final : public FetchPort {
 public:
  // Without `security` that of the system, which takes milliseconds to read and is read when it is needed.
  explicit QtFetch(std::optional<QSslConfiguration> security = {}) : security_(std::move(security)) {}
  std::unique_ptr<Running> Fetch(const FetchQuestion& question, std::function<void(std::uint64_t)> progress,
                                 std::function<void(FetchAnswer)> done) override;

 private:
  std::optional<QSslConfiguration> security_;
};

}  // namespace korva::desktop
