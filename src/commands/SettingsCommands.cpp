#include "commands/SettingsCommands.h"

#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "files/FileReader.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"

namespace korva {

namespace {

// A settings file of this size is taken for something else.
constexpr std::uint64_t kLargestSettingsFile = std::uint64_t{1} << 20;

// The settings file as it is, or an empty text.
std::string TextOfFile(const std::string& path) {
  return StateOfFile(path).exists ? TextFromFileBytes(ReadWholeFile(path, kLargestSettingsFile))
                                  : std::string();
}

void LogFailure(Korva& korva, const RuntimeError& error) {
  HistoryLog(korva, std::string("Settings file: ") + error.what());
}

// The text of a settings file of this version, created if there is none.
std::string TextOfThisVersion(Korva& korva, const SettingsSurroundings& surroundings) {
  const std::string& path = korva.Places.IniFile;
  std::string text;
  try {
    text = TextOfFile(path);
    if (!text.empty() && ReadIniVersion(text) == IniVersionCurrent) {
      return text;
    }
    if (!text.empty()) {
      WriteFileSafely(path + ".BAK", FileBytesFromText(text));
    }
  } catch (const RuntimeError& error) {
    LogFailure(korva, error);
  }
  text.clear();
  WriteIniVersion(text);
  WriteSettings(text, BuiltInSettings(surroundings), SettingsSection::kAll);
  try {
    WriteFileSafely(path, FileBytesFromText(text));
  } catch (const RuntimeError& error) {
    LogFailure(korva, error);
  }
  return text;
}

}  // namespace

void LoadSettings(Korva& korva, const SettingsSurroundings& surroundings) {
  bool reset = false;
  korva.Preferences = ReadSettings(TextOfThisVersion(korva, surroundings), surroundings, reset);
  if (reset) {
    SaveSettings(korva, SettingsSection::kOptions);
  }
  korva.Preferences.Options.RoundKORVASF = FactorRounding::kTwoDecimals;
}

void SaveSettings(Korva& korva, SettingsSection section) {
  const std::string& path = korva.Places.IniFile;
  HistoryLog(korva, "Saving default settings to file: " + path);
  try {
    std::string text = TextOfFile(path);
    WriteIniVersion(text);
    WriteSettings(text, korva.Preferences, section);
    WriteFileSafely(path, FileBytesFromText(text));
  } catch (const RuntimeError& error) {
    LogFailure(korva, error);
  }
}

void ChooseFont(ValuePort& values, FontSettings& font) {
  font = values.ChooseFont(font).value_or(font);
}

void KeepBrowsing(Korva& korva, std::string filter, bool useEditor, std::string folder) {
  korva.Preferences.TextBrowse.BrowseDefaultFilter = std::move(filter);
  korva.Preferences.TextBrowse.BrowseUseNotepad = useEditor;
  korva.LastBrowseFolder = std::move(folder);
  SaveSettings(korva, SettingsSection::kTextBrowse);
}

}  // namespace korva
