#include "commands/AcceptForms.h"

#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "commands/SettingsCommands.h"

namespace korva {

namespace {

void LogNotModified(Korva& korva) {
  HistoryLog(korva, "Project Parameters Not Modified");
}

}  // namespace

void TakeTexts(const std::string& title, const std::string& description, StoredProject& project) {
  project.ProjectTitle = title;
  for (char& c : project.ProjectTitle) {
    if (c == '\r' || c == '\n') {
      c = ' ';  // the file keeps the title on one line
    }
  }
  project.ProjectDescription = description;
}

void AcceptDescription(Korva& korva, const DescriptionTexts& texts) {
  TakeTexts(texts.Title, texts.Description, korva.Stored);
  if (texts.Units != korva.Stored.ProjectUnits) {
    korva.Stored.ProjectUnits = texts.Units;
    FileNew(korva, {.ResetUnits = false});
  }
  HistoryLog(korva, "Project Description Modified");
  korva.ProjectSaved = false;
  korva.ProjectEmpty = false;
  korva.ProjectUnitsLocked = true;
}

void AcceptParameters(Korva& korva, const ParameterTexts& texts) {
  korva.ProjectUnitsLocked = true;
  if (!ParametersChanged(texts, korva.Stored.ProjectInput)) {
    LogNotModified(korva);
    return;
  }
  StoreParameters(texts, korva.Stored.ProjectInput);
  korva.ProjectSaved = false;
  korva.ProjectEmpty = false;
  HistoryLog(korva, "Project Parameters Modified");
}

void StoreCalcParameters(Korva& korva, const ParameterTexts& texts) {
  StoreParameters(texts, korva.ProjectCalc);
  FillPlotCopies(korva);
}

bool DiscardParameters(Korva& korva, MessagePort& messages, const ParameterTexts& texts) {
  if (korva.Preferences.Options.IssueWarningCancel && ParametersChanged(texts, korva.Stored.ProjectInput) &&
      !IsConfirmed(korva, messages, "Changes in Input Data will be discarded. Proceed?", "messages-forms")) {
    return false;
  }
  LogNotModified(korva);
  return true;
}

void AcceptSettings(Korva& korva, const Settings& settings, const std::function<void()>& apply) {
  korva.Preferences = settings;
  apply();
  HistoryLog(korva, "Settings Modified");
  SaveSettings(korva, SettingsSection::kSettings);
}

void AcceptOptions(Korva& korva, const OptionSettings& options) {
  korva.Preferences.Options = options;
  SaveSettings(korva, SettingsSection::kOptions);
  HistoryLog(korva, "Options Modified");
}

void AcceptGraph(Korva& korva, const GraphSettings& graph) {
  korva.Preferences.Graph = graph;
  SaveSettings(korva, SettingsSection::kGraph);
}

void AcceptDisclaimer(Korva& korva) {
  korva.Preferences.ShowDisclaim = false;
  SaveSettings(korva, SettingsSection::kSettings);
}

}  // namespace korva
