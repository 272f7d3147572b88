#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <sstream>

#include "core/Description.h"
#include "core/NumberText.h"
#include "core/Text.h"
#include "files/ProjectFile.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

using Lines = std::vector<std::string>;

Lines Split(const std::string& text) {
  std::istringstream stream(text);
  Lines lines;
  for (std::string line; std::getline(stream, line, '|');) {
    lines.push_back(line);
  }
  return lines;
}

// A file of the newest format in which every value differs from an empty project's. With one line of
// description and one center, each value stands on the line of its number in the layout.
const Lines kNewest = Split(
    "KORVA_603| 1 |North Mains, \"Panel\" 4|##StartDesc##|Pillars of the second lift|##EndDesc##|"
    "7.5|800|60|20.25|90| 2 |75|950|160.5|140|"  // 7 to 16
    " 0 | 0 | 3 | 9 | 0.85 | 2 |"                // 17 to 22
    "1000|22|1100|23|150|30|1200|24|160|40|"     // 23 to 32
    " 1 | 3 | 4 |-1 |55.5|66.25");               // 33 to 38

Project NewestRecord() {
  Project p;
  std::tie(p.EntryHeight, p.DepthCover, p.XcutAngle, p.EntryWidth, p.XcutSpacing, p.NumberEntries,
           p.XcutCenters[1], p.CoalStrength, p.UnitWeight, p.BreadthAMZ) =
      std::tuple(7.5, 800, 60, 20.25, 90, 2, 75, 950, 160.5, 140);
  std::tie(p.AMZAuto, p.ArchAuto, p.LoadingCondition, p.LoadingConditionAux, p.ArchFactor, p.CalcMode) =
      std::tuple(0, 0, PanelLoading::kWithBothSideGobs, 9, 0.85F, kComparedModels);
  std::tie(p.ExtentActiveGob, p.AbutmentAngleActiveGob) = std::tuple(1000, 22);
  std::tie(p.ExtentFirstGob, p.AbutmentAngleFirstGob, p.BarrierFirstGob, p.SlabcutFirstGob) =
      std::tuple(1100, 23, 150, 30);
  std::tie(p.ExtentSecondGob, p.AbutmentAngleSecondGob, p.BarrierSecondGob, p.SlabcutSecondGob) =
      std::tuple(1200, 24, 160, 40);
  std::tie(p.RowA, p.RowB, p.RowC, p.RowD, p.WidthRowC, p.WidthRowD) = std::tuple(1, 3, 4, -1, 55.5, 66.25);
  return p;
}

std::string Joined(const Lines& lines, std::string_view end = kLineEnd) {
  std::string text;
  for (const std::string& line : lines) {
    text.append(line).append(end);
  }
  return text;
}

// The newest file with line `number` (from 1) replaced by `lines`.
Lines With(int number, const Lines& lines) {
  Lines all = kNewest;
  all.insert(all.erase(all.begin() + number - 1), lines.begin(), lines.end());
  return all;
}

// The same panel in an older format: its magic, and the lines that it lacks left out.
std::string OlderFile(int format) {
  Lines lines = {std::string("KORVA_") + Split("500|501|601|602|603")[static_cast<std::size_t>(format - 50)]};
  const std::map<int, int> since = {{18, 53}, {20, 51}, {21, 52}, {22, 54}};
  for (int number = 2; number <= 38; ++number) {
    if (format >= (number >= 33 ? 53 : since.contains(number) ? since.at(number) : 50)) {
      lines.push_back(kNewest[static_cast<std::size_t>(number - 1)]);
    }
  }
  return Joined(lines);
}

struct ReadFile {
  StoredProject Stored;
  std::vector<FileNotice> Notices;

  // Reads `text` over a project that came by `aux`; a run-time error leaves what was stored before.
  ReadFile& From(const std::string& text, int aux = 0) {
    Stored.ProjectInput.LoadingConditionAux = aux;
    ReadProject(text, "panel.kvl", DetectProjectFormat(text, "panel.kvl").value(), Stored, Notices);
    return *this;
  }
};

