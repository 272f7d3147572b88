// A folder of one's own, for as long as it lives.
#pragma once

#include <filesystem>
#include <string>

#include "files/PlatformFile.h"

namespace korva {

// Below the system's temporary folder, closed to others, and gone with all that is in it in the end. Run-time
// error of making it.
class PrivateFolder {
 public:
  PrivateFolder() : name_(MakePrivateFolder()) {}
  ~PrivateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(name_, ignored);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  // Without a separator at its end.
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

}  // namespace korva
