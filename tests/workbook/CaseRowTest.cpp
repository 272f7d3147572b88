#include <gtest/gtest.h>

#include "support/ExpectError.h"
#include "workbook/CaseRow.h"

namespace korva {
namespace {

void Number(Sheet& sheet, int column, double value) {
  sheet.Set(7, column, {CellKind::kNumber, value, {}});
}

void Text(Sheet& sheet, int column, const std::string& text) {
  sheet.Set(7, column, {CellKind::kText, 0, text});
}

// A case in row 7 whose every number is 100 and its column, but for what decides about others.
Sheet FullCase() {
  Sheet sheet;
  Number(sheet, 1, 12);
  Text(sheet, 2, "No. 4");
  Text(sheet, 3, "Invented Mine");
  for (int column = 4; column <= 33; ++column) {
    Number(sheet, column, 100 + column);
  }
  Number(sheet, 9, 3);
  Number(sheet, 21, 4);
  Text(sheet, 44, "Seam");
  Number(sheet, 45, 4600001);
  Text(sheet, 46, "State");
  Text(sheet, 47, "County");
  return sheet;
}

StoredProject Empty() {
  StoredProject empty;
  empty.ProjectInput.LoadingConditionAux = 5;
  return empty;
}

Project Panel(const Sheet& sheet) {
  return ReadCase(sheet, 7, Empty()).Stored.ProjectInput;
}

TEST(ReadCase, TakesEveryColumn) {
  const CaseProject read = ReadCase(FullCase(), 7, Empty());
  Project expected = Empty().ProjectInput;
  std::tie(expected.EntryHeight, expected.DepthCover, expected.EntryWidth, expected.XcutSpacing,
           expected.XcutAngle, expected.NumberEntries) = std::tuple(104, 105, 106, 107, 108, 3);
  std::tie(expected.XcutCenters[1], expected.XcutCenters[2]) = std::tuple(110, 111);
  std::tie(expected.BreadthAMZ, expected.LoadingCondition) = std::tuple(120, PanelLoading::kWithBothSideGobs);
  std::tie(expected.ExtentActiveGob, expected.ExtentFirstGob, expected.ExtentSecondGob) =
      std::tuple(122, 123, 124);
  std::tie(expected.BarrierFirstGob, expected.BarrierSecondGob) = std::tuple(125, 126);
  std::tie(expected.SlabcutFirstGob, expected.SlabcutSecondGob) = std::tuple(127, 128);
  std::tie(expected.AbutmentAngleActiveGob, expected.AbutmentAngleFirstGob, expected.AbutmentAngleSecondGob) =
      std::tuple(129, 130, 131);
  std::tie(expected.CoalStrength, expected.UnitWeight) = std::tuple(132, 133);
  EXPECT_EQ(read.Stored.ProjectInput, expected);
  EXPECT_EQ(read.Number, "012");
  EXPECT_EQ(read.Stored.ProjectTitle, "Invented Mine");
  EXPECT_EQ(read.Stored.ProjectDescription,
            "Data Import from KORVA Database Excel file, row: 7\r\n"
            "Mine Name: Invented Mine, Case Name: No. 4\r\n"
            "Seam: Seam, State/County: State/County\r\nMSHA ID:4600001");
}

TEST(ReadCase, CellsOfOtherKinds) {
  Sheet sheet = FullCase();
  Text(sheet, 5, " 1.5e3 ");
  Text(sheet, 1, "7");
  Text(sheet, 3, "Two\nlines");
  sheet.Set(7, 2, {CellKind::kDate, 37014, "2001-05-03"});
  const CaseProject read = ReadCase(sheet, 7, Empty());
  EXPECT_EQ(read.Stored.ProjectInput.DepthCover, 1500);
  EXPECT_EQ(read.Number, "007");
  EXPECT_EQ(read.Stored.ProjectTitle, "Two lines");
  EXPECT_NE(read.Stored.ProjectDescription.find("Case Name: 2001-05-03"), std::string::npos);

  // An empty row is a case without anything.
  const CaseProject nothing = ReadCase(sheet, 8, Empty());
  EXPECT_EQ(nothing.Number, "000");
  EXPECT_EQ(nothing.Stored.ProjectInput.NumberEntries, 1);
  EXPECT_EQ(nothing.Stored.ProjectInput.XcutCenters[1], 0);
  EXPECT_EQ(nothing.Stored.ProjectInput.LoadingCondition, PanelLoading{0});
  EXPECT_FALSE(HoldsCase(sheet, 8));
  sheet.Set(8, 48, {CellKind::kText, 0, "a note"});
  EXPECT_FALSE(HoldsCase(sheet, 8));
  EXPECT_TRUE(HoldsCase(sheet, 7));

  Number(sheet, 21, 2.5);  // no code
  EXPECT_EQ(Panel(sheet).LoadingCondition, PanelLoading{0});
}

TEST(ReadCase, ACellThatCannotBeTakenIsNamed) {
  const struct {
    int Column;
    Cell Value;
    ErrorNumber Number;
    const char* Cause;
  } faults[] = {
      {5, {CellKind::kText, 0, "12,5"}, ErrorNumber::kTypeMismatch, "column 5 (E): \"12,5\" is not a number"},
      {32, {CellKind::kText, 0, ""}, ErrorNumber::kTypeMismatch, "column 32 (AF): \"\" is not a number"},
      {4, {CellKind::kDate, 37014, "2001-05-03"}, ErrorNumber::kTypeMismatch, "2001-05-03 is a date"},
      {11, {CellKind::kBoolean, 0, "TRUE"}, ErrorNumber::kTypeMismatch, "TRUE is a boolean value"},
      {20, {CellKind::kError, 0, "#DIV/0!"}, ErrorNumber::kTypeMismatch, "#DIV/0! is an error value"},
      {3, {CellKind::kError, 0, "#REF!"}, ErrorNumber::kTypeMismatch, "column 3 (C): #REF!"},
      {33,
       {CellKind::kNoValue, 0, ""},
       ErrorNumber::kTypeMismatch,
       "column 33 (AG): a formula that is still to be calculated; open"},
      {9, {CellKind::kNumber, 11, ""}, ErrorNumber::kSubscript, "11 entries, of at most 10"},
      {9, {CellKind::kNumber, 4e4, ""}, ErrorNumber::kOverflow, "40000 is out of range"},
      {5, {CellKind::kText, 0, "1e999"}, ErrorNumber::kOverflow, "\"1e999\" is out of range"},
      {5,
       {CellKind::kNumber, 1e300, ""},
       ErrorNumber::kOverflow,
       "column 5 (E): with 1E+300 the panel has no"},
      {11,
       {CellKind::kNumber, -5000, ""},
       ErrorNumber::kInvalidCall,
       "column 11 (K): with -5000 the panel has no"},
      {6, {CellKind::kText, 0, std::string(50, 'x')}, ErrorNumber::kTypeMismatch, "xx...\" is not a number"},
  };
  for (const auto& fault : faults) {
    Sheet sheet = FullCase();
    sheet.Set(7, fault.Column, fault.Value);
    const std::string detail = ExpectError(fault.Number, [&] { Panel(sheet); });
    EXPECT_TRUE(detail.starts_with("sheet \"Cases\", row 7, column ")) << detail;
    EXPECT_NE(detail.find(fault.Cause), detail.npos) << detail;
  }
  Sheet all = FullCase();
  for (const int column : {3, 5, 10, 12, 31}) {  // the twelfth is no spacing of three entries
    all.Set(7, column, {CellKind::kNoValue, 0, {}});
  }
  EXPECT_TRUE(
      ExpectError(ErrorNumber::kTypeMismatch, [&] {
        Panel(all);
      }).starts_with("sheet \"Cases\", row 7, columns 3 (C), 5 (E), 10 (J), 31 (AE): formulas that are"));
  Sheet unused = FullCase();
  Text(unused, 12, "beyond the entries");
  Text(unused, 34, "no column of a case");
  EXPECT_EQ(Panel(unused).NumberEntries, 3);
}

TEST(ReadCase, ArchFactorIsNotRounded) {
  const auto arch = [](double depth, double width) {
    Sheet sheet = FullCase();
    Number(sheet, 5, depth);
    Number(sheet, 10, width);
    Number(sheet, 11, 0);
    return Panel(sheet).ArchFactor;
  };
  EXPECT_EQ(arch(1000, 480), 0.79448863F);  // 1 - 0.28 ln(1000 / 480)
  EXPECT_EQ(arch(560, 480), 0.95683781F);   // 80 ft deeper than wide
  EXPECT_EQ(arch(559, 480), 1);
  EXPECT_EQ(arch(9000, 480), 0.28F);
  EXPECT_EQ(arch(9000, 0), 1);
}

}  // namespace
}  // namespace korva
