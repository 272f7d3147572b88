// The one function that writes files.
#pragma once

#include <string>
#include <string_view>

#include "files/FileReplacement.h"

namespace korva {

// Puts `bytes` in the place of `path`: written beside it, flushed, closed, then renamed over it, so that a
// failure at any step leaves what was there as it was. Permissions are kept and a symbolic link is followed.
// Run-time errors as the steps give them, and 75 for a target that is a folder or a device.
void WriteFileSafely(const std::string& path, std::string_view bytes);
void WriteFileSafely(const std::string& path, std::string_view bytes, FileReplacement& replacement);

// The same for a scratch file that only its owner may read. Whatever has the name `path`, be it a link, is
// replaced and never written through. Run-time error 75 if it is a folder.
void WriteScratchFile(const std::string& path, std::string_view bytes);

}  // namespace korva
