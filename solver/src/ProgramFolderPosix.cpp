#include <system_error>

#include "ProgramFolder.h"

namespace korva::laminated {

std::filesystem::path ProgramFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

}  // namespace korva::laminated
