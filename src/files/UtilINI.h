// Profile files: sections in brackets, a key and its value on a line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva {

// Longest value that a profile gives, in characters.
inline constexpr std::size_t kLongestIniValue = 254;

// Whether two names are the same whatever their letter case.
bool SameIniName(std::string_view a, std::string_view b);

// The value of `key` in `section` of the profile `text`, or nothing. Letter case and blanks around names and
// values do not count, and one pair of quotes around a value is dropped.
std::optional<std::string> FindIniValue(std::string_view text, std::string_view section,
                                        std::string_view key);

// The same, with `fallback` for a missing or empty value.
std::string GetIniValue(std::string_view text, std::string_view section, std::string_view key,
                        const std::string& fallback);

// Gives `key` in `section` of the profile `text` the value, in the place where it stands or after the
// section's last line; a section that is not there is added. Line breaks and other controls in a value become
// blanks.
void SetIniValue(std::string& text, std::string_view section, std::string_view key, std::string_view value);

}  // namespace korva
