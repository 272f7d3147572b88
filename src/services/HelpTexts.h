// Texts about the program: the hint behind the buttons "Help", the disclaimer, what is not built yet.
#pragma once

#include <string>
#include <string_view>

namespace korva {

inline constexpr std::string_view kHelpHint =
    "Position the cursor on any item on the form and press F1 for context-sensitive Help";

// The disclaimer, its lines as the window wraps them.
std::string DisclaimerText();

// What a command says that is not built yet; `command` is its caption, whose mnemonic and dots are dropped.
std::string NotBuiltText(std::string_view command);

}  // namespace korva
