#include <sys/resource.h>

#include "xls/Limits.h"

namespace korva {

static bool Limit(decltype(RLIMIT_AS) what, rlim_t most) {
  const rlimit limit{most, most};
  return ::setrlimit(what, &limit) == 0;
}

bool LimitThisProcess() {
  static constexpr rlim_t kMostMemory = rlim_t{512} << 20;
  static constexpr rlim_t kMostSeconds = 20;
  return Limit(RLIMIT_AS, kMostMemory) && Limit(RLIMIT_CPU, kMostSeconds) && Limit(RLIMIT_FSIZE, 0) &&
         Limit(RLIMIT_CORE, 0);
}

}  // namespace korva
