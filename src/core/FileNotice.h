// Something odd in a file that was read all the same.
#pragma once

#include <string>

namespace korva {

enum class FileNoticeKind {
  kComma,      // a comma ended a number
  kNoLineEnd,  // the last value has no line end
  kNotRead,    // something was left unread
};

struct FileNotice {
  FileNoticeKind kind = FileNoticeKind::kComma;
  int line = 0;
  std::string text;
};

}  // namespace korva
