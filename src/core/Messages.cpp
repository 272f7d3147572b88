#include "core/Messages.h"

#include "core/IndexedArray.h"
#include "core/Korva.h"

namespace korva {

namespace {

// Only four slots have a prefix; the Settings window passes slot 10, so its titles carry none.
std::string_view TitlePrefix(int slot) {
  if (slot < 1 || slot > 13) {
    ThrowSubscript(slot, 1, 13);
  }
  switch (slot) {
    case 1:
      return "Project Description: ";
    case 2:
      return "Project Parameters: ";
    case 7:
      return "Program Options: ";
    case 8:
      return "Settings: ";
    default:
      return "";
  }
}

}  // namespace

MessageTitles MessageTitlesOf(int slot) {
  const std::string prefix(TitlePrefix(slot));
  MessageTitles titles;
  for (std::string MessageTitles::*title :
       {&MessageTitles::TitleRangeError, &MessageTitles::TitleRangeWarning,
        &MessageTitles::TitleInvalidCharacter, &MessageTitles::TitleError, &MessageTitles::TitleLogicError}) {
    (titles.*title).insert(0, prefix);
  }
  return titles;
}

MessageAnswer ShowMessage(Korva& korva, MessagePort& port, Message message) {
  HistoryLog(korva.SessionHistory, korva.Preferences,
             (message.title.empty() ? "Message" : message.title) + ": " + message.text);
  if (message.title.empty()) {
    message.title = ProgramTitle;
  }
  return port.Show(message);
}

}  // namespace korva
