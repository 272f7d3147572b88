#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "files/OwnLibrary.h"

namespace korva {
namespace {

std::string FaultOf(const std::string& library, const char* function) {
  try {
    OwnLibraryFunction(library, function);
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kFileNotFound);
    return error.Detail();
  }
  return {};
}

TEST(OwnLibrary, OneThatIsMissingOrAnotherIsNamed) {
  EXPECT_EQ(FaultOf("korvaformats", "KorvaFormats"), "");
  EXPECT_TRUE(FaultOf("korvanone", "KorvaFormats").starts_with("the library libkorvanone-"));
  EXPECT_TRUE(FaultOf("korvaformats", "Korva").ends_with(" has no function Korva"));
}

}  // namespace
}  // namespace korva
