// The reader of .xls workbooks in its own process, by itself and with programs in its place.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "support/ExpectError.h"
#include "support/TempFolder.h"
#include "workbook/XlsSheet.h"

namespace korva {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class XlsSheetTest : public testing::Test {
 protected:
  // A program that does what `script` says in the reader's place.
  XlsReader Program(std::string_view script) const {
    const std::string program = folder.Put("reader", "#!/bin/sh\n" + std::string(script));
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return {program, milliseconds{300}};
  }

  std::string Refused(const XlsReader& reader, ErrorNumber number = ErrorNumber::kDeviceIo) const {
    return ExpectError(number,
                       [&] { ReadXlsSheet("mine.xls", "Cases", reader, Reading("mine.xls", nullptr)); });
  }

  TempFolder folder;
};

TEST_F(XlsSheetTest, ReadsWhatItsProgramSays) {
  const XlsReader reader = Program("printf 'korva-xls 1\\nt 2 3 %s|%s\\nend 1\\n' \"$1\" \"$2\"");
  const Sheet sheet = ReadXlsSheet("a b.xls", "My cases", reader, Reading("a b.xls", nullptr));
  EXPECT_EQ(sheet.At(2, 3).Text, "a b.xls|My cases");
}

TEST_F(XlsSheetTest, SurvivesItsProgram) {
  EXPECT_NE(Refused(Program("kill -11 $$")).find("damaged"), std::string::npos);
  EXPECT_NE(Refused(Program("exit 5")).find("password"), std::string::npos);
  EXPECT_NE(Refused(Program("exit 77")).find("77"), std::string::npos);
  Refused(Program("printf 'korva-xls 1\\nn 1 1 1\\n'"));
  Refused(Program("exec sleep 60"), ErrorNumber::kOutOfMemory);
  Refused(Program("exec yes"), ErrorNumber::kOutOfMemory);
  EXPECT_NE(Refused({folder / "none"}, ErrorNumber::kFileNotFound).find("none"), std::string::npos);
}

TEST_F(XlsSheetTest, EndsWhenAsked) {
  XlsReader reader = Program("exec sleep 60");
  reader.Limit = milliseconds{60'000};
  int asked = 0;
  const auto start = steady_clock::now();
  ExpectError(ErrorNumber::kDialogCancelled, [&] {
    ReadXlsSheet("mine.xls", "Cases", reader, Reading("mine.xls", [&asked] { return ++asked < 3; }));
  });
  EXPECT_EQ(asked, 3);
  EXPECT_LT(steady_clock::now() - start, milliseconds{5'000});
}

}  // namespace
}  // namespace korva
