// Whole workbooks, as LibreOffice writes them; scripts/renew-workbooks makes them anew.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/ExpectError.h"
#include "support/TempFolder.h"
#include "workbook/CaseRow.h"
#include "workbook/ReadSheet.h"

namespace korva {
namespace {

constexpr const char* kOld = KORVA_WORKBOOKS "/cases.xls";
constexpr const char* kNew = KORVA_WORKBOOKS "/cases.xlsx";
constexpr int kLastColumn = 70;

Sheet Read(const std::string& workbook, std::string_view name = "Cases") {
  return ReadSheet(workbook, name, nullptr);
}

std::string Refused(const std::string& workbook, ErrorNumber number = ErrorNumber::kDeviceIo) {
  const std::string detail = ExpectError(number, [&] { Read(workbook); });
  EXPECT_NE(detail.find(workbook), std::string::npos) << detail;
  return detail;
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// Puts `now` in the place of the 16-bit `name`, with the length that the list of streams gives for it.
void RenameStream(std::string& file, std::string_view name, std::string_view now) {
  static constexpr std::size_t kMostName = 64;
  const auto wide = [](std::string_view text) {
    std::string units;
    for (const char c : text) {
      units += {c, '\0'};
    }
    return units;
  };
  const auto at = file.find(wide(name) + std::string(2, '\0'));
  ASSERT_NE(at, std::string::npos);
  std::string entry = wide(now);
  entry.resize(kMostName, '\0');
  file.replace(at, kMostName, entry);
  file[at + kMostName] = static_cast<char>(2 * now.size() + 2);
}

TEST(ReadSheet, GivesWhatTheCellsShow) {
  for (const char* workbook : {kOld, kNew}) {
    SCOPED_TRACE(workbook);
    const Sheet sheet = Read(workbook, "cASES");
    EXPECT_EQ(sheet.At(2, 47).Text, "County");
    EXPECT_EQ(sheet.At(3, 2).Text, "Grüße, 东翼, Ω & <b>");
    EXPECT_EQ(sheet.At(3, 10).Number, 60.1);
    EXPECT_EQ(sheet.At(3, 20).Number, 122) << "a formula";
    EXPECT_EQ(sheet.At(4, 5).Kind, CellKind::kText);
    EXPECT_EQ(sheet.At(4, 5).Text, "700");
    EXPECT_EQ(sheet.At(4, 10).Text, " 60.5 ");
    EXPECT_EQ(sheet.At(5, 20).Text, "deep");
    EXPECT_EQ(sheet.At(5, 22).Kind, CellKind::kError);
    EXPECT_EQ(sheet.At(5, 22).Text, "#DIV/0!");
    EXPECT_EQ(sheet.At(5, 23).Kind, CellKind::kBoolean);
    EXPECT_EQ(sheet.At(5, 23).Text, "TRUE");
    EXPECT_EQ(sheet.At(5, 24).Kind, CellKind::kEmpty) << "a formula that gives an empty text";
    EXPECT_EQ(sheet.At(5, 25).Text, "#N/A");
    EXPECT_EQ(sheet.At(5, 26).Text, "Grüße é") << "a formula";
    EXPECT_EQ(sheet.At(5, 44).Text.size(), 12'500U) << "a text that takes more than one record";
    EXPECT_TRUE(!HoldsCase(sheet, 6) && !HoldsCase(sheet, 7) && !HoldsCase(sheet, 39));
    EXPECT_EQ(sheet.At(8, 5).Number, 1e-7);
    EXPECT_EQ(sheet.At(8, 27).Kind, CellKind::kDate);
    EXPECT_EQ(sheet.At(8, 27).Number, 45351);
    EXPECT_EQ(sheet.At(8, 27).Text, "2024-02-29");
    EXPECT_EQ(sheet.At(8, 28).Text, "1999-12-31T06:30:00");
    EXPECT_EQ(sheet.At(8, 29).Text, "18:15:30");
    EXPECT_EQ(sheet.At(8, 30).Kind, CellKind::kNumber) << "a number with the word days behind it";
    EXPECT_EQ(sheet.At(8, 31).Kind, CellKind::kDate) << "a formula";
    EXPECT_EQ(sheet.At(8, 31).Text, "2031-07-04");
    EXPECT_EQ(sheet.At(40, 61).Number, -1234567);
    EXPECT_EQ(sheet.LastRow(), 40);
    EXPECT_EQ(Read(workbook, "Other").At(2, 1).Number, 42);
    EXPECT_EQ(Read(workbook, "Empty").LastRow(), 0);
    const std::string missing = ExpectError(ErrorNumber::kSubscript, [&] { Read(workbook, "None"); });
    EXPECT_TRUE(Has(missing, workbook) && Has(missing, "\"None\"") && Has(missing, "\"Other\", \"Cases\""))
        << missing;
  }
}

TEST(ReadSheet, GivesTheSameFromBothKinds) {
  static constexpr double kDigitsOfXlsx = 1e-14;  // LibreOffice writes 15 of them
  const Sheet a = Read(kOld);
  const Sheet b = Read(kNew);
  for (int row = 1; row <= 40; ++row) {
    for (int column = 1; column <= kLastColumn; ++column) {
      EXPECT_EQ(a.At(row, column).Kind, b.At(row, column).Kind) << row << ", " << column;
      EXPECT_EQ(a.At(row, column).Text, b.At(row, column).Text) << row << ", " << column;
      const double number = a.At(row, column).Number;
      EXPECT_NEAR(number, b.At(row, column).Number, kDigitsOfXlsx * std::abs(number))
          << row << ", " << column;
    }
  }
  EXPECT_EQ(a.At(8, 10).Number, 1e15 + 0.3) << "of the .xls workbook every bit";
  EXPECT_EQ(a.At(5, 10).Number, 60 + 1 / 3.0);
}

TEST(ReadSheet, ReadsTheTemplate) {
  const Sheet sheet = Read(KORVA_EXAMPLES "/cases.xlsx");
  EXPECT_TRUE(sheet.At(1, 1).Text.starts_with("INVENTED"));
  for (int row = 3; row <= sheet.LastRow(); ++row) {
    EXPECT_EQ(sheet.At(row, 1).Number, row - 2);
    EXPECT_TRUE(sheet.At(row, 2).Text.starts_with("INVENTED"));
    EXPECT_EQ(sheet.At(row, 20).Kind, CellKind::kNumber);
  }
}

// The old workbook with the first `count` of the bytes `from` changed.
std::string Changed(const std::string& from, const std::string& to, int count = 1) {
  std::string bytes = TempFolder::Bytes(kOld);
  for (std::size_t at = 0; count > 0; --count) {
    at = bytes.find(from, at);
    if (at == std::string::npos) {
      ADD_FAILURE() << "no such bytes";
      break;
    }
    bytes.replace(at, from.size(), to);
  }
  return bytes;
}

TEST(ReadSheet, TakesNoFormulaThatAnOldWorkbookWantsCalculated) {
  using namespace std::string_literals;
  const TempFolder folder;
  const std::string calculator = "\xC1\x01\x08\0\xC1\x01\0\0"s;
  const auto read = [&](const std::string& bytes) { return Read(folder.Put("a.xls", bytes)); };
  const std::string asked[] = {
      Changed(calculator + "\x54\x8D\x01\0"s, calculator + "\0\0\0\0"s),
      Changed("\x0C\0\x02\0\x64\0"s, "\x5E\0\x02\0\0\0"s, 3),  // a record of each sheet
  };
  for (const std::string& bytes : asked) {
    const Sheet sheet = read(bytes);
    for (const int column : {10, 20, 22, 23, 24, 25, 26}) {
      EXPECT_EQ(sheet.At(5, column).Kind, CellKind::kNoValue) << column;
    }
    EXPECT_EQ(sheet.At(3, 20).Kind, CellKind::kNoValue);
    EXPECT_EQ(sheet.At(3, 10).Number, 60.1) << "no formula";
  }
  const std::string formula = "\x06\0\x28\0\x02\0\x13\0\x0F\0\0\0\0\0\0\x80\x5E\x40"s;
  const Sheet one = read(Changed(formula + "\0\0"s, formula + "\x03\0"s));
  EXPECT_EQ(one.At(3, 20).Kind, CellKind::kNoValue) << "this formula alone asks for it";
  EXPECT_EQ(one.At(5, 20).Text, "deep");
  const Sheet script = read(Changed(calculator, "\xC2\x01\x08\0\xC1\x01\0\0"s));
  EXPECT_EQ(script.At(5, 24).Kind, CellKind::kNoValue) << "nobody has calculated the empty text";
  EXPECT_EQ(script.At(3, 20).Number, 122);
}

TEST(ReadSheet, RefusesWhatIsNoWorkbook) {
  const TempFolder folder;
  EXPECT_TRUE(Has(Refused(folder.Put("a.xlsx", "")), "not an Excel workbook"));
  Refused(folder.Put("b.xls", "case,name\n1,a\n"));
  const std::string ods =
      "PK\3\4" + std::string(26, '\0') + "mimetypeapplication/vnd.oasis.opendocument.spreadsheetPK\3\4";
  EXPECT_TRUE(Has(Refused(folder.Put("e.ods", ods)), "save it as Excel workbook (.xlsx)"));
  Refused(folder.Put("c.xls", "\xD0\xCF\x11\xE0"));
  Refused(folder / "none.xls", ErrorNumber::kFileNotFound);
  Refused(folder.Put("d.xls", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
}

TEST(ReadSheet, SaysThatAPasswordLocksIt) {
  const TempFolder folder;
  std::string locked = TempFolder::Bytes(kOld);
  RenameStream(locked, "Workbook", "EncryptedPackage");
  EXPECT_TRUE(Has(Refused(folder.Put("new.xlsx", locked)), "password"));
  std::string other = TempFolder::Bytes(kOld);
  RenameStream(other, "Workbook", "WordDocument");
  EXPECT_TRUE(Has(Refused(folder.Put("letter.doc", other)), "not a workbook"));
  locked = TempFolder::Bytes(kOld);
  const auto begin = locked.find(std::string("\x09\x08\x10\0\0\x06\x05\0", 8));
  ASSERT_NE(begin, std::string::npos);
  locked[begin + 20] = '\x2F';  // the record behind the first one becomes that of a password
  locked[begin + 21] = '\0';
  EXPECT_TRUE(Has(Refused(folder.Put("old.xls", locked)), "password"));
}

// Whatever is in the file: cells or a run-time error, and soon.
TEST(ReadSheet, OutlivesDamage) {
  const TempFolder folder;
  std::mt19937 random(5);
  for (const char* workbook : {kOld, kNew}) {
    const std::string whole = TempFolder::Bytes(workbook);
    for (int i = 0; i < 40; ++i) {
      std::string bytes = whole;
      if (i % 4 == 0) {
        bytes.resize(random() % whole.size());
      }
      for (int j = 0; j < 20 && bytes.size() > 8; ++j) {
        bytes[8 + random() % (bytes.size() - 8)] = static_cast<char>(random());
      }
      try {
        Read(folder.Put("damaged", bytes));
      } catch (const RuntimeError& error) {
        EXPECT_FALSE(error.Detail().empty());
      }
    }
  }
}

}  // namespace
}  // namespace korva
