// The project file: five formats read, the newest written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Project.h"
#include "files/FieldCursor.h"

namespace korva {

inline constexpr std::string_view kProjectExtension = "KVL";
inline constexpr std::string_view kInvalidFormat = "Invalid file format";

// Whether the name of a file, without its folder, has the projects' extension in any case.
bool HasProjectExtension(std::string_view name);

// Whether a file of that name, without its folder, is offered as a project: by its extension in any case, and
// no hidden one.
bool IsProjectName(std::string_view name);

// A project file of this size is taken for something else.
inline constexpr std::uint64_t kLargestProjectFile = std::uint64_t{16} << 20;

// The format number, 50 to 54, that the magic in the first field of `text` stands for, or nothing. Run-time
// error 62 for an empty text.
std::optional<int> DetectProjectFormat(std::string_view text, const std::string& fileName);

// Reads a project of format `version` off `text` into `project`, which should be an empty one: a field that
// an older format lacks keeps its value. Values are stored one by one, so after a run-time error (62, 13, 6,
// or 9 for too many entries) `project` holds those in front of the fault. What was odd, but read, goes to
// `notices`.
void ReadProject(std::string_view text, const std::string& fileName, int version, StoredProject& project,
                 std::vector<FileNotice>& notices);

// The project in the newest format, with CR LF line ends, as text. Its description has to be in its stored
// form. Run-time error 5 if title or description hold what a reader would take for the end of either.
std::string ComposeProject(const StoredProject& project);

}  // namespace korva
