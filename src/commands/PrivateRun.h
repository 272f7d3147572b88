// A folder of its own for the laminated runs of one call.
#pragma once

#include <memory>
#include <string>

#include "core/Korva.h"

namespace korva {

// Makes a private folder below the system's temporary one, has the laminated runs of `korva` put their files
// there whatever its preferences say, and removes it in the end. Two runs for projects of one name never see
// each other's files. Run-time error of making the folder.
class PrivateRun {
 public:
  explicit PrivateRun(Korva& korva);
  ~PrivateRun();
  PrivateRun(const PrivateRun&) = delete;
  PrivateRun& operator=(const PrivateRun&) = delete;

 private:
  std::string folder_;
};

// One for `korva` if its working copy asks for the laminated model; nothing otherwise, which needs no folder.
std::unique_ptr<PrivateRun> PrivateFilesOf(Korva& korva);

}  // namespace korva
