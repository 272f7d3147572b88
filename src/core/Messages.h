// The one way to a person: messages and questions, with their titles.
#pragma once

#include <string>
#include <string_view>

namespace korva {

struct Korva;

enum class MessageButtons { kOk, kOkCancel, kYesNo, kYesNoDefaultNo, kYesNoCancel, kRetryCancel };
enum class MessageIcon { kNone, kCritical, kQuestion, kExclamation, kInformation };
enum class MessageAnswer { kOk = 1, kCancel = 2, kRetry = 4, kYes = 6, kNo = 7 };

struct Message {
  std::string text;
  MessageButtons buttons = MessageButtons::kOk;
  MessageIcon icon = MessageIcon::kNone;
  std::string title = {};          // empty: the program's
  std::string detail = {};         // what was at fault, set apart from the text
  std::string topic = "messages";  // label of the help that F1 opens
};

// What shows a message: a box of the desktop, the terminal of the command, a script of answers in tests.
class MessagePort {
 public:
  virtual ~MessagePort() = default;
  // Returns the button pressed.
  virtual MessageAnswer Show(const Message& message) = 0;
};

// The titles of a window's messages.
struct MessageTitles {
  std::string TitleMessage = "Message";
  std::string TitleRangeError = "Range Error";
  std::string TitleRangeWarning = "Range Warning";  // of no message
  std::string TitleInvalidCharacter = "Invalid Character";
  std::string TitleError = "Error";
  std::string TitleLogicError = "Logic Error";
};

// The windows whose prefix the titles of messages have.
enum class TitleSlot {
  kDescription = 1,
  kParameters,
  kOptions = 7,
  kSettings = 10,
  kUnits = 12,
  kConversion
};

// Gives messages the titles of a window that opens; they stay until another of these opens.
void SetMessageTitles(Korva& korva, TitleSlot slot);

inline constexpr const char* kOperationFailed = "Operation Failed";

// Writes the message to the history, then shows it.
MessageAnswer ShowMessage(Korva& korva, MessagePort& port, Message message);

// Asks as a message under a help topic; true for Yes.
bool IsConfirmed(Korva& korva, MessagePort& port, std::string question, std::string topic,
                 MessageButtons buttons = MessageButtons::kYesNo, MessageIcon icon = MessageIcon::kNone);

}  // namespace korva
