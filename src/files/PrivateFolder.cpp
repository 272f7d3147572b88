#include "files/PrivateFolder.h"

#include <chrono>
#include <mutex>
#include <set>
#include <thread>

#include "files/FileTree.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

// Those that there are. They belong to the process, since the signal that ends it does.
struct PrivateFolders {
  std::mutex Mutex;
  std::set<std::string> Names;
};

PrivateFolders& AllFolders() {
  static PrivateFolders folders;
  return folders;
}

}  // namespace

PrivateFolder::PrivateFolder() {
  PrivateFolders& all = AllFolders();
  const std::lock_guard lock(all.Mutex);
  name_ = MakePrivateFolder();
  all.Names.insert(name_);
}

PrivateFolder::~PrivateFolder() {
  PrivateFolders& all = AllFolders();
  const std::lock_guard lock(all.Mutex);
  RemoveFolder(name_);
  all.Names.erase(name_);
}

void RemoveAllPrivateFolders() noexcept {
  static constexpr int kTries = 500;  // while other threads still write into them
  PrivateFolders& all = AllFolders();
  all.Mutex.lock();  // and never unlocked
  for (const std::string& folder : all.Names) {
    for (int i = 0; i < kTries && FolderExists(folder); ++i) {
      RemoveFolder(folder);
      std::this_thread::sleep_for(std::chrono::milliseconds(i == 0 ? 0 : 2));
    }
  }
}

}  // namespace korva
