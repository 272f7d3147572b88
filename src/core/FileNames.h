// Parts of a file name.
#pragma once

#include <string>

namespace korva {

// The part behind the last folder separator; with `strip` also cut at its first "." unless that is its first
// character. Both "/" and "\" separate, since project files travel between systems. Empty for a path that
// ends in a separator.
std::string FileBaseName(const std::string& path, bool strip);

}  // namespace korva
