// Parts of a file name.
#pragma once

#include <string>
#include <string_view>

namespace korva {

// The part after the last folder separator; with `strip` also cut at its first "." unless that is its first
// character. Both "/" and "\" separate, since project files travel between systems. Empty for a path that
// ends in a separator.
std::string FileBaseName(const std::string& path, bool strip);

// The folder that `path` stands in, without a separator at its end: "." for a name alone, "/" for one at the
// root.
std::string FolderOf(const std::string& path);

// A folder's name with a separator at its end; none for no name.
std::string WithSeparator(std::string_view folder);

// The name of what stands in `folder`, which may have a separator at its end or be empty.
std::string NameWithin(const std::string& folder, std::string_view name);

// The text as the stem of a file's name on any system: what a name cannot hold (separators, ":", "*", "?",
// "<", ">", "|", double quotes, control characters) is "_", and what is longer than 180 bytes is cut between
// characters.
std::string SafeFileName(std::string_view text);

}  // namespace korva
