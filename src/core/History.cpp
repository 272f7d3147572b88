#include "core/History.h"

#include <fmt/format.h>

#include "core/Korva.h"
#include "core/Text.h"

namespace korva {

namespace {

constexpr int kLastNumber = 16384;
constexpr int kLinesKept = 2;

void CutToLastLines(std::string& text) {
  std::size_t lines = 0;
  for (auto at = text.find(kLineEnd); at != std::string::npos;
       at = text.find(kLineEnd, at + kLineEnd.size())) {
    ++lines;
  }
  for (; lines > kLinesKept; --lines) {
    text.erase(0, text.find(kLineEnd) + kLineEnd.size());
  }
}

void AppendLine(History& history, int size, std::string_view text) {
  if (CharacterCount(history.Text) >= static_cast<std::size_t>(size)) {
    CutToLastLines(history.Text);
  }
  history.HistoryCounter = history.HistoryCounter >= kLastNumber ? 1 : history.HistoryCounter + 1;
  history.Text += fmt::format("{}. {}{}", history.HistoryCounter, text, kLineEnd);
}

}  // namespace

void HistoryLog(Korva& korva, std::string_view text) {
  if (korva.Preferences.DisplayHistoryWin) {
    AppendLine(korva.SessionHistory, korva.Preferences.MaxDisplaySize, text);
  }
  if (korva.SessionHistory.Changed) {
    korva.SessionHistory.Changed();
  }
}

void ClearHistory(History& history) {
  history.Text.clear();
  if (history.Changed) {
    history.Changed();
  }
}

}  // namespace korva
