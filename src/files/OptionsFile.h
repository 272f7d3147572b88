// The section "KORVAOptions" of the settings file.
#pragma once

#include <string>
#include <string_view>

#include "core/Settings.h"

namespace korva {

// Whether the profile `text` sets any option.
bool HasOptions(std::string_view text);

// The options as the profile `text` gives them: a missing or empty key has its own value, a text that does
// not begin with a number is 0, and a value outside its range becomes the range's lower bound. RoundKORVASF
// is as the file says; programs set it to 0 at their start.
OptionSettings ReadOptions(std::string_view text);
// The same; `reset` tells that the swept range was empty and has been reset.
OptionSettings ReadOptions(std::string_view text, bool* reset);

// Puts the section into the profile `text`.
void WriteOptions(std::string& text, const OptionSettings& options);

enum class OptionChange { kDone, kReset, kUnknownKey, kNoNumber };

// Gives the option `key` the value of the text `value`, by the same rules; kReset tells that the value lay
// outside its range and became the lower bound. Letter case of the key does not count.
OptionChange SetOption(OptionSettings& options, std::string_view key, std::string_view value);

}  // namespace korva
