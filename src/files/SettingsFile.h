// The settings file: all its sections, read and written. Section "KORVAOptions" is in OptionsFile.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/Settings.h"

namespace korva {

// The version of the settings file that this program writes.
inline constexpr std::string_view IniVersionCurrent = "050817";

enum class SettingsSection {
  kAll = 1,
  kSettings = 2,
  kFileMenu = 3,
  kTextBrowse = 4,
  kGraph = 5,
  kOptions = 6
};

// What the settings take from the machine where the file says nothing.
struct SettingsSurroundings {
  std::string ProductFolder;              // the data folder if the file names none that exists
  std::function<std::string()> BestFont;  // the best available font of the screen
};

std::string ReadIniVersion(std::string_view text);
void WriteIniVersion(std::string& text);

// The settings that a new file receives. Read back, its MaxDisplaySize is another.
Settings BuiltInSettings(const SettingsSurroundings& surroundings);

// The settings as the profile `text` gives them: a missing key has its own value, a text that does not begin
// with a number is 0, a value outside its range becomes the lower bound. `reset` tells that the swept range
// of section "KORVAOptions" was empty and has been reset, so that the section should be written back.
Settings ReadSettings(std::string_view text, const SettingsSurroundings& surroundings, bool& reset);

// Puts a section, or all, into the profile `text`; what else stands there is kept.
void WriteSettings(std::string& text, const Settings& settings, SettingsSection section);

}  // namespace korva
