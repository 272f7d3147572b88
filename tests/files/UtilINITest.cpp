#include <gtest/gtest.h>

#include "files/UtilINI.h"

namespace korva {
namespace {

constexpr std::string_view kProfile =
    "GraphStyle=9\r\n"
    "; GraphStyle=8\r\n"
    "[Settings]\r\n"
    "DataPath = C:\\Mines\\a=b \r\n"
    "Title=\"  quoted  \"\r\n"
    "Empty=\r\n"
    " [ graph ] \r\n"
    "SymbolSize =7\r\n"
    "graphstyle=2\r\n"
    "GraphStyle=3\r\n";

TEST(IniValue, IsFoundBySectionAndKey) {
  EXPECT_EQ(FindIniValue(kProfile, "Graph", "GraphStyle"), "2");  // the first one, whatever its letter case
  EXPECT_EQ(FindIniValue(kProfile, "SETTINGS", "datapath"), "C:\\Mines\\a=b");
  EXPECT_EQ(FindIniValue(kProfile, "Settings", "Title"), "  quoted  ");
  EXPECT_EQ(FindIniValue(kProfile, "Settings", "Empty"), "");
  EXPECT_EQ(FindIniValue(kProfile, "Settings", "GraphStyle"), std::nullopt);
  EXPECT_EQ(FindIniValue(kProfile, "None", "GraphStyle"), std::nullopt);
}

TEST(IniValue, AKeyMayEndInABlank) {
  EXPECT_EQ(FindIniValue(kProfile, "Graph", "SymbolSize "), "7");
  EXPECT_EQ(FindIniValue(kProfile, "Graph", "SymbolSize"), "7");
}

TEST(IniValue, FallsBackForMissingAndEmptyValues) {
  EXPECT_EQ(GetIniValue(kProfile, "Settings", "Empty", "KVL"), "KVL");
  EXPECT_EQ(GetIniValue(kProfile, "Settings", "None", "KVL"), "KVL");
  EXPECT_EQ(GetIniValue(kProfile, "Graph", "SymbolSize", "3"), "7");
}

TEST(IniValue, HasAtMost254Characters) {
  const std::string profile = "[a]\nkey=" + std::string(300, 'x') + "\n";
  EXPECT_EQ(FindIniValue(profile, "a", "key"), std::string(254, 'x'));
}

TEST(IniValue, BrokenLinesHoldNothing) {
  for (const char* profile : {"", "[", "[]", "]", "=", "[a", "[a]", "[a]\nkey", "[a]\n=1", "a]\nkey=1"}) {
    EXPECT_EQ(FindIniValue(profile, "a", "key"), std::nullopt) << profile;
  }
}

}  // namespace
}  // namespace korva
