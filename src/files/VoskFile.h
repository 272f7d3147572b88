// The project file of the sibling program VOSK, of which the panel is taken over. It is never written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/FileNotice.h"
#include "core/Project.h"

namespace korva {

inline constexpr std::string_view kVoskExtension = "VSK";

// Whether the first field of `text` is the format's magic. Run-time error 62 for an empty text.
bool DetectVoskFormat(std::string_view text, const std::string& fileName);

// Reads the panel off `text` into `project`, which should be an empty one; the sibling's own data in front of
// it are skipped. Values are stored one by one, so after a run-time error (62, also without the marker of the
// panel, 13, 6, or 9 for too many entries) `project` holds those in front of the fault. What was odd, but
// read, goes to `notices`.
void ReadVoskProject(std::string_view text, const std::string& fileName, StoredProject& project,
                     std::vector<FileNotice>& notices);

}  // namespace korva
