// A folder of one's own, for as long as it lives.
#pragma once

#include <string>

namespace korva {

// Below the system's temporary folder, closed to others, and gone with all that is in it in the end. Run-time
// error of making it.
class PrivateFolder {
 public:
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  // Without a separator at its end.
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

// Removes all private folders of this process, and holds up whoever makes or drops one from then on: for a
// process that is about to end.
void RemoveAllPrivateFolders() noexcept;

}  // namespace korva
