#include <gtest/gtest.h>

#include "support/ExpectError.h"
#include "workbook/XlsLines.h"

namespace korva {
namespace {

const Reading kReading("mine.xls", nullptr);

Sheet Cells(const std::string& lines) {
  return ParseXlsCells("korva-xls 1\n" + lines, kReading);
}

TEST(ParseXlsCells, KeepsKindsTextsAndBits) {
  const Sheet sheet = Cells(
      "n 1 1 5e-324\nn 1 2 60.333333333333336\nt 1 3 a\\nb\\r\\\\n 東\nd 2 1 45351 2024-02-29\nb 2 2 1\n"
      "e 2 3 #N/A\nv 2 4 \nt 1048576 16384 end 9\nend 8\n");
  EXPECT_EQ(sheet.At(1, 1).Number, 5e-324);
  EXPECT_EQ(sheet.At(1, 2).Number, 60.333333333333336);
  EXPECT_EQ(sheet.At(1, 3).Text, "a\nb\r\\n 東");
  EXPECT_EQ(sheet.At(2, 1).Kind, CellKind::kDate);
  EXPECT_EQ(sheet.At(2, 1).Number, 45351);
  EXPECT_EQ(sheet.At(2, 1).Text, "2024-02-29");
  EXPECT_EQ(sheet.At(2, 2).Text, "TRUE");
  EXPECT_EQ(sheet.At(2, 3).Kind, CellKind::kError);
  EXPECT_EQ(sheet.At(2, 4).Kind, CellKind::kNoValue);
  EXPECT_EQ(sheet.At(1048576, 16384).Text, "end 9");
  EXPECT_EQ(Cells("end 0\n").LastRow(), 0);
}

TEST(ParseXlsCells, RefusesWhatIsNotWholeOrOfAnotherForm) {
  for (const char* lines : {"",
                            "n 1 1 1\n",
                            "n 1 1 1\nend 1",
                            "n 1 1 1\nend 2\n",
                            "n 1 1 1\nend 1\nend 1\n",
                            "end -1\n",
                            "end 0 \n",
                            "n 1 1 nan\nend 1\n",
                            "n 1 1 inf\nend 1\n",
                            "n 1 1 1x\nend 1\n",
                            "n 1 1 \nend 1\n",
                            "n 1 1\nend 1\n",
                            "n 0 1 1\nend 1\n",
                            "n 1 16385 1\nend 1\n",
                            "n 1048577 1 1\nend 1\n",
                            "n -1 1 1\nend 1\n",
                            "n 99999999999 1 1\nend 1\n",
                            "nn 1 1 1\nend 1\n",
                            "x 1 1 1\nend 1\n",
                            " 1 1 1\nend 1\n",
                            "b 1 1 2\nend 1\n",
                            "d 1 1 2\nend 1\n",
                            "v 1 1 2\nend 1\n",
                            "t 1 1 a\\x\nend 1\n",
                            "t 1 1 a\\\nend 1\n",
                            "t 1 1 \xFF\nend 1\n",
                            "n 1 1 1\nn 1 1 2\nend 2\n",
                            "s Cases\nend 1\n",
                            "\nend 1\n"}) {
    ExpectError(ErrorNumber::kDeviceIo, [&] {
      Cells(lines);
      ADD_FAILURE() << lines;
    });
  }
  ExpectError(ErrorNumber::kDeviceIo, [] { ParseXlsCells("korva-xls 2\nend 0\n", kReading); });
}

TEST(ParseXlsSheetNames, TakesNamesOnly) {
  const auto names = ParseXlsSheetNames("korva-xls 1\ns Other sheet\ns a\\\\b\nend 2\n", kReading);
  EXPECT_EQ(names, (std::vector<std::string>{"Other sheet", "a\\b"}));
  ExpectError(ErrorNumber::kDeviceIo, [] { ParseXlsSheetNames("korva-xls 1\nn 1 1 1\nend 1\n", kReading); });
}

}  // namespace
}  // namespace korva
