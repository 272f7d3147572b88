// The history of a session: numbered lines, kept to a size.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace korva {

struct Korva;

struct History {
  std::string Text;
  int HistoryCounter = 0;
  std::function<void()> Changed;  // called after each call of the following, if set
};

// Appends to the session's history the next number, ". ", `text` and CR LF if DisplayHistoryWin is 1, else
// nothing. A history of MaxDisplaySize characters or more is first cut to its last two lines. Numbers restart
// at 1 after 16384.
void HistoryLog(Korva& korva, std::string_view text);

// Empties the text; the numbers go on.
void ClearHistory(History& history);

}  // namespace korva
