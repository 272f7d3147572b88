// New, Open, Import, Save and the conversion to the other unit system.
#pragma once

#include "core/Korva.h"
#include "core/Messages.h"

namespace korva {

// Whether that is the name of a project without a file: none, or "Untitled" in letters of any size.
bool HasNoName(const std::string& fileName);

// What of a project a new one does not keep.
struct NewProject {
  bool ResetName = true;   // it is "Untitled"
  bool ResetUnits = true;  // it is in the default units
};

// Resets the project. Output page 0, the working copy and LoadingConditionAux stay.
void FileNew(Korva& korva, const NewProject& how = {});

// Reads the file ProjectFileName, any of the five formats, into the project and copies it to the working
// copy. False, after a message, for a file of another format; a run-time error for one that cannot be read
// whole: the project then holds what was read in front of the fault, with the flags of FileNew. FileNotices
// reports what was odd.
bool FileOpen(Korva& korva, MessagePort& messages);

// Reads the panel of the sibling program's file ProjectFileName into the project; the working copy stays.
// False, after a message, for a file of another format; a run-time error leaves the values in front of the
// fault, as FileOpen does. The project belongs to no file afterwards, whatever its name says.
bool FileOpenVOSK(Korva& korva, MessagePort& messages);

// Writes the project to the file ProjectFileName in the newest format. A run-time error leaves the file as it
// was.
void FileSave(Korva& korva);

// The project in the other unit system, under its new name, unsaved.
void ConvertProject(Korva& korva, UnitSystem targetUnits);

}  // namespace korva
