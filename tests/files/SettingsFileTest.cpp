#include <gtest/gtest.h>

#include <filesystem>

#include "core/Encoding.h"
#include "files/SettingsFile.h"
#include "files/UtilINI.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

const SettingsSurroundings kMachine{"/home/ann/Documents/MyFolvane/KORVA-STROND/", [] { return "Arial"; }};

Settings Read(const std::string& text) {
  bool reset = false;
  return ReadSettings(text, kMachine, reset);
}

// Every section as text, for comparison.
std::string TextOf(const Settings& settings) {
  std::string text;
  WriteSettings(text, settings, SettingsSection::kAll);
  return text;
}

TEST(SetIniValue, PutsAKeyWhereItBelongsAndKeepsAllElse) {
  std::string text = "; mine\r\n[Graph]\r\nsymbolsize =3\r\n\r\n[Settings]\r\nDataPath=/a";
  SetIniValue(text, "Graph", "SymbolSize", "7");
  SetIniValue(text, "Graph", "GridStyle", "1");
  SetIniValue(text, "Settings", "ShowDisclaim", "0");
  SetIniValue(text, "Version", "INIFileVersion", "050817");
  EXPECT_EQ(text,
            "; mine\r\n[Graph]\r\nSymbolSize=7\r\nGridStyle=1\r\n\r\n[Settings]\r\nDataPath=/a\r\n"
            "ShowDisclaim=0\r\n[Version]\r\nINIFileVersion=050817\r\n");
  for (const std::string value : {" blanks ", "\"quoted\"", "'", "", "a=b;c]"}) {
    SetIniValue(text, "Settings", "DataPath", value);
    EXPECT_EQ(FindIniValue(text, "Settings", "DataPath"), value);
  }
  SetIniValue(text, "Settings", "DataPath", "/a\r\n[Graph]\r\nSymbolSize=20");
  EXPECT_EQ(FindIniValue(text, "Graph", "SymbolSize"), "7");
}

TEST(Settings, ANewFileReadsBackAsItIsButForTheHistorySize) {
  const Settings builtIn = BuiltInSettings(kMachine);
  const std::string text = TextOf(builtIn);
  EXPECT_EQ(FindIniValue(text, "Settings", "MaxDisplaySize"), "2048");
  EXPECT_EQ(FindIniValue(text, "Settings", "DisplayHistoryWin"), "0");
  EXPECT_EQ(FindIniValue(text, "Graph", "XAxisTitle4"), "Width of First Barrier");
  Settings back = Read(text);
  EXPECT_EQ(back.MaxDisplaySize, 4096);
  back.MaxDisplaySize = builtIn.MaxDisplaySize;
  EXPECT_EQ(TextOf(back), text);
}

TEST(Settings, EveryKeyIsWrittenAndRead) {
  const TempFolder folder;
  Settings s = BuiltInSettings(kMachine);
  s.DefaultUnits = kMetric;
  s.DisplayHistoryWin = s.MaxMainMenu = s.ShortRecentFiles = s.LoadLastInputFile = true;
  s.KeepFileNames = s.ShowDisclaim = s.EnableMainMenuToolbar = s.RemindAnnualUpdates = s.CopyExampleFiles =
      false;
  s.MaxDisplaySize = 9000;
  s.DisplayFont = {"Courier New", 12.5F, -1, -1};
  s.ExternalEditor = "/usr/bin/gedit";
  s.DataPath = folder / "";
  s.FileExtension = "TXT";
  s.FileMenu = {2, {}, {}, {}};
  s.FileMenu.LastFile[1] = "a.KVL";
  s.FileMenu.LastFileLong[1] = "/mine/a.KVL";
  s.FileMenu.LastFile[2] = s.FileMenu.LastFileLong[2] = "/mine/b.KVL";
  s.FileMenu.LastFileMode[2] = 1;
  s.TextBrowse = {{"System", 7, 0, -1}, "*.TXT", 1};
  s.Graph.GraphSetParams = true;
  s.Graph.GraphUnits = kMetric;
  s.Graph.GridStyle = GridLines::kVertical;
  s.Graph.GraphStyle = CurveStyle::kSymbols;
  s.Graph.CurveLegend = false;
  s.Graph.SymbolSize = 20;
  s.Graph.GraphTitle = "Panel 7";
  s.Graph.XAxisTitle[6] = "Cover";
  s.Graph.YAxisTitle[1] = "BSF";
  s.Options.PlotRangeMin = 70;
  s.Options.CellSizeMetric = 0.75F;
  const std::string text = TextOf(s);
  EXPECT_EQ(TextOf(Read(text)), text);
  const std::string fresh = TextOf(BuiltInSettings(kMachine));
  for (const char* key : {"DefaultUnits", "KeepFileNames", "DisplayFontSize", "LastFileLong2", "DataPath"}) {
    EXPECT_NE(FindIniValue(text, key[0] == 'L' ? "FileMenu" : "Settings", key),
              FindIniValue(fresh, key[0] == 'L' ? "FileMenu" : "Settings", key))
        << key;
  }
}

