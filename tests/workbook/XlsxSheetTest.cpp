#include <gtest/gtest.h>

#include "support/ExpectError.h"
#include "support/Workbooks.h"
#include "workbook/CaseRow.h"
#include "workbook/XlsxSheet.h"

namespace korva {
namespace {

using test::BookOf;
using test::BookParts;
using test::ZipEntry;

Sheet Read(const std::string& bytes, std::string_view name = "Cases") {
  return ReadXlsxSheet(bytes, name, Reading("mine.xlsx", nullptr));
}

// The sheet of these rows, with four shared strings and a style 1 of dates, 2 of times, and 3 of plain
// numbers.
BookParts Book(const std::string& rows) {
  BookParts parts;
  parts.Sheet = "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
  parts.SharedStrings =
      R"(<sst><si><t>plain</t></si><si><r><rPr><b/></rPr><t xml:space="preserve">rich </t></r><r><t>text</t></r>)"
      R"(<rPh sb="0" eb="1"><t>reading</t></rPh></si><si><t> cut </t></si><si><t/></si></sst>)";
  parts.Styles =
      R"(<styleSheet><numFmts><numFmt numFmtId="170" formatCode="[$-409]d/mmm;@"/>)"
      R"(<numFmt numFmtId="171" formatCode="0.0&quot; days&quot;"/></numFmts><cellStyleXfs><xf numFmtId="14"/>)"
      R"(</cellStyleXfs><cellXfs><xf numFmtId="0"/><xf numFmtId="170"/><xf numFmtId="20"/><xf numFmtId="171"/>)"
      R"(</cellXfs></styleSheet>)";
  return parts;
}

Sheet Rows(const std::string& rows) {
  return Read(BookOf(Book(rows)));
}

Cell One(const std::string& cell) {
  return Rows("<row>" + cell + "</row>").At(1, 1);
}

std::string Refused(const std::string& bytes, ErrorNumber number = ErrorNumber::kDeviceIo) {
  return ExpectError(number, [&] { Read(bytes); });
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

TEST(ReadXlsxSheet, TellsTheKindsOfCells) {
  struct Row {
    const char* xml;
    CellKind kind;
    double number;
    const char* text;
  };
  static constexpr Row kRows[] = {
      {"<c><v>60.333333333333336</v></c>", CellKind::kNumber, 60.333333333333336, ""},
      {"<c t='n'><v> -1E-7\n</v></c>", CellKind::kNumber, -1e-7, ""},
      {"<c s='3'><v>45351</v></c>", CellKind::kNumber, 45351, ""},
      {"<c s='1'><v>45351</v></c>", CellKind::kDate, 45351, "2024-02-29"},
      {"<c s='1'><v>60</v></c>", CellKind::kDate, 60, "1900-02-29"},
      {"<c s='2'><f>A9</f><v>0.25</v></c>", CellKind::kDate, 0.25, "06:00:00"},
      {"<c s='1'><v>-5</v></c>", CellKind::kNumber, -5, ""},
      {"<c s='99'><v>5</v></c>", CellKind::kNumber, 5, ""},
      {"<c t='d'><v>2024-02-29T00:00:00Z</v></c>", CellKind::kDate, 0, "2024-02-29T00:00:00Z"},
      {"<c t='s'><v>0</v></c>", CellKind::kText, 0, "plain"},
      {"<c t='s'><v>1</v></c>", CellKind::kText, 0, "rich text"},
      {"<c t='s'><v>2</v></c>", CellKind::kText, 0, "cut"},
      {"<c t='s'><v>3</v></c>", CellKind::kEmpty, 0, ""},
      {"<c t='str'><f>A9</f><v>a_x000D_b _x6771__x0041 _xD83D__xDE00__xD83D__x0000_</v></c>", CellKind::kText,
       0, "a\rb 東_x0041 \U0001F600\uFFFD\uFFFD"},
      {"<c t='str'><f>A9</f><v></v></c>", CellKind::kEmpty, 0, ""},
      {"<c t='inlineStr'><is><t>in <![CDATA[<line>]]> &amp; &#x6771;</t></is></c>", CellKind::kText, 0,
       "in <line> & 東"},
      {"<c t='b'><v>1</v></c>", CellKind::kBoolean, 0, "TRUE"},
      {"<c t='b'><f>A9</f><v>0</v></c>", CellKind::kBoolean, 0, "FALSE"},
      {"<c t='e'><f>1/0</f><v>#DIV/0!</v></c>", CellKind::kError, 0, "#DIV/0!"},
      {"<c><f>A9</f></c>", CellKind::kNoValue, 0, ""},
      {"<c t='str'><f>A9</f></c>", CellKind::kNoValue, 0, ""},
      {"<c><f>A9</f><v/></c>", CellKind::kNoValue, 0, ""},
      {"<c s='1'/>", CellKind::kEmpty, 0, ""},
      {"<c t='s'/>", CellKind::kEmpty, 0, ""},
  };
  for (const Row& row : kRows) {
    const Cell cell = One(row.xml);
    EXPECT_EQ(cell.Kind, row.kind) << row.xml;
    EXPECT_EQ(cell.Number, row.number) << row.xml;
    EXPECT_EQ(cell.Text, row.text) << row.xml;
  }
}

TEST(ReadXlsxSheet, TakesNoFormulaOfABookThatIsToBeCalculated) {
  BookParts parts = Book(
      "<row r='3'><c><v>1</v></c><c><f>A9</f><v>0</v></c><c t='str'><f>A9</f><v>a</v></c>"
      "<c><f t='shared' ref='D3:D9' si='0'>A9</f><v>0</v></c><c><f t='array' ref='E3:F4'>A9:B10</f><v>0</v></c>"
      "<c><v>0</v></c><c><v>7</v></c></row>"
      "<row r='4'><c r='D4'><v>4</v></c><c><v>0</v></c><c><v>0</v></c><c><v>7</v></c></row>"
      "<row r='5'><c r='E5'><v>5</v></c></row>");
  const auto workbook = [](const char* attribute) {
    return R"(<workbook><sheets><sheet name="Cases" sheetId="1" r:id="s1"/></sheets><calcPr calcId="124519" )" +
           std::string(attribute) + "/></workbook>";
  };
  for (const char* attribute : {"fullCalcOnLoad='1'", "fullCalcOnLoad='true'"}) {
    parts.Workbook = workbook(attribute);
    const Sheet sheet = Read(BookOf(parts));
    for (const int column : {2, 3, 4, 5, 6}) {
      EXPECT_EQ(sheet.At(3, column).Kind, CellKind::kNoValue) << column;
    }
    EXPECT_EQ(sheet.At(4, 5).Kind, CellKind::kNoValue) << "of the formula above";
    EXPECT_EQ(sheet.At(4, 6).Kind, CellKind::kNoValue) << "likewise";
    EXPECT_EQ(std::tuple(sheet.At(3, 1).Number, sheet.At(3, 7).Number), std::tuple(1, 7));
    EXPECT_EQ(std::tuple(sheet.At(4, 4).Number, sheet.At(4, 7).Number, sheet.At(5, 5).Number),
              std::tuple(4, 7, 5));
  }
  for (const char* attribute : {"", "fullCalcOnLoad='0'", "calcMode='auto'"}) {
    parts.Workbook = workbook(attribute);
    EXPECT_EQ(Read(BookOf(parts)).At(3, 3).Text, "a");
  }
  const auto end = parts.Sheet.find("</worksheet>");
  parts.Sheet.insert(end, "<sheetCalcPr fullCalcOnLoad='1'/>");
  EXPECT_EQ(Read(BookOf(parts)).At(3, 2).Kind, CellKind::kNoValue) << "the sheet alone asks for it";
}

TEST(ReadXlsxSheet, PlacesCellsByNameOrInTurn) {
  const Sheet sheet = Rows(
      "<row><c><v>1</v></c><c><v>2</v></c><c r='XFD1'><v>3</v></c></row>"
      "<row r='1048576'><c r='aa1048576'><v>4</v></c><c><v>5</v></c></row><row r='7' ht='3'/><row><c/></row>");
  EXPECT_EQ(sheet.At(1, 1).Number, 1);
  EXPECT_EQ(sheet.At(1, 2).Number, 2);
  EXPECT_EQ(sheet.At(1, 16384).Number, 3);
  EXPECT_EQ(sheet.At(1048576, 27).Number, 4);
  EXPECT_EQ(sheet.At(1048576, 28).Number, 5);
  EXPECT_TRUE(!HoldsCase(sheet, 7) && !HoldsCase(sheet, 8));
}

TEST(ReadXlsxSheet, FollowsLinksAndForeignPrefixes) {
  BookParts parts = Book("");
  parts.Workbook =
      R"(<x:workbook xmlns:x="m" xmlns:q="r"><x:workbookPr date1904="true"/><x:sheets>)"
      R"(<x:sheet name="Other" sheetId="1" q:id="s9"/><x:sheet name="Fälle A" sheetId="2" q:id="s1"/></x:sheets></x:workbook>)";
  parts.Sheet =
      R"(<x:worksheet xmlns:x="m"><x:sheetData><x:row r="2"><x:c r="B2" s="1"><x:v>1</x:v></x:c></x:row></x:sheetData></x:worksheet>)";
  EXPECT_EQ(Read(BookOf(parts), "FälLE a").At(2, 2).Text, "1904-01-02");
  const std::string missing = ExpectError(ErrorNumber::kSubscript, [&] { Read(BookOf(parts), "Cases"); });
  for (const char* named : {"mine.xlsx", "\"Cases\"", "\"Other\", \"Fälle A\""}) {
    EXPECT_TRUE(Has(missing, named)) << missing;
  }
  EXPECT_TRUE(Has(ExpectError(ErrorNumber::kDeviceIo, [&] { Read(BookOf(parts), "other"); }), "\"other\""))
      << "no link leads to it";
  parts = Book("<row><c><v>1</v></c></row>");
  for (const char* part : {"sharedStrings", "styles"}) {
    parts.Links.replace(parts.Links.find(std::string("x/") + part), 3, "x/u");  // of no known kind
  }
  EXPECT_EQ(Read(BookOf(parts)).At(1, 1).Number, 1);
}

TEST(ReadXlsxSheet, NamesTheCellThatIsDamaged) {
  const std::pair<const char*, const char*> cases[] = {
      {"<row><c><v>1x</v></c></row>", "A1"},
      {"<row><c><v>nan</v></c></row>", "A1"},
      {"<row><c><v>1e400</v></c></row>", "A1"},
      {"<row><c><v>0x10</v></c></row>", "A1"},
      {"<row r='3'><c r='C3' t='s'><v>4</v></c></row>", "C3"},
      {"<row r='3'><c r='C3' t='s'><v>-1</v></c></row>", "C3"},
      {"<row><c t='b'><v>2</v></c></row>", "A1"},
      {"<row><c t='d'><v>tomorrow</v></c></row>", "tomorrow"},
      {"<row><c t='z'><v>2</v></c></row>", "\"z\""},
      {"<row><c t='str'><v>\xFF</v></c></row>", "A1"},
      {"<row><c t='\xFF'><v>1</v></c></row>", "\"ÿ\""},
      {"<row><c t='str'><v>a&#xD800;</v></c></row>", "A1"},
      {"<row r='2'><c r='B2'><v>1</v></c><c r='B2'><v>1</v></c></row>", "B2 appears twice"},
      {"<row r='2'><c r='B3'><v>1</v></c></row>", "\"B3\""},
      {"<row><c r='XFE1'><v>1</v></c></row>", "XFE1"},
      {"<row><c r='XFD1'/><c><v>1</v></c></row>", "16385"},
      {"<row r='0'/>", "\"0\""},
      {"<row r='1048577'/>", "1048577"},
      {"<row r='99999999999'/>", "99999999999"},
      {"<row><c r=''><v>1</v></c></row>", "row 1"},
  };
  for (const auto& [rows, named] : cases) {
    const std::string detail = Refused(BookOf(Book(rows)));
    EXPECT_TRUE(Has(detail, named) && Has(detail, "mine.xlsx")) << rows << ": " << detail;
  }
}

TEST(ReadXlsxSheet, RefusesBrokenPartsAndZips) {
  const std::string whole = BookOf(Book("<row><c t='s'><v>1</v></c></row>"));
  static constexpr std::size_t kLastZeros =
      4;  // bytes that are missing there are taken for the zeros that they were
  for (std::size_t size = 0; size < whole.size() - kLastZeros; size += 7) {
    SCOPED_TRACE(size);
    Refused(whole.substr(0, size));
  }
  std::string flipped = whole;
  flipped[flipped.find("<v>1</v>") + 3] = '2';
  EXPECT_TRUE(Has(Refused(flipped), "xl/sheet.xml")) << "its checksum is another";
  for (std::string BookParts::*part : {&BookParts::Workbook, &BookParts::Links, &BookParts::Sheet,
                                       &BookParts::SharedStrings, &BookParts::Styles}) {
    for (const char* broken : {"", "<", "<other/>", "<a><b></a>", "\xFF\xFE<"}) {
      SCOPED_TRACE(broken);
      BookParts parts = Book("");
      parts.*part = broken;
      Refused(BookOf(parts));
    }
  }
  EXPECT_TRUE(Has(Refused(test::ZipOf({test::Stored("content.xml", "<a/>")})), "not a workbook"));
  BookParts binary;
  binary.RootLinks.replace(binary.RootLinks.find(".xml"), 4, ".bin");
  EXPECT_TRUE(Has(Refused(BookOf(binary)), ".xlsb"));
  std::vector<ZipEntry> twice = test::EntriesOf({});
  twice.push_back(test::Stored("XL/SHEET.XML", "<worksheet/>"));
  EXPECT_TRUE(Has(Refused(test::ZipOf(twice)), "twice"));
  std::vector<ZipEntry> locked = test::EntriesOf({});
  locked[0].Flags = 1;
  EXPECT_TRUE(Has(Refused(test::ZipOf(locked)), "password"));
}

TEST(ReadXlsxSheet, BoundsWhatUnpacks) {
  std::vector<ZipEntry> bomb = test::EntriesOf({});
  const std::string zeros = test::DeflatedZeros(128);  // 2 GiB
  ZipEntry& sheet = bomb.back();
  sheet = {sheet.Name, zeros, true, 0, 0x80000000U, 0};
  EXPECT_TRUE(Has(Refused(test::ZipOf(bomb), ErrorNumber::kOutOfMemory), "2147483648"));
  for (const std::uint32_t declared : {0U, 100U, 32U << 20U}) {
    sheet.Size = declared;
    EXPECT_TRUE(Has(Refused(test::ZipOf(bomb)), "xl/sheet.xml")) << declared;
  }
  sheet.Packed = test::DeflatedZeros(1);  // half of the largest part, which is said to be whole
  Refused(test::ZipOf(bomb));
  std::vector<ZipEntry> many(5000, test::Stored("a", ""));
  EXPECT_TRUE(Has(Refused(test::ZipOf(many)), "4096 parts"));
}

// Small files that ask for much memory: elements of nothing, and one text in very many cells.
TEST(ReadXlsxSheet, BoundsWhatIsMadeOfIt) {
  std::string rows;
  for (int i = 0; i < 3'100'000; ++i) {
    rows += "<a b=''/>";
  }
  Refused(BookOf(Book(rows)), ErrorNumber::kOutOfMemory);
  BookParts parts = Book("<row>");
  parts.SharedStrings = "<sst><si><t>" + std::string(1'000'000, 'a') + "</t></si></sst>";
  parts.Sheet.resize(parts.Sheet.find("<row>") + 5);
  for (int i = 0; i < 100; ++i) {
    parts.Sheet += "<c t='s'><v>0</v></c>";
  }
  parts.Sheet += "</row></sheetData></worksheet>";
  Refused(BookOf(parts), ErrorNumber::kOutOfMemory);
}

TEST(ReadXlsxSheet, EndsWhenAsked) {
  std::string cells;
  for (int i = 0; i < 16'000; ++i) {
    cells += "<c><v>1</v></c>";
  }
  const std::string bytes = BookOf(Book("<row>" + cells + "</row>"));
  int most = 0;
  ReadXlsxSheet(bytes, "Cases", Reading("mine.xlsx", [&most] { return ++most > 0; }));
  EXPECT_GT(most, 10);
  for (int last = 1; last <= most; ++last) {
    int asked = 0;
    ExpectError(ErrorNumber::kDialogCancelled,
                [&] { ReadXlsxSheet(bytes, "Cases", Reading("mine.xlsx", [&] { return ++asked < last; })); });
    EXPECT_EQ(asked, last);
  }
}

}  // namespace
}  // namespace korva
