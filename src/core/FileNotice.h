// Something odd in a file that was read all the same.
#pragma once

#include <string>

namespace korva {

struct FileNotice {
  int line = 0;
  std::string text;
};

}  // namespace korva
