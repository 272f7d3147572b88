/* The laminated overburden solver: one call from an exchange file to a result file. */
#ifndef KORVASTROND_H
#define KORVASTROND_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define KORVASTROND_API __attribute__((visibility("default")))
#else
#define KORVASTROND_API
#endif

/* What KORVA_Run_STROND gives back. Anything but KORVASTROND_DONE leaves every result file as it was. */
enum {
  KORVASTROND_DONE = 0,
  KORVASTROND_NO_EXCHANGE_FILE = 1, /* the exchange file cannot be read */
  KORVASTROND_NOT_52_FIELDS = 2,    /* it is not one line of 52 fields separated by commas */
  KORVASTROND_NO_CONVERGENCE = 3,   /* the stresses did not converge */
  KORVASTROND_NO_YIELD_BALANCE = 4, /* overloaded barriers reached no balance */
  KORVASTROND_RESULT_NOT_WRITTEN = 5,
  KORVASTROND_OUT_OF_MEMORY = 6,
  KORVASTROND_INTERNAL_ERROR = 7,
  KORVASTROND_FIELD = 100 /* plus 1 to 52: that field is no number, or no panel can have its value, or the
                              results would be beyond all numbers with one so small */
};

/* Solves the panel that the exchange file at `path` describes, for the development and the retreat case, and
   writes its result file: <stem>_KVSD.CSV in the folder of the exchange file, or in the folder above it if
   the exchange file lies in a folder that carries its stem. `path` is a null-terminated file name. The call
   returns when the result file is complete; it keeps nothing between calls, and calls for different exchange
   files may run at the same time. */
KORVASTROND_API int16_t KORVA_Run_STROND(const char* path);

#ifdef __cplusplus
}
#endif

#endif
