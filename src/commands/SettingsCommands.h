// Reading the settings at the start, and saving them afterwards.
#pragma once

#include "core/Korva.h"
#include "core/Ports.h"
#include "files/SettingsFile.h"

namespace korva {

// Makes the settings file if it is missing or of another version (an old one stays beside it as ".BAK"), then
// reads all settings into Preferences. A file that cannot be read or made gives the built-in settings as they
// would read back. RoundKORVASF is 0 afterwards, whatever the file says.
void LoadSettings(Korva& korva, const SettingsSurroundings& surroundings);

// Logs the saving and writes a section of the settings file, or all. A write that fails is only logged: the
// settings in memory stand.
void SaveSettings(Korva& korva, SettingsSection section);

// Asks for another font than `font` of the settings; a cancelled dialog leaves it. Nothing is saved.
void ChooseFont(ValuePort& values, FontSettings& font);

// Keeps and saves what the viewer of text files was left with.
void KeepBrowsing(Korva& korva, std::string filter, bool useEditor, std::string folder);

}  // namespace korva
