#include <gtest/gtest.h>

#include "files/UtilINI.h"

namespace korva {
namespace {

TEST(IniValue, IsFoundBySectionAndKey) {
  const std::string profile =
      "GraphStyle=9\r\n; GraphStyle=8\r\n[Settings]\r\nDataPath = C:\\Mines\\a=b \r\nTitle=\"  quoted  \"\r\n"
      "Empty=\r\n [ graph ] \r\nSymbolSize =7\r\ngraphstyle=2\r\nGraphStyle=3\r\nLong=" +
      std::string(300, 'x');
  EXPECT_EQ(FindIniValue(profile, "Graph", "GraphStyle"), "2");  // the first one, whatever its letter case
  EXPECT_EQ(FindIniValue(profile, "SETTINGS", "datapath"), "C:\\Mines\\a=b");
  EXPECT_EQ(FindIniValue(profile, "Settings", "Title"), "  quoted  ");
  EXPECT_EQ(FindIniValue(profile, "Settings", "Empty"), "");
  EXPECT_EQ(FindIniValue(profile, "Settings", "GraphStyle"), std::nullopt);
  EXPECT_EQ(FindIniValue(profile, "Graph", "SymbolSize "), "7");
  EXPECT_EQ(FindIniValue(profile, "Graph", "Long"), std::string(254, 'x'));
  EXPECT_EQ(GetIniValue(profile, "Settings", "Empty", "KVL"), "KVL");
  EXPECT_EQ(GetIniValue(profile, "Settings", "None", "KVL"), "KVL");
  EXPECT_EQ(GetIniValue(profile, "Graph", "SymbolSize", "3"), "7");
  for (const char* broken : {"", "[", "[]", "]", "=", "[a", "[a]", "[a]\nkey", "[a]\n=1", "a]\nkey=1"}) {
    EXPECT_EQ(FindIniValue(broken, "a", "key"), std::nullopt) << broken;
  }
}

TEST(IniValue, IsCutBehindAWholeCharacter) {
  for (const std::string letter : {"\u00E4", "\u0428", "\u77FF", "\U0001F528"}) {
    std::string letters;
    for (int i = 0; i < 254; ++i) {
      letters += letter;
    }
    EXPECT_EQ(FindIniValue("[a]\nkey=" + letters, "a", "key"), letters);
    EXPECT_EQ(FindIniValue("[a]\nkey=" + letters + letter, "a", "key"), letters);
    EXPECT_EQ(FindIniValue("[a]\nkey=x" + letters, "a", "key"),
              "x" + letters.substr(0, letters.size() - letter.size()));
  }
}

}  // namespace
}  // namespace korva
