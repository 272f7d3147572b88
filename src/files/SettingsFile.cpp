#include "files/SettingsFile.h"

#include <fmt/format.h>

#include <array>

#include "core/FileNames.h"
#include "core/Limits.h"
#include "core/Tables.h"
#include "core/Text.h"
#include "files/OptionsFile.h"
#include "files/PlatformFile.h"
#include "files/SettingTable.h"

namespace korva {

namespace {

constexpr std::string_view kSettings = "Settings";
constexpr std::string_view kFileMenu = "FileMenu";
constexpr std::string_view kTextBrowse = "TextBrowse";
constexpr std::string_view kGraph = "Graph";

constexpr int kBuiltInDisplaySize = 2048;

constexpr auto kSettingsTable = std::to_array<Setting<Settings>>({
    {"DefaultUnits", &Settings::DefaultUnits},
    {"DisplayHistoryWin", &Settings::DisplayHistoryWin},
    {"MaxDisplaySize", &Settings::MaxDisplaySize, "0", kLeastHistory, kGreatestHistory},
    {"KeepFileNames", &Settings::KeepFileNames},
    {"ShowDisclaim", &Settings::ShowDisclaim},
    {"MaxMainMenu", &Settings::MaxMainMenu},
    {"EnableMainMenuToolbar", &Settings::EnableMainMenuToolbar},
    {"ShortRecentFiles", &Settings::ShortRecentFiles},
    {"LoadLastInputFile", &Settings::LoadLastInputFile},
    {"RemindAnnualUpdates", &Settings::RemindAnnualUpdates},
    {"CopyExampleFiles", &Settings::CopyExampleFiles, "1"},
    {"ExternalEditor", &Settings::ExternalEditor, ""},
    {"DataPath", &Settings::DataPath, ""},
    {"FileExtension", &Settings::FileExtension, ""},
});

constexpr auto kBrowseTable = std::to_array<Setting<BrowseSettings>>({
    {"BrowseDefaultFilter", &BrowseSettings::BrowseDefaultFilter, ""},
    {"BrowseUseNotepad", &BrowseSettings::BrowseUseNotepad},
});

constexpr auto kGraphTable = std::to_array<Setting<GraphSettings>>({
    {"GraphSetParams", &GraphSettings::GraphSetParams},
    {"GridStyle", &GraphSettings::GridStyle, "0", 0, 3},
    {"GraphStyle", &GraphSettings::GraphStyle, "3", 1, 3},
    {"CurveLegend", &GraphSettings::CurveLegend, "1"},
    {"SymbolSize", &GraphSettings::SymbolSize, "5", kLeastSymbol, kGreatestSymbol},
    {"GraphUnits", &GraphSettings::GraphUnits},
    {"GraphTitle", &GraphSettings::GraphTitle, kDefaultGraphTitle},
});

constexpr auto kFontTable = std::to_array<Setting<FontSettings>>({
    {"FontName", &FontSettings::Name, ""},
    {"FontSize", &FontSettings::Size, "0", kLeastFont, kGreatestFont},
    {"FontBold", &FontSettings::Bold, "0", -1, 0},
    {"FontItalic", &FontSettings::Italic, "0", -1, 0},
});

// The font table under keys that begin with `prefix`.
class PrefixedFont {
 public:
  explicit PrefixedFont(std::string_view prefix) {
    for (std::size_t i = 0; i < kFontTable.size(); ++i) {
      table_[i] = kFontTable[i];
      keys_[i] = fmt::format("{}{}", prefix, kFontTable[i].Key);
      table_[i].Key = keys_[i];
    }
  }
  const auto& Table() const { return table_; }

