#include <gtest/gtest.h>

#include "core/FileNames.h"

namespace korva {
namespace {

TEST(FileBaseName, DropsTheFolderAndAllFromTheFirstPointUnlessTheNameBeginsWithIt) {
  EXPECT_EQ(FileBaseName("C:\\Mines\\North.2\\panel.v1.kvl", false), "panel.v1.kvl");
  EXPECT_EQ(FileBaseName("C:\\Mines\\North.2\\panel.v1.kvl", true), "panel");
  EXPECT_EQ(FileBaseName("/mines/north.2/panel", true), "panel");
  EXPECT_EQ(FileBaseName("/mines/.hidden.kvl", true), ".hidden.kvl");
}

TEST(SafeFileName, StaysInItsFolderOnAnySystem) {
  EXPECT_EQ(SafeFileName("001-../..\\a:b*c?\"d<e>f|\tg. "), "001-.._.._a_b_c__d_e_f__g. ");
  EXPECT_EQ(SafeFileName("Zeche \xC3\x9C"), "Zeche \xC3\x9C");
  std::string umlauts = "x";
  for (int i = 0; i < 200; ++i) {
    umlauts += "\xC3\xA4";
  }
  EXPECT_EQ(SafeFileName(umlauts), umlauts.substr(0, 179)) << "cut between characters";
}

}  // namespace
}  // namespace korva
