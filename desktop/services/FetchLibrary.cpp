// The one function of the library that LateFetch loads.
#include "desktop/services/LateFetch.h"
#include "desktop/services/QtFetch.h"

korva::FetchPort* KorvaFetch() {
  static korva::desktop::QtFetch fetches;
  return &fetches;
}
