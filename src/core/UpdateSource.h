// Where new versions of the program come from, and whose signature they carry. Fixed when it is built.
#pragma once

#include <string>

namespace korva {

struct UpdateSource {
  std::string ProductPageUrl;   // web page of the program
  std::string DownloadBaseUrl;  // folder of the version file and the setup programs, with "/" at its end
  std::string PublicKey;        // of the signatures, as minisign writes it; empty: no setup is ever started
};

}  // namespace korva
