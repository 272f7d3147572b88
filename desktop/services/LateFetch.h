// Fetching files from web servers; the window toolkit's sockets are loaded when the first is asked for.
#pragma once

#include "core/Ports.h"

namespace korva::desktop {

// As QtFetch. Without the library that holds that one, every fetch fails and says so.
class LateFetch final : public FetchPort {
 public:
  std::unique_ptr<Running> Fetch(const FetchQuestion& question, std::function<void(std::uint64_t)> progress,
                                 std::function<void(FetchAnswer)> done) override;
};

}  // namespace korva::desktop

// What the library is asked for; the port lasts as long as the program.
extern "C" korva::FetchPort* KorvaFetch();
