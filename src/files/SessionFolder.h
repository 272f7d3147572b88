// The folder where running sessions of the program know of each other and keep copies of unsaved work.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/FileLock.h"

namespace korva {

// One session's place in the folder. Its lock file tells that it runs and which project is open in it; a
// session that ended by itself or by force holds its lock no more. The lock is there before the first copy
// is. A folder that cannot be used makes every call do nothing.
class SessionFolder {
 public:
  explicit SessionFolder(const std::string& folder);

  // Where this session keeps its copy of unsaved work.
  const std::string& CopyPath() const { return copyPath_; }
  // A new name for work that is dropped on purpose, beside it.
  std::string NewDroppedPath();

  // Tells other sessions the full name of the project that is open here.
  void RecordOpenFile(const std::string& fullName) const;
  // Whether another running session has that file open.
  bool IsOpenElsewhere(const std::string& fullName) const;

  // Takes the copies that ended sessions left, the newest first: they have names of this session from then
  // on, so that no other one gets them while it runs, and the next one does if it ends before they are put
  // aside.
  std::vector<std::string> TakeAbandoned();

  // Puts a copy aside so that it is not offered again.
  static void RenameAsKept(const std::string& path) noexcept;

  // Removes what tells of this session, but not the work that was dropped, nor its copy if `keepCopy`.
  void End(bool keepCopy) noexcept;

 private:
  std::string LockOf(const std::string& session) const { return folder_ + session + ".lock"; }

  std::string folder_;
  std::string name_;  // of this session, unique among all
  std::string copyPath_;
  std::unique_ptr<FileLock> lock_;
  int dropped_ = 0;
};

}  // namespace korva