ReadFile Read(const Lines& lines) {
  return ReadFile().From(Joined(lines));
}

std::string Recomposed(const std::string& text) {
  ReadFile file = ReadFile().From(text);
  NormalizeDescription(file.Stored);
  return ComposeProject(file.Stored);
}

TEST(ProjectFile, ReadsAndWritesTheNewestFormat) {
  for (const std::string_view end : {"\r\n", "\r", "\n"}) {
    const ReadFile file = ReadFile().From(Joined(kNewest, end));
    EXPECT_EQ(file.Stored.ProjectInput, NewestRecord());
    EXPECT_EQ(file.Stored.ProjectUnits, kMetric);
    EXPECT_EQ(file.Stored.ProjectTitle, kNewest[2]);
    EXPECT_EQ(file.Stored.ProjectDescription, kNewest[4] + "\r\n");
    EXPECT_EQ(file.Stored.ProjectDescriptionLines, 2);
    EXPECT_TRUE(file.Notices.empty());
    EXPECT_EQ(Recomposed(Joined(kNewest, end)), Joined(kNewest));
  }
}

class OldFormats : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(ProjectFile, OldFormats, testing::Range(50, 55));

TEST_P(OldFormats, LeaveWhatTheyLackAsItWas) {
  const int format = GetParam();
  Project expected = NewestRecord();
  expected.LoadingConditionAux = format >= 51 ? 9 : 7;
  expected.ArchFactor = format >= 52 ? 0.85F : 1;
  expected.CalcMode = format >= 54 ? kComparedModels : kTraditionalModel;
  if (format < 53) {
    expected.ArchAuto = 1;
    expected.RowA = expected.RowB = expected.RowC = expected.RowD = 0;
    expected.WidthRowC = expected.WidthRowD = 0;
  }
  EXPECT_EQ(DetectProjectFormat(OlderFile(format), "panel.kvl"), format);
  const ReadFile file = ReadFile().From(OlderFile(format), 7);
  EXPECT_EQ(file.Stored.ProjectInput, expected);
  EXPECT_TRUE(file.Notices.empty());
}

TEST_P(OldFormats, APrefixLacksAValueOrOnlyTheEndOfTheLastOne) {
  const std::string text = OlderFile(GetParam());
  const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
  ExpectError(ErrorNumber::kInputPastEnd, [] { DetectProjectFormat("", "panel.kvl"); });
  for (std::size_t length = 1; length < text.size(); ++length) {
    const std::string prefix = text.substr(0, length);
    SCOPED_TRACE(testing::PrintToString(prefix));
    if (length < std::string_view("KORVA_603").size()) {
      EXPECT_FALSE(DetectProjectFormat(prefix, "panel.kvl"));
    } else if (length <= lastLine) {
      const std::string detail = ExpectError(ErrorNumber::kInputPastEnd, [&] { ReadFile().From(prefix); });
      EXPECT_TRUE(detail.starts_with("panel.kvl, line ")) << detail;
    } else {  // a lone CR ends a line, too
      EXPECT_EQ(ReadFile().From(prefix).Notices.size(), length < text.size() - 1 ? 1U : 0U);
    }
  }
}

TEST(ProjectFile, OtherMagicsAreNoProjects) {
  for (const char* text : {"korva_603\r\n", "KORVA_604\r\n", "KORVA_603 \r\n", "KORVA_6033\r\n", "\r\n",
                           "\xEF\xBB\xBFKORVA_603\r\n"}) {
    EXPECT_FALSE(DetectProjectFormat(text, "panel.kvl")) << text;
  }
  EXPECT_EQ(DetectProjectFormat("  KORVA_601,", "panel.kvl"), 52);
  EXPECT_EQ(DetectProjectFormat("\"KORVA_500\"", "panel.kvl"), 50);
}

