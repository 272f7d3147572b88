// The texts that tell a freedesktop.org desktop which program opens the project files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva {

inline constexpr std::string_view kProjectType = "application/x-korva-strond";
inline constexpr std::string_view kProjectTypeIcon = "application-x-korva-strond";
inline constexpr std::string_view kProgramEntry = "korva-strond.desktop";
inline constexpr std::string_view kProgramIcon = "korva-strond";

// Whether a desktop entry can name that program. A path with "=", "%" or control characters, or one that is
// no UTF-8, is never found by the desktops.
bool CanNameProgram(std::string_view program);

// The line of a desktop entry that starts `program` with one file, its name one argument whatever it holds.
std::string ExecValue(std::string_view program);

// The desktop entry of `program`, a full path or a name to look up.
std::string ProgramEntryText(std::string_view program);

// How much a type's pattern weighs that a person has asked for: more than the 50 of other types.
inline constexpr int kAskedWeight = 60;

// The type of files whose names end in `extension`, capital letters and digits, in whatever case.
std::string ProjectTypeText(std::string_view extension, int weight);

// The user's list of default programs with this program first for project files. All else, comments and line
// ends too, stays as it is.
std::string WithDefaultProgram(std::string_view list);

// The same list with the programs that `before` gives project files, where this program is first for them.
std::string WithDefaultProgramsOf(std::string_view before, std::string_view list);

// The names of the lists that only some desktops ask, before the user's own: of "ubuntu:GNOME"
// "ubuntu-mimeapps.list" and "gnome-mimeapps.list".
std::vector<std::string> ListsOfDesktops(std::string_view desktops);

// Whether the list gives project files other programs before this one.
bool PrefersAnotherProgram(std::string_view list);

// The same list without this program for project files; what was named after it comes first again.
std::string WithoutDefaultProgram(std::string_view list);

}  // namespace korva
