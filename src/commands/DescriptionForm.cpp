#include "commands/DescriptionForm.h"

#include "commands/FileCommands.h"

namespace korva {

void AcceptDescription(Korva& korva, const DescriptionTexts& texts) {
  korva.Stored.ProjectTitle = texts.Title;
  for (char& c : korva.Stored.ProjectTitle) {
    if (c == '\r' || c == '\n') {
      c = ' ';  // the file keeps the title on one line
    }
  }
  korva.Stored.ProjectDescription = texts.Description;
  if (texts.Units != korva.Stored.ProjectUnits) {
    korva.Stored.ProjectUnits = texts.Units;
    FileNew(korva, true, false);
  }
  HistoryLog(korva.SessionHistory, korva.Preferences, "Project Description Modified");
  korva.ProjectSaved = false;
  korva.ProjectEmpty = false;
  korva.ProjectUnitsLocked = true;
}

}  // namespace korva
