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

}  // namespace
}  // namespace korva
