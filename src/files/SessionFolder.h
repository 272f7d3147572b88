// The folder where running sessions of the program know of each other and keep copies of unsaved work.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/PlatformFile.h"

namespace korva {

// One session's place in the folder. Its lock file tells that it runs and which project is open in it; a
// session that ended by itself or by force holds its lock no more. A folder that cannot be used makes every
// call do nothing.
class SessionFolder {
 public:
  explicit SessionFolder(const std::string& folder);

  // Where this session keeps its copy of unsaved work.
  const std::string& CopyPath() const { return copyPath_; }
  // A new name for work that is dropped on purpose, beside it.
  std::string NewDroppedPath();

  // Tells other sessions the full name of the project that is open here.
  void TellOpenFile(const std::string& fullName) const;
  // Whether another running session has that file open.
  bool IsOpenElsewhere(const std::string& fullName) const;

  // Copies that ended sessions left, the newest first. While the result lives no other session gets them.
  struct Abandoned {
    std::vector<std::string> Copies;
    std::vector<std::unique_ptr<FileLock>> Locks;
  };
  Abandoned TakeAbandoned() const;

  // Removes a file of the folder; one that is not there is no failure.
  static void Remove(const std::string& path) noexcept;
  // Puts a copy aside so that it is not offered again.
  static void PutAside(const std::string& path) noexcept;

  // Removes what tells of this session, but not the work that was dropped.
  void End() noexcept;

 private:
  std::string folder_;
  std::string name_;  // of this session, unique among all
  std::string copyPath_;
  std::unique_ptr<FileLock> lock_;
  int dropped_ = 0;
};

}  // namespace korva
