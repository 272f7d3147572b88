// Another solver library, which fails.
#include <korvastrond.h>

int16_t KORVA_Run_STROND(const char*) {
  return -7;
}