TEST(Settings, ASectionIsWrittenAlone) {
  using enum SettingsSection;
  for (const auto& [section, head] :
       std::vector<std::pair<SettingsSection, std::string>>{{kSettings, "[Settings]"},
                                                            {kFileMenu, "[FileMenu]"},
                                                            {kTextBrowse, "[TextBrowse]"},
                                                            {kGraph, "[Graph]"},
                                                            {kOptions, "[KORVAOptions]"}}) {
    std::string text;
    WriteSettings(text, BuiltInSettings(kMachine), section);
    EXPECT_EQ(text.find('['), text.rfind('[')) << text;
    EXPECT_EQ(text.find(head), 0) << text;
  }
}

TEST(Settings, NamesInOtherScriptsComeBackAsTheyWere) {
  const TempFolder folder;
  std::string cyrillic;  // 100 characters, 200 bytes: two of them are a path of more than 254 bytes
  for (int i = 0; i < 100; ++i) {
    cyrillic += "\u0448";
  }
  Settings s = BuiltInSettings(kMachine);
  s.MaxDisplaySize = 4096;
  s.DataPath = folder / (cyrillic + "/" + cyrillic + "/");
  std::filesystem::create_directories(s.DataPath);
  s.FileMenu.MaxLastFiles = 2;
  s.FileMenu.LastFile[1] = s.FileMenu.LastFileLong[1] = s.DataPath + "a.KVL";
  s.FileMenu.LastFile[2] = s.FileMenu.LastFileLong[2] = "/mine/\u00E4.KVL";
  const std::string text = TextOf(s);
  const Settings back = Read(TextFromFileBytes(FileBytesFromText(text)));
  EXPECT_EQ(back.DataPath, s.DataPath);
  EXPECT_EQ(back.FileMenu.LastFileLong[1], s.FileMenu.LastFileLong[1]);
  EXPECT_EQ(TextOf(back), text) << "written back";
}

TEST(Settings, MissingAndWrongValuesFollowTheirRules) {
  const Settings missing = Read("");
  EXPECT_EQ(missing.KeepFileNames + missing.ShowDisclaim + missing.EnableMainMenuToolbar, 0);
  EXPECT_EQ(missing.CopyExampleFiles, 1);
  EXPECT_EQ(missing.DisplayFont.Size, 7);
  EXPECT_EQ(missing.DisplayFont.Name, "Arial");
  EXPECT_EQ(missing.DataPath, kMachine.ProductFolder);
  EXPECT_EQ(missing.FileExtension, "");

  EXPECT_EQ(Read("[Settings]\nDataPath=/usr\n").DataPath, "/usr/");

  const Settings wrong = Read(
      "[Settings]\nDisplayFontSize=25\nDisplayFontBold=1\nMaxDisplaySize=16385\nDataPath=/no/such/folder\n"
      "FileExtension=0\n[FileMenu]\nMaxLastFiles=7\nLastFile1=a\n[Graph]\nGraphStyle=0\nSymbolSize =25\n");
  EXPECT_EQ(wrong.DisplayFont.Size, 7);
  EXPECT_EQ(wrong.DisplayFont.Bold, -1);
  EXPECT_EQ(wrong.MaxDisplaySize, 4096);
  EXPECT_EQ(wrong.DataPath, kMachine.ProductFolder);
  EXPECT_EQ(wrong.FileExtension, "KVL");
  EXPECT_EQ(wrong.FileMenu.MaxLastFiles, 0);
  EXPECT_EQ(wrong.Graph.GraphStyle, CurveStyle::kLines);
  EXPECT_EQ(wrong.Graph.SymbolSize, 3);
}

}  // namespace
}  // namespace korva
