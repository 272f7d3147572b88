// A setup program of a test with the signatures that minisign 0.11 made for it; the secret key was thrown
// away.
#pragma once

#include <string>
#include <string_view>

namespace korva::test {

inline constexpr std::string_view kSetup = "setup of a test\n";
inline constexpr std::string_view kSetupKey = "RWT1g3s1w3Zt3ntVVKgIj95QI2MzAu9ym8Bdur6GfcBX1L4L6lXlYkbS";

// Of the hash, as minisign signs now.
inline constexpr std::string_view kSetupSignature =
    "untrusted comment: signature from minisign secret key\n"
    "RUT1g3s1w3Zt3skjr5DZw0X78aDEPYf06A/iPoDd6GsSOt00hG4tw5mrct46y5G6Ro6Sv0E0vO/aZ+2BsP3P9sxqCh39gmRUZwo=\n"
    "trusted comment: timestamp:1700000000\tfile:KORVA-STROND1106.exe\thashed\n"
    "ign+SjuAIYa/HnbZC1YmMHMiGhrBlNf5sW6LDm8FfSFQZaB4KbtpXGHc91AB9sCT7VZD8f/TFvBvuRy4vsACAg==\n";
// Of the bytes themselves, as it once signed.
inline constexpr std::string_view kOldStyleSignature =
    "untrusted comment: signature from minisign secret key\n"
    "RWT1g3s1w3Zt3pAoLLEFFY3vOHEzcMaPBKByXE/M0NmRzmtahA/gjAONFK2bUZCLLrUILvpzjVPbeDDlMGMBmtZjw2lDT6xkkwA=\n"
    "trusted comment: timestamp:1700000000\tfile:KORVA-STROND1106.exe\n"
    "oKN/H9Z9IiMBKkuSTUqQMD3k/VaENb4DvQEbzS+z4H4tRJm/B6d1t1uYkC/3a8UfKOIn+nUpgbfDuA3AsDriBA==\n";
// Of the same bytes under the name of another version.
inline constexpr std::string_view kOtherNameSignature =
    "untrusted comment: signature from minisign secret key\n"
    "RUT1g3s1w3Zt3skjr5DZw0X78aDEPYf06A/iPoDd6GsSOt00hG4tw5mrct46y5G6Ro6Sv0E0vO/aZ+2BsP3P9sxqCh39gmRUZwo=\n"
    "trusted comment: timestamp:1700000000\tfile:KORVA-STROND1105.exe\n"
    "ytSYb04X/vS1jwRl5VW1d6VtJNh1TSK3/ywUcbfzKUPIKsp5ZO/mmxwy4uuxEmfvpmTZ955aQZloZla14UaXDw==\n";

// The text with its character at `place` replaced by another of the same alphabet.
inline std::string Altered(std::string_view text, std::size_t place) {
  std::string altered(text);
  altered[place] = altered[place] == 'A' ? 'B' : 'A';
  return altered;
}

}  // namespace korva::test
