#include "core/FileNames.h"

#include "core/RuntimeError.h"

namespace korva {

std::string FileBaseName(const std::string& path, bool strip) {
  const auto separator = path.find_last_of("/\\");
  std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
  if (name.empty() && !path.empty()) {
    throw RuntimeError(ErrorNumber::kInvalidCall, "Error in filename: " + path);
  }
  if (strip) {
    const auto dot = name.find('.');
    if (dot != std::string::npos && dot > 0) {
      name.erase(dot);
    }
  }
  return name;
}

}  // namespace korva
