#include "core/Messages.h"

#include <utility>

#include "core/Korva.h"

namespace korva {

namespace {

std::string_view TitlePrefix(TitleSlot slot) {
  return slot == TitleSlot::kDescription  ? "Project Description: "
         : slot == TitleSlot::kParameters ? "Project Parameters: "
         : slot == TitleSlot::kOptions    ? "Program Options: "
                                          : "";
}

}  // namespace

void SetMessageTitles(Korva& korva, TitleSlot slot) {
  const std::string prefix(TitlePrefix(slot));
  korva.Titles = {};
  for (std::string MessageTitles::*title :
       {&MessageTitles::TitleRangeError, &MessageTitles::TitleRangeWarning,
        &MessageTitles::TitleInvalidCharacter, &MessageTitles::TitleError, &MessageTitles::TitleLogicError}) {
    (korva.Titles.*title).insert(0, prefix);
  }
}

MessageAnswer ShowMessage(Korva& korva, MessagePort& port, Message message) {
  HistoryLog(korva, (message.title.empty() ? "Message" : message.title) + ": " + message.text);
  if (message.title.empty()) {
    message.title = ProgramTitle;
  }
  return port.Show(message);
}

bool IsConfirmed(Korva& korva, MessagePort& port, std::string question, std::string topic,
                 MessageButtons buttons, MessageIcon icon) {
  return ShowMessage(korva, port, {std::move(question), buttons, icon, {}, {}, std::move(topic)}) ==
         MessageAnswer::kYes;
}

}  // namespace korva