TEST(ProjectFile, NumberEntriesTellsHowManyCentersFollow) {
  for (const int entries : {0, 1, 10, -3}) {
    Lines lines = With(13, {});
    for (int i = entries - 1; i >= 1; --i) {
      lines.insert(lines.begin() + 12, std::to_string(70 + i));
    }
    lines[11] = PaddedText(entries);
    const ReadFile file = Read(lines);
    EXPECT_EQ(file.Stored.ProjectInput.NumberEntries, entries == 0 ? 1 : entries);
    for (int i = 1; i <= 9; ++i) {
      EXPECT_EQ(file.Stored.ProjectInput.XcutCenters[i], i < entries ? 70 + i : 0) << i;
    }
    EXPECT_TRUE(file.Notices.empty());
    const std::string text = Joined(lines);
    lines[11] = PaddedText(file.Stored.ProjectInput.NumberEntries);
    EXPECT_EQ(Recomposed(text), Joined(lines));
  }
  StoredProject project;
  project.ProjectInput.NumberEntries = 0;
  EXPECT_NE(ComposeProject(project).find("\r\n 0 \r\n900\r\n162\r\n"), std::string::npos);
}

TEST(ProjectFile, ValuesBeyondTheirTablesAreReset) {
  EXPECT_EQ(Read(With(19, {" 7 "})).Stored.ProjectInput.LoadingCondition, PanelLoading{3});
  EXPECT_EQ(Read(With(19, {"-1 "})).Stored.ProjectInput.LoadingCondition, PanelLoading{-1});
  for (const char* units : {" 5 ", "-1 ", " 2 "}) {
    EXPECT_EQ(Read(With(2, {units})).Stored.ProjectUnits, kEnglish) << units;
  }
}

TEST(ProjectFile, ABadValueIsToldWithItsLineAndName) {
  const std::tuple<int, std::string, ErrorNumber, std::string> cases[] = {
      {2, "metric", ErrorNumber::kTypeMismatch, "ProjectUnits"},
      {2, " 40000 ", ErrorNumber::kOverflow, "ProjectUnits"},
      {10, "-inf", ErrorNumber::kTypeMismatch, "EntryWidth"},
      {11, "1e999", ErrorNumber::kOverflow, "XcutSpacing"},
      {12, " 11 ", ErrorNumber::kSubscript, "NumberEntries"},
      {13, "75 76", ErrorNumber::kTypeMismatch, "XcutCenters 1"},
      {17, "-32769 ", ErrorNumber::kOverflow, "AMZAuto"},
      {21, " 1e39 ", ErrorNumber::kOverflow, "ArchFactor"},
      {38, "wide", ErrorNumber::kTypeMismatch, "WidthRowD"}};
  for (const auto& [line, text, number, name] : cases) {
    const std::string file = Joined(With(line, {text}));
    const std::string detail = ExpectError(number, [&file] { ReadFile().From(file); });
    EXPECT_TRUE(detail.starts_with("panel.kvl, line " + std::to_string(line) + ": expected " + name))
        << detail;
  }
  const Lines cut(kNewest.begin(), kNewest.begin() + 15);
  EXPECT_EQ(ExpectError(ErrorNumber::kInputPastEnd, [&] { Read(cut); }),
            "panel.kvl, line 16: expected BreadthAMZ, found the end of the file");
}

TEST(ProjectFile, WhatStoodInFrontOfAFaultIsKept) {
  ReadFile file;
  ExpectError(ErrorNumber::kTypeMismatch, [&] { file.From(Joined(With(8, {"?"}))); });
  Project expected;
  expected.EntryHeight = 7.5;
  EXPECT_EQ(file.Stored.ProjectInput, expected);
  EXPECT_EQ(file.Stored.ProjectTitle, kNewest[2]);
  EXPECT_EQ(file.Stored.ProjectUnits, kMetric);
}