 private:
  std::array<Setting<FontSettings>, kFontTable.size()> table_{};
  std::array<std::string, kFontTable.size()> keys_;
};

FontSettings ReadFont(std::string_view text, std::string_view section, std::string_view prefix,
                      const SettingsSurroundings& surroundings) {
  FontSettings font;
  ReadTable(text, section, PrefixedFont(prefix).Table(), font);
  if (font.Name.empty()) {
    font.Name = surroundings.BestFont();
  }
  return font;
}

void WriteFont(std::string& text, std::string_view section, std::string_view prefix,
               const FontSettings& font) {
  WriteTable(text, section, PrefixedFont(prefix).Table(), font);
}

// A folder that exists, with a separator at its end; the product folder for none.
std::string DataPathOf(const std::string& value, const SettingsSurroundings& surroundings) {
  const std::string path = WithSeparator(Trimmed(value));
  return Trimmed(value) != "0" && FolderExists(path) ? path : surroundings.ProductFolder;
}

RecentFiles ReadRecentFiles(std::string_view text) {
  RecentFiles recent;
  const double count = ParseNumberPrefix(GetIniValue(text, kFileMenu, "MaxLastFiles", "0")).value;
  recent.MaxLastFiles = static_cast<int>(ClampOrReset(std::nearbyint(count), 0.0, double{kMostRecentFiles}));
  for (int n = 1; n <= recent.MaxLastFiles; ++n) {
    recent.LastFile[n] = GetIniValue(text, kFileMenu, fmt::format("LastFile{}", n), "");
    recent.LastFileLong[n] = GetIniValue(text, kFileMenu, fmt::format("LastFileLong{}", n), "");
    const double mode =
        ParseNumberPrefix(GetIniValue(text, kFileMenu, fmt::format("LastFileMode{}", n), "0")).value;
    recent.LastFileMode[n] = static_cast<int>(ClampOrReset(std::nearbyint(mode), 0.0, 32767.0));
  }
  return recent;
}

void WriteRecentFiles(std::string& text, const RecentFiles& recent) {
  SetIniValue(text, kFileMenu, "MaxLastFiles", std::to_string(recent.MaxLastFiles));
  for (int n = 1; n <= recent.MaxLastFiles; ++n) {
    SetIniValue(text, kFileMenu, fmt::format("LastFile{}", n), recent.LastFile[n]);
    SetIniValue(text, kFileMenu, fmt::format("LastFileMode{}", n), std::to_string(recent.LastFileMode[n]));
    SetIniValue(text, kFileMenu, fmt::format("LastFileLong{}", n), recent.LastFileLong[n]);
  }
}

template <class Titles, class BuiltIn>
void ReadTitles(std::string_view text, std::string_view key, const BuiltIn& builtIn, Titles& titles) {
  for (std::size_t i = 0; i < builtIn.size(); ++i) {
    titles[static_cast<int>(i)] =
        GetIniValue(text, kGraph, fmt::format("{}{}", key, i), std::string(builtIn[i]));
  }
}

template <class Titles>
void WriteTitles(std::string& text, std::string_view key, const Titles& titles) {
  for (int i = titles.kFirst; i <= titles.kLast; ++i) {
    SetIniValue(text, kGraph, fmt::format("{}{}", key, i), titles[i]);
  }
}

GraphSettings ReadGraph(std::string_view text) {
  GraphSettings graph;
  ReadTable(text, kGraph, kGraphTable, graph);
  ReadTitles(text, "XAxisTitle", DefaultXAxisTitles, graph.XAxisTitle);
  ReadTitles(text, "YAxisTitle", DefaultYAxisTitles, graph.YAxisTitle);
  return graph;
}

void WriteOne(std::string& text, const Settings& settings, SettingsSection section) {
  switch (section) {
    case SettingsSection::kAll:
      break;
    case SettingsSection::kSettings:
      WriteTable(text, kSettings, kSettingsTable, settings);
      WriteFont(text, kSettings, "Display", settings.DisplayFont);
      break;
    case SettingsSection::kFileMenu:
      WriteRecentFiles(text, settings.FileMenu);
      break;
    case SettingsSection::kTextBrowse:
      WriteFont(text, kTextBrowse, "Browse", settings.TextBrowse.BrowseFont);
      WriteTable(text, kTextBrowse, kBrowseTable, settings.TextBrowse);
      break;
    case SettingsSection::kGraph:
      WriteTable(text, kGraph, kGraphTable, settings.Graph);
      WriteTitles(text, "XAxisTitle", settings.Graph.XAxisTitle);
      WriteTitles(text, "YAxisTitle", settings.Graph.YAxisTitle);
      break;
    case SettingsSection::kOptions:
      WriteOptions(text, settings.Options);
      break;
  }
}

}  // namespace

std::string ReadIniVersion(std::string_view text) {
  return GetIniValue(text, "Version", "INIFileVersion", "");
}

void WriteIniVersion(std::string& text) {
  SetIniValue(text, "Version", "INIFileVersion", IniVersionCurrent);
}

Settings BuiltInSettings(const SettingsSurroundings& surroundings) {
  Settings settings;
  settings.MaxDisplaySize = kBuiltInDisplaySize;
  settings.DisplayFont.Name = surroundings.BestFont();
  settings.TextBrowse.BrowseFont.Name = settings.DisplayFont.Name;
  settings.DataPath = surroundings.ProductFolder;
  settings.Graph = ReadGraph("");
  return settings;
}

Settings ReadSettings(std::string_view text, const SettingsSurroundings& surroundings, bool& reset) {
  Settings settings;
  ReadTable(text, kSettings, kSettingsTable, settings);
  settings.DisplayFont = ReadFont(text, kSettings, "Display", surroundings);
  settings.DataPath = DataPathOf(settings.DataPath, surroundings);
  if (settings.FileExtension == "0") {
    settings.FileExtension = Settings{}.FileExtension;
  }
  settings.FileMenu = ReadRecentFiles(text);
  settings.TextBrowse.BrowseFont = ReadFont(text, kTextBrowse, "Browse", surroundings);
  ReadTable(text, kTextBrowse, kBrowseTable, settings.TextBrowse);
  settings.Graph = ReadGraph(text);
  settings.Options = ReadOptions(text, &reset);
  return settings;
}

void WriteSettings(std::string& text, const Settings& settings, SettingsSection section) {
  if (section != SettingsSection::kAll) {
    WriteOne(text, settings, section);
    return;
  }
  for (const auto one : {SettingsSection::kSettings, SettingsSection::kFileMenu, SettingsSection::kTextBrowse,
                         SettingsSection::kGraph, SettingsSection::kOptions}) {
    WriteOne(text, settings, one);
  }
}

}  // namespace korva
