#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "commands/SettingsCommands.h"
#include "commands/StartUp.h"
#include "files/UtilINI.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

class StartUpTest : public testing::Test {
 protected:
  StartUpTest() {
    machine.AppPath = folder / "bin";
    machine.Examples = folder / "examples";
    machine.Documents = folder / "Documents";
    machine.Desktop = folder / "Desktop";
    machine.DataHome = folder / "share";
    fs::create_directories(machine.Examples);
  }

  Korva Start() const {
    Korva korva;
    StartUp(korva, machine, [] { return "Arial"; });
    return korva;
  }

  std::string Bytes(const std::string& path) const { return TempFolder::Bytes(path); }

  TempFolder folder;
  MachineFolders machine;
};

TEST_F(StartUpTest, BareNamesGoWhereTheUserMayWrite) {
  Korva korva = Start();
  EXPECT_EQ(StartFolder(korva), korva.Places.ProductFolder)
      << "there is no folder of the program to write into";
  korva.Preferences.DataPath = folder / "examples/";
  EXPECT_EQ(StartFolder(korva), folder / "examples/");
  korva.Preferences.DataPath = folder / "gone/";
  EXPECT_EQ(StartFolder(korva), korva.Places.ProductFolder);
  fs::create_directory(machine.AppPath);
  EXPECT_EQ(StartFolder(korva), machine.AppPath + "/");
}

TEST_F(StartUpTest, AFirstStartMakesFoldersSettingsAndExamples) {
  folder.Put("examples/one.KVL", "KORVA_603\n 0 \nlast");
  folder.Put("examples/two.kvl", "kept");
  folder.Put("examples/.hidden.KVL", "x");
  folder.Put("examples/README.md", "x");
  fs::create_directories(folder / "Documents/MyFolvane/KORVA-STROND");
  folder.Put("Documents/MyFolvane/KORVA-STROND/two.kvl", "mine");
  const Korva korva = Start();
  const std::string root = folder / "Documents/MyFolvane/";
  EXPECT_EQ(korva.Places.ProductTempFolder, root + "KORVA-STROND/Temp/");
  EXPECT_TRUE(fs::is_directory(root + "Temp") && fs::is_directory(korva.Places.ProductTempFolder));
  EXPECT_EQ(Bytes(korva.Places.ProductFolder + "one.KVL"), "KORVA_603\r\n 0 \r\nlast\r\n");
  EXPECT_EQ(Bytes(korva.Places.ProductFolder + "two.kvl"), "mine");
  EXPECT_FALSE(fs::exists(korva.Places.ProductFolder + ".hidden.KVL") ||
               fs::exists(korva.Places.ProductFolder + "README.md"));
  const std::string text = Bytes(root + "KORVA-STROND.INI");
  EXPECT_EQ(ReadIniVersion(text), "050817");
  EXPECT_EQ(FindIniValue(text, "Settings", "DisplayHistoryWin"), "0");
  EXPECT_EQ(korva.Preferences.MaxDisplaySize, 4096);
  EXPECT_EQ(korva.Preferences.DataPath, korva.Places.ProductFolder);
}

TEST_F(StartUpTest, ASettingsFileOfAnotherVersionOrOfRandomBytesIsMadeAnewAndKeptBeside) {
  const std::string path = Start().Places.IniFile;
  std::mt19937 random(7);
  std::string noise(5000, '\0');
  for (char& c : noise) {
    c = static_cast<char>(random());
  }
  for (const std::string& old :
       {std::string("[Version]\nINIFileVersion=050816\n[Settings]\nShowDisclaim=0\n"), noise,
        std::string("[")}) {
    std::ofstream(path, std::ios::binary) << old;
    EXPECT_EQ(Start().Preferences.ShowDisclaim, 1);
    EXPECT_EQ(ReadIniVersion(Bytes(path)), "050817");
    EXPECT_TRUE(fs::exists(path + ".BAK"));
  }
  fs::remove(path);
  fs::create_directory(path);  // a folder in its place
  EXPECT_EQ(Start().Preferences.ShowDisclaim, 1);
}

TEST_F(StartUpTest, SettingsOfThisVersionAreTakenAndAnEmptyPlotRangeIsWrittenBack) {
  Korva korva = Start();
  korva.Preferences.ShowDisclaim = false;
  korva.Preferences.Options.PlotRangeMin = korva.Preferences.Options.PlotRangeMax = 70;
  korva.Preferences.Options.RoundKORVASF = FactorRounding{2};
  SaveSettings(korva, SettingsSection::kSettings);
  EXPECT_EQ(Start().Preferences.ShowDisclaim, 0);
  SaveSettings(korva, SettingsSection::kOptions);
  const Korva next = Start();
  EXPECT_EQ(next.Preferences.Options.RoundKORVASF, FactorRounding{0});
  EXPECT_EQ(next.Preferences.Options.PlotRangeMin, 50);
  EXPECT_EQ(FindIniValue(Bytes(korva.Places.IniFile), "KORVAOptions", "PlotRangeMax"), "150");
}

TEST_F(StartUpTest, FoldersFallBackToTheDesktopAndThenToTheDataFolder) {
  folder.Put("Documents", "a file in its place");
  EXPECT_EQ(MakeFolders(machine).DataRoot, folder / "share/MyFolvane/");
  fs::create_directories(machine.Desktop + "/MyFolvane");
  EXPECT_EQ(MakeFolders(machine).DataRoot, folder / "Desktop/MyFolvane/");
  fs::remove_all(folder / "Desktop/MyFolvane/KORVA-STROND");
  folder.Put("Desktop/MyFolvane/KORVA-STROND", "a file in its place");
  const Folders places = MakeFolders(machine);
  EXPECT_EQ(places.ProductFolder, folder / "share/");
  EXPECT_EQ(places.TempRoot, folder / "Desktop/MyFolvane/Temp/");
}

}  // namespace
}  // namespace korva