TEST(ProjectFile, OddLinesAreReadAndNoticed) {
  const ReadFile comma = Read(With(37, {"55,5"}));
  EXPECT_EQ(comma.Stored.ProjectInput.WidthRowC, 55);
  EXPECT_EQ(comma.Stored.ProjectInput.WidthRowD, 5);
  ASSERT_EQ(comma.Notices.size(), 2U);
  EXPECT_EQ(comma.Notices[0].line, 37);
  EXPECT_NE(comma.Notices[0].text.find("WidthRowC"), std::string::npos);
  EXPECT_NE(comma.Notices[1].text.find("66.25"), std::string::npos);

  const ReadFile rest = ReadFile().From(Joined(kNewest) + "\r\nextra\r\n   \r\nmore");
  EXPECT_EQ(rest.Stored.ProjectInput, NewestRecord());
  ASSERT_EQ(rest.Notices.size(), 2U);
  EXPECT_EQ(rest.Notices[0].line, 40);
  EXPECT_EQ(rest.Notices[1].line, 42);
}

TEST(ProjectFile, TheFirstDescriptionLineIsWholeAndTheOthersAreFields) {
  const std::pair<Lines, std::string> cases[] = {
      {{"  First, \"whole\" ", "left, right"}, "  First, \"whole\" \r\nleft\r\nright\r\n"},
      {{"a", "   indented  ", "", "  ", "b"}, "a\r\nindented  \r\nb\r\n"},
      {{"a", "\"one, two\" three", "\"open, quote", "say \"hi\""},
       "a\r\none, two\r\nthree\r\nopen, quote\r\nsay \"hi\"\r\n"},
      {{""}, ""},
      {{"  ##EndDesc##", "##StartDesc##", "##EndDesc## "},
       "  ##EndDesc##\r\n##StartDesc##\r\n##EndDesc## \r\n"}};
  for (const auto& [block, description] : cases) {
    EXPECT_EQ(Read(With(5, block)).Stored.ProjectDescription, description);
  }
  EXPECT_EQ(Read(With(5, {"a", "b, c", ""})).Stored.ProjectDescriptionLines, 4);
  EXPECT_EQ(Recomposed(Joined(With(4, {}))), Joined(kNewest));  // the marker in front may be missing
  EXPECT_EQ(Recomposed(Joined(With(5, {""}))), Joined(With(5, {""})));
}

TEST(ProjectFile, RefusesTextsThatWouldNotReadBack) {
  StoredProject project;
  for (const char* title : {"two\r\nlines", "two\rlines", "\n"}) {
    project.ProjectTitle = title;
    ExpectError(ErrorNumber::kInvalidCall, [&] { ComposeProject(project); });
  }
  project.ProjectTitle = "##EndDesc##";
  for (const char* description : {"##EndDesc##", "a\r\n##EndDesc##\r\nb", "a\r\n  ##EndDesc##\r\nb",
                                  "a\r\nb,##EndDesc##", "a\r\n\"b\"##EndDesc##\r\nc"}) {
    project.ProjectDescription = description;
    ExpectError(ErrorNumber::kInvalidCall, [&] { ComposeProject(project); });
  }
  project.ProjectDescription = "see ##EndDesc##\r\n##EndDesc## \r\n##STARTDESC##";
  EXPECT_EQ(Recomposed(ComposeProject(project)), ComposeProject(project));
}

TEST(ProjectFile, NumbersReadBackTo15Digits) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> power(-300, 300);
  StoredProject project;
  Project& p = project.ProjectInput;
  p.DepthCover = std::numeric_limits<double>::max();
  p.XcutAngle = std::numeric_limits<double>::denorm_min();
  p.WidthRowC = std::numeric_limits<float>::max();
  p.WidthRowD = std::numeric_limits<float>::denorm_min();
  for (int round = 0; round < 2000; ++round) {
    p.EntryHeight = -std::pow(10, power(random));
    p.ArchFactor = static_cast<float>(std::pow(10, power(random) / 9));
    const std::string text = ComposeProject(project);
    EXPECT_EQ(Recomposed(text), text);
    const Project back = ReadFile().From(text).Stored.ProjectInput;
    EXPECT_NEAR(back.EntryHeight / p.EntryHeight, 1, 5.1e-15);
    EXPECT_NEAR(back.ArchFactor / p.ArchFactor, 1, 5.1e-7);
  }
  p.EntryHeight = std::numeric_limits<double>::infinity();
  ExpectError(ErrorNumber::kOverflow, [&] { ComposeProject(project); });
}

}  // namespace
}  // namespace korva
