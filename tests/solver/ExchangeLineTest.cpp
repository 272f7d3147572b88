#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ExchangeLine.h"
#include "Status.h"
#include "korvastrond.h"

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

TEST(ExchangeLine, EveryFieldFindsItsPlace) {
  const Panel panel = ReadExchangeLine(Joined(GoodLine()) + "\r\n");
  EXPECT_EQ(panel.EntryHeight, 6);
  EXPECT_EQ(panel.DepthCover, 1000);
  EXPECT_EQ(panel.EntryWidth, 20);
  EXPECT_EQ(panel.XcutSpacing, 90);
  EXPECT_EQ(panel.Rows(), 3);
  EXPECT_EQ(panel.Centers[1], 70.5);
  EXPECT_EQ(panel.LoadCondition, kTwoSideGobs);
  EXPECT_EQ(panel.ExtentActiveGob, 900);
  EXPECT_EQ(panel.Sides[0].Extent, 800);
  EXPECT_EQ(panel.Sides[1].Extent, 700);
  EXPECT_EQ(panel.Sides[0].Barrier, 150);
  EXPECT_EQ(panel.Sides[1].Barrier, 140);
  EXPECT_EQ(panel.Sides[1].SlabCut, 30.25);
  EXPECT_EQ(panel.CoalStrength, 900);
  EXPECT_EQ(panel.UnitWeight, 162);
  EXPECT_EQ(panel.BreadthAMZ, 158);
  EXPECT_EQ(panel.AbutmentAngleActiveGob, 21);
  EXPECT_EQ(panel.Sides[0].AbutmentAngle, 22);
  EXPECT_EQ(panel.Sides[1].AbutmentAngle, 23);
  EXPECT_TRUE(panel.Sides[0].BleederRow);
  EXPECT_EQ(panel.Sides[0].BleederWidth, 50);
  EXPECT_FALSE(panel.Sides[1].BleederRow);
  EXPECT_FALSE(panel.Metric);
  EXPECT_FALSE(panel.RowA);
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
