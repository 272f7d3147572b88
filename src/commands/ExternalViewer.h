// Showing a text file with the program that the settings name.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

// A program and the arguments that it is started with.
struct ProgramCall {
  std::string Program;
  std::vector<std::string> Arguments;
};

// The call that the setting ExternalEditor asks for. A name with a folder may hold blanks: the longest
// beginning of the text that names a file is the program. Else words are separated by blanks, except inside
// double quotes. An empty text has no program.
ProgramCall CallOfEditor(const std::string& setting);

// "not found on this machine" for a setting whose program cannot be started, since there is none of that
// name; nothing for one that is there, and for an empty text.
std::optional<std::string> ViewerRemark(std::string_view setting);

// Asks for the program of that setting; nothing if the person cancelled. The extension of project files
// becomes that of programs, and stays so unless OK of the settings puts it back.
std::optional<std::string> ChooseEditor(Korva& korva, FileChoicePort& files);

// Copies `file` as text, with CR LF line ends, to the scratch file "~tmpbr.tmp" and starts the external
// viewer on that, so that the file itself stays out of its hands. Errors of copying and of starting are
// reported each for itself; false after one.
bool ViewExternally(Korva& korva, Ports& ports, const std::string& file);

}  // namespace korva
