// The files that the program and the solver library exchange.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "strond/KORVAStrond2D.h"
#include "support/ExpectError.h"
#include "support/Panels.h"

namespace korva {
namespace {

StrondPlace Place(int iOptDir) {
  return {SolverFolder{iOptDir}, "/opt/korva/bin", "/tmp/", "", "/home/u/Documents/MyFolvane/Temp/"};
}

TEST(StrondPaths, FollowTheChoiceOfTheFolder) {
  struct Row {
    int choice;
    std::string input, output, result;
  };
  const std::string docs = "/home/u/Documents/MyFolvane/Temp/";
  for (const Row& row : {Row{0, "/opt/korva/bin/panel/panel.KVSD", "/opt/korva/bin/panel/panel.OUT",
                             "/opt/korva/bin/panel_KVSD..CSV"},
                         Row{1, "/tmp//panel/panel.KVSD", "/tmp/panel/panel.OUT", "/tmp/panel_KVSD.CSV"},
                         Row{2, "/panel/panel.KVSD", "/panel/panel.OUT", "/panel_KVSD.CSV"},
                         Row{3, docs + "panel.KVSD", docs + "panel/panel.OUT", docs + "panel_KVSD.CSV"},
                         Row{4, "", "", ""}, Row{-1, "", "", ""}}) {
    EXPECT_EQ(StrondInputPath("/mines/panel.KVL", ".KVSD", Place(row.choice)), row.input);
    EXPECT_EQ(StrondOutputPath("/mines/panel.KVL", ".OUT", Place(row.choice)), row.output);
    EXPECT_EQ(StrondResultPath("/mines/panel.KVL", ".CSV", Place(row.choice)), row.result);
  }
}

TEST(StrondPaths, TheStemEndsAtTheFirstPoint) {
  for (const auto& [project, stem] : {std::pair{"C:\\mine\\a.b.KVL", "a"}, std::pair{"panel", "panel"},
                                      std::pair{".hidden.KVL", ".hidden.KVL"}, std::pair{"", ""}}) {
    EXPECT_EQ(StrondResultPath(project, ".CSV", Place(2)), "/" + std::string(stem) + "_KVSD.CSV") << project;
  }
}

TEST(StrondPaths, ComeFromTheProgramsFolders) {
  Folders folders;
  folders.AppPath = "/usr/bin/";
  folders.SystemTempFolder = "/var/tmp/";
  folders.TempRoot = "/home/u/MyFolvane/Temp/";
  const StrondPlace place = StrondPlaceOf(folders, SolverFolder::kApplication);
  EXPECT_EQ(place.App, "/usr/bin");
  EXPECT_EQ(place.Tmp, "/var/tmp/");
  EXPECT_EQ(place.Docs, "/home/u/MyFolvane/Temp/");
}

// That each value stands in its own field, the solver's reader is asked.
TEST(StrondLine, HasItsFiftyTwoFieldsAsTheyAreWritten) {
  Project p = test::TwoSideGobs();
  p.XcutSpacing = 90.25;
  p.XcutCenters[9] = 79;  // all nine, whatever the number of entries is
  p.RowA = p.RowD = 1;
  p.WidthRowC = 12.34F;
  p.WidthRowD = 0.1F;
  const std::string line = StrondLine(p, kMetric);
  EXPECT_EQ(
      line,
      "0,0,6,900,20,90.25,90,6,60,60,60,60,60,0,0,0,79,4,1000,1000,500,60,25,20,0, 0,0,0, 0,0,0, 0,0,0, "
      "0,1,0,1,900,162,150,21,21,21,1,0,0,1,12.34,0.1,0,0\r\n");
  EXPECT_EQ(std::count(line.begin(), line.end(), ','), 51);
}

// A result file whose items are their numbers.
std::string NumberedResult(int items = 44) {
  std::string text = "heading, with, commas\r\n";
  for (int item = 1; item <= items; ++item) {
    text += std::to_string(item) + (item % 7 == 0 ? "\r\n" : item < items ? "," : "\n");
  }
  return text;
}

TEST(ReadStrondResults, EveryItemFindsItsPlace) {
  const StrondResults r = ReadStrondResults(NumberedResult(), "panel_KVSD.CSV");
  EXPECT_EQ(r.StrondSF[0], 10);
  EXPECT_EQ(r.StrondSF[1], 11);
  EXPECT_EQ(r.StrondBarrierSF[0][0], 12);
  EXPECT_EQ(r.StrondBarrierSF[1][0], 13);
  EXPECT_EQ(r.StrondBarrierSF[0][1], 14);
  EXPECT_EQ(r.StrondRemnantSF[1][0], 17);
  EXPECT_EQ(r.StrondRemnantSF[1][1], 19);
  EXPECT_EQ(r.StrondPillarStrength[0], 20);
  EXPECT_EQ(r.StrondPillarStrength[8], 28);
  EXPECT_EQ(r.StrondBarrierData[0][0], 29);
  EXPECT_EQ(r.StrondBarrierData[1][3], 36);
  EXPECT_EQ(r.StrondRemnantData[0][1], 38);
  EXPECT_EQ(r.StrondRemnantData[1][3], 44);
  EXPECT_EQ(ReadStrondResults(NumberedResult(60), "panel_KVSD.CSV").StrondRemnantData[1][3], 44);
}

TEST(ReadStrondResults, WhatIsNotThereIsNeverANumber) {
  const std::string whole = NumberedResult();
  EXPECT_EQ(ExpectError(ErrorNumber::kInputPastEnd, [] { ReadStrondResults("", "x.CSV"); }).find("x.CSV"), 0);
  for (std::size_t length = 0; length + 3 < whole.size(); ++length) {
    EXPECT_THROW(ReadStrondResults(whole.substr(0, length), "x.CSV"), RuntimeError) << length;
  }
  for (const auto& [from, to, number] : {std::tuple{"10,", "ten,", ErrorNumber::kTypeMismatch},
                                         std::tuple{"10,", ",", ErrorNumber::kTypeMismatch},
                                         std::tuple{"10,", "nan,", ErrorNumber::kTypeMismatch},
                                         std::tuple{"10,", "1.5.5,", ErrorNumber::kTypeMismatch},
                                         std::tuple{"10,", "1e999,", ErrorNumber::kOverflow},
                                         std::tuple{"12,", "1e39,", ErrorNumber::kOverflow}}) {
    std::string text = whole;
    text.replace(text.find(from), std::string(from).size(), to);
    ExpectError(number, [&] { ReadStrondResults(text, "x.CSV"); });
  }
}

}  // namespace
}  // namespace korva
