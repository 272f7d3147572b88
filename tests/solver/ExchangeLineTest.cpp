#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "ExchangeLine.h"
#include "Status.h"
#include "korvastrond.h"
#include "strond/KORVAStrond2D.h"

namespace korva::laminated {
namespace {

using Line = std::vector<std::string>;

Line GoodLine() {
  return {"0",   "0",   "6",  "1000", "20", "90",  "90",  "4",   "80",  "70.5", "60", "0",     "0",
          "0",   "0",   "0",  "0",    "4",  "900", "800", "700", "150", "140",  "40", "30.25", " 0",
          "0",   "0",   " 0", "0",    "0",  " 0",  "0",   "0",   " 0",  "1",    "0",  "0",     "900",
          "162", "158", "21", "22",   "23", "0",   "0",   "1",   "0",   "50",   "0",  "0",     "0"};
}

std::string Joined(const Line& fields) {
  std::string text;
  for (const std::string& field : fields) {
    text += (&field == fields.data() ? "" : ",") + field;
  }
  return text;
}

int CodeOf(const std::string& text) {
  try {
    ReadExchangeLine(text);
  } catch (const Failure& failure) {
    return failure.Code;
  }
  return KORVASTROND_DONE;
}

int CodeWith(int field, const std::string& value) {
  Line line = GoodLine();
  line.at(static_cast<std::size_t>(field - 1)) = value;
  return CodeOf(Joined(line));
}

// A panel between two gobs, each value another one and none of them refused.
Project WrittenPanel() {
  Project p;
  double value = 5;
  for (double Project::*member :
       {&Project::EntryHeight, &Project::EntryWidth, &Project::SlabcutFirstGob, &Project::SlabcutSecondGob,
        &Project::AbutmentAngleActiveGob, &Project::AbutmentAngleFirstGob, &Project::AbutmentAngleSecondGob,
        &Project::XcutAngle, &Project::XcutSpacing, &Project::BarrierFirstGob, &Project::BarrierSecondGob,
        &Project::ExtentActiveGob, &Project::ExtentFirstGob, &Project::ExtentSecondGob, &Project::DepthCover,
        &Project::CoalStrength, &Project::UnitWeight, &Project::BreadthAMZ}) {
    p.*member = value += 1.5;
  }
  p.NumberEntries = kMaxEntries;
  for (int row = 1; row <= kMaxRows; ++row) {
    p.XcutCenters[row] = 70 + row;
  }
  p.LoadingCondition = PanelLoading{3};
  p.WidthRowC = 47.5F;
  p.WidthRowD = 48.5F;
  return p;
}

void ExpectRefused(const Project& p, const std::string& name) {
  const int code = CodeOf(StrondLine(p, kEnglish));
  EXPECT_EQ(SolverStatusText(code), "it does not support this " + name);
}

// What the program writes of a panel, the solver reads as the same, and refuses by the same name.
TEST(ExchangeLine, TheProgramsFieldsAreTheSolvers) {
  struct Number {
    double Project::*written;
    std::function<double(const Panel&)> read;
    std::string name;
  };
  const std::vector<Number> numbers = {
      {&Project::EntryHeight, &Panel::EntryHeight, "entry height"},
      {&Project::DepthCover, &Panel::DepthCover, "depth of cover"},
      {&Project::EntryWidth, &Panel::EntryWidth, "entry width"},
      {&Project::XcutSpacing, &Panel::XcutSpacing, "crosscut spacing"},
      {&Project::XcutAngle, &Panel::XcutAngle, "crosscut angle"},
      {&Project::ExtentActiveGob, &Panel::ExtentActiveGob, "extent of the active gob"},
      {&Project::ExtentFirstGob, [](auto& p) { return p.Sides[0].Extent; }, "extent of the first side gob"},
      {&Project::ExtentSecondGob, [](auto& p) { return p.Sides[1].Extent; }, "extent of the second side gob"},
      {&Project::BarrierFirstGob, [](auto& p) { return p.Sides[0].Barrier; },
       "barrier of the first side gob"},
      {&Project::BarrierSecondGob, [](auto& p) { return p.Sides[1].Barrier; },
       "barrier of the second side gob"},
      {&Project::SlabcutFirstGob, [](auto& p) { return p.Sides[0].SlabCut; }, "slab cut of the first side"},
      {&Project::SlabcutSecondGob, [](auto& p) { return p.Sides[1].SlabCut; }, "slab cut of the second side"},
      {&Project::CoalStrength, &Panel::CoalStrength, "coal strength"},
      {&Project::UnitWeight, &Panel::UnitWeight, "unit weight"},
      {&Project::BreadthAMZ, &Panel::BreadthAMZ, "breadth of the AMZ"},
      {&Project::AbutmentAngleActiveGob, &Panel::AbutmentAngleActiveGob, "abutment angle of the active gob"},
      {&Project::AbutmentAngleFirstGob, [](auto& p) { return p.Sides[0].AbutmentAngle; },
       "abutment angle of the first side gob"},
      {&Project::AbutmentAngleSecondGob, [](auto& p) { return p.Sides[1].AbutmentAngle; },
       "abutment angle of the second side gob"}};
  const Project good = WrittenPanel();
  const Panel panel = ReadExchangeLine(StrondLine(good, kEnglish));
  for (const Number& number : numbers) {
    EXPECT_EQ(number.read(panel), good.*number.written) << number.name;
    Project bad = good;
    bad.*number.written = -1;
    ExpectRefused(bad, number.name);
  }
  for (int row = 1; row <= kMaxRows; ++row) {
    EXPECT_EQ(panel.Centers.at(static_cast<std::size_t>(row - 1)), good.XcutCenters[row]);
    Project bad = good;
    bad.XcutCenters[row] = 0;
    ExpectRefused(bad, "center-to-center distance #" + std::to_string(row));
  }
  EXPECT_EQ(panel.Entries, good.NumberEntries);
  EXPECT_EQ(panel.LoadCondition, kTwoSideGobs);
  EXPECT_FALSE(panel.Metric);
  EXPECT_TRUE(ReadExchangeLine(StrondLine(good, kMetric)).Metric);
  Project bad = good;
  bad.NumberEntries = 1;
  ExpectRefused(bad, "number of entries");
}

TEST(ExchangeLine, TheProgramsRowsAreTheSolvers) {
  Project p = WrittenPanel();
  p.SlabcutFirstGob = p.SlabcutSecondGob = 0;
  const auto rows = std::to_array({&Project::RowA, &Project::RowB, &Project::RowC, &Project::RowD});
  for (std::size_t row = 0; row < rows.size(); ++row) {
    Project one = p;
    one.*rows.at(row) = 1;
    const Panel panel = ReadExchangeLine(StrondLine(one, kEnglish));
    const std::array<bool, 4> read = {panel.RowA, panel.RowB, panel.Sides[0].BleederRow,
                                      panel.Sides[1].BleederRow};
    for (std::size_t other = 0; other < read.size(); ++other) {
      EXPECT_EQ(read.at(other), other == row) << row << " " << other;
    }
    EXPECT_EQ(panel.Sides[0].BleederWidth, panel.Sides[0].BleederRow ? p.WidthRowC : 0);
    EXPECT_EQ(panel.Sides[1].BleederWidth, panel.Sides[1].BleederRow ? p.WidthRowD : 0);
  }
  p.RowC = p.RowD = 1;
  p.WidthRowD = 0;
  ExpectRefused(p, "width of row D");
  p.WidthRowC = 0;
  ExpectRefused(p, "width of row C");
}

TEST(ExchangeLine, TheFormsFifthConditionIsOneSideGob) {
  Line line = GoodLine();
  line[17] = "5";
  EXPECT_EQ(ReadExchangeLine(Joined(line)).LoadCondition, kOneSideGob);
  line[17] = "1";
  const Panel panel = ReadExchangeLine(Joined(line));
  EXPECT_EQ(panel.LoadCondition, kDevelopmentOnly);
  EXPECT_EQ(panel.ExtentActiveGob, 0);
}

TEST(ExchangeLine, OnlyFiftyTwoNumbersAreALine) {
  const std::string good = Joined(GoodLine());
  EXPECT_EQ(CodeOf(good), KORVASTROND_DONE);
  EXPECT_EQ(CodeOf(""), KORVASTROND_NOT_52_FIELDS);
  EXPECT_EQ(CodeOf(good + ",0"), KORVASTROND_NOT_52_FIELDS);
  EXPECT_EQ(CodeOf(good + "\r\n\r\n"), KORVASTROND_FIELD + 52);
  for (std::size_t length = 0; length + 1 < good.size(); ++length) {
    EXPECT_NE(CodeOf(good.substr(0, length)), KORVASTROND_DONE) << length;
  }
}

TEST(ExchangeLine, AValueThatIsNoNumberNamesItsField) {
  for (const char* bad : {"", "x", "1,5x", "1 2", "0x10", "inf", "nan", "1e999", "+5", "5."}) {
    const int code = CodeWith(4, bad);
    EXPECT_TRUE(code == KORVASTROND_FIELD + 4 || code == KORVASTROND_NOT_52_FIELDS ||
                std::string(bad) == "5.")
        << bad << " " << code;
  }
  EXPECT_EQ(CodeWith(52, std::string("0\0", 2)), KORVASTROND_FIELD + 52);
  EXPECT_EQ(CodeWith(2, "word"), KORVASTROND_FIELD + 2);
}

TEST(ExchangeLine, AValueThatNoPanelCanHaveNamesItsField) {
  const std::vector<std::pair<int, std::string>> bad = {
      {3, "0"},    {3, "-6"},  {4, "10001"}, {5, "0"},    {6, "1e6"}, {6, "0.5"}, {7, "0"},
      {7, "90.1"}, {8, "1"},   {8, "11"},    {8, "4.5"},  {9, "0"},   {18, "0"},  {18, "6"},
      {19, "-1"},  {20, "-1"}, {23, "-1"},   {24, "151"}, {25, "-1"}, {38, "2"},  {39, "0"},
      {40, "-1"},  {41, "0"},  {42, "91"},   {44, "-1"},  {49, "0"}};
  for (const auto& [field, value] : bad) {
    EXPECT_EQ(CodeWith(field, value), KORVASTROND_FIELD + field) << field << " " << value;
  }
  EXPECT_EQ(CodeWith(45, "1"), KORVASTROND_FIELD + 24) << "a slab cut behind a row that stays";
}

TEST(ExchangeLine, WhatTheConditionDoesNotUseOnlyHasToBeANumber) {
  Line line = GoodLine();
  line[17] = "2";
  for (const int field : {20, 21, 22, 23, 24, 25, 43, 44, 49, 50}) {
    line.at(static_cast<std::size_t>(field - 1)) = "-1";
  }
  line[11] = "-7";  // the center behind the last entry
  EXPECT_EQ(CodeOf(Joined(line)), KORVASTROND_DONE);
  line[18] = "-1";
  EXPECT_EQ(CodeOf(Joined(line)), KORVASTROND_FIELD + 19);
}

}  // namespace
}  // namespace korva::laminated
