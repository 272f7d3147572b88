// Another solver library, which fails with the status that the environment names.
#include <korvastrond.h>

#include <cstdlib>

int16_t KORVA_Run_STROND(const char*) {
  const char* status = std::getenv("KORVA_TEST_STATUS");
  return static_cast<int16_t>(status == nullptr ? -7 : std::atoi(status));
}
