#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <map>
#include <random>

#include "core/Description.h"
#include "core/Format.h"
#include "core/NumberText.h"
#include "core/Text.h"
#include "files/OptionsFile.h"
#include "files/ProjectFile.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

using Lines = std::vector<std::string>;

// A file of the newest format in which every value differs from an empty project's. With one line of
// description and one center, each value stands on the line of its number in the layout.
const Lines kNewest = {
    "KORVA_603",   " 1 ", "North Mains, \"Panel\" 4", "##StartDesc##", "Pillars of the second lift",
    "##EndDesc##",
    "7.5",     // 7 EntryHeight
    "800",     // 8 DepthCover
    "60",      // 9 XcutAngle
    "20.25",   // 10 EntryWidth
    "90",      // 11 XcutSpacing
    " 2 ",     // 12 NumberEntries
    "75",      // 13 XcutCenters
    "950",     // 14 CoalStrength
    "160.5",   // 15 UnitWeight
    "140",     // 16 BreadthAMZ
    " 0 ",     // 17 AMZAuto
    " 0 ",     // 18 ArchAuto
    " 3 ",     // 19 LoadingCondition
    " 9 ",     // 20 LoadingConditionAux
    " 0.85 ",  // 21 ArchFactor
    " 2 ",     // 22 CalcMode
    "1000",    // 23 ExtentActiveGob
    "22",      // 24 AbutmentAngleActiveGob
    "1100",    // 25 ExtentFirstGob
    "23",      // 26 AbutmentAngleFirstGob
    "150",     // 27 BarrierFirstGob
    "30",      // 28 SlabcutFirstGob
    "1200",    // 29 ExtentSecondGob
    "24",      // 30 AbutmentAngleSecondGob
    "160",     // 31 BarrierSecondGob
    "40",      // 32 SlabcutSecondGob
    " 1 ",     // 33 RowA
    " 3 ",     // 34 RowB
    " 4 ",     // 35 RowC
    "-1 ",     // 36 RowD
    "55.5",    // 37 WidthRowC
    "66.25",   // 38 WidthRowD
};

Project NewestRecord() {
  Project p;
  p.EntryHeight = 7.5;
  p.DepthCover = 800;
  p.XcutAngle = 60;
  p.EntryWidth = 20.25;
  p.XcutSpacing = 90;
  p.NumberEntries = 2;
  p.XcutCenters[1] = 75;
  p.CoalStrength = 950;
  p.UnitWeight = 160.5;
  p.BreadthAMZ = 140;
  p.AMZAuto = 0;
  p.ArchAuto = 0;
  p.LoadingCondition = 3;
  p.LoadingConditionAux = 9;
  p.ArchFactor = 0.85F;
  p.CalcMode = 2;
  p.ExtentActiveGob = 1000;
  p.AbutmentAngleActiveGob = 22;
  p.ExtentFirstGob = 1100;
  p.AbutmentAngleFirstGob = 23;
  p.BarrierFirstGob = 150;
  p.SlabcutFirstGob = 30;
  p.ExtentSecondGob = 1200;
  p.AbutmentAngleSecondGob = 24;
  p.BarrierSecondGob = 160;
  p.SlabcutSecondGob = 40;
  p.RowA = 1;
  p.RowB = 3;
  p.RowC = 4;
  p.RowD = -1;
  p.WidthRowC = 55.5F;
  p.WidthRowD = 66.25F;
  return p;
}

std::string Joined(const Lines& lines, std::string_view end = kLineEnd) {
  std::string text;
  for (const std::string& line : lines) {
    text.append(line).append(end);
  }
  return text;
}

// The newest file with line `number` (from 1) replaced, by nothing if `lines` is empty.
Lines With(std::size_t number, const Lines& lines) {
  Lines all = kNewest;
  const auto at = all.erase(all.begin() + static_cast<std::ptrdiff_t>(number) - 1);
  all.insert(at, lines.begin(), lines.end());
  return all;
}

// The same panel in an older format: its magic, and the lines that it lacks left out.
std::string OlderFile(int format) {
  static const std::map<int, std::pair<std::string, std::vector<std::size_t>>> kOlder = {
      {50, {"KORVA_500", {18, 20, 21, 22, 33, 34, 35, 36, 37, 38}}},
      {51, {"KORVA_501", {18, 21, 22, 33, 34, 35, 36, 37, 38}}},
      {52, {"KORVA_601", {18, 22, 33, 34, 35, 36, 37, 38}}},
      {53, {"KORVA_602", {22}}},
      {54, {"KORVA_603", {}}},
  };
  const auto& [magic, missing] = kOlder.at(format);
  Lines lines = {magic};
  for (std::size_t number = 2; number <= kNewest.size(); ++number) {
    if (std::find(missing.begin(), missing.end(), number) == missing.end()) {
      lines.push_back(kNewest[number - 1]);
    }
  }
  return Joined(lines);
}

struct ReadFile {
  StoredProject Stored;
  std::vector<FileNotice> Notices;

  // Reads `text` into an empty project that came by `aux`; a run-time error leaves what was stored before.
  void From(const std::string& text, std::int16_t aux = 0) {
    Stored.ProjectInput.LoadingConditionAux = aux;
    const auto format = DetectProjectFormat(text, "panel.kvl");
    ASSERT_TRUE(format);
    ReadProject(text, "panel.kvl", *format, Stored, Notices);
  }
};

ReadFile Read(const std::string& text, std::int16_t aux = 0) {
  ReadFile file;
  file.From(text, aux);
  return file;
}

ReadFile Read(const Lines& lines) {
  return Read(Joined(lines));
}

std::string Description(const Lines& block) {
  return Read(With(5, block)).Stored.ProjectDescription;
}

std::string Recomposed(StoredProject project) {
  NormalizeDescription(project);
  ReadFile file = Read(ComposeProject(project));
  NormalizeDescription(file.Stored);
  return ComposeProject(file.Stored);
}

TEST(ProjectFile, ReadsAndWritesTheNewestFormat) {
  ReadFile file = Read(kNewest);
  EXPECT_EQ(file.Stored.ProjectInput, NewestRecord());
  EXPECT_EQ(file.Stored.ProjectUnits, kMetric);
  EXPECT_EQ(file.Stored.ProjectTitle, kNewest[2]);
  EXPECT_EQ(file.Stored.ProjectDescription, kNewest[4] + "\r\n");
  EXPECT_EQ(file.Stored.ProjectDescriptionLines, 2);
  EXPECT_TRUE(file.Notices.empty());
  NormalizeDescription(file.Stored);
  EXPECT_EQ(ComposeProject(file.Stored), Joined(kNewest));
}

class OldFormats : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(ProjectFile, OldFormats, testing::Values(50, 51, 52, 53, 54));

TEST_P(OldFormats, LeaveWhatTheyLackAsItWas) {
  const int format = GetParam();
  const Project empty;
  Project expected = NewestRecord();
  expected.LoadingConditionAux = format >= 51 ? 9 : 7;
  if (format < 52) {
    expected.ArchFactor = empty.ArchFactor;
  }
  if (format < 53) {
    expected.ArchAuto = empty.ArchAuto;
    expected.RowA = expected.RowB = expected.RowC = expected.RowD = 0;
    expected.WidthRowC = expected.WidthRowD = 0;
  }
  if (format < 54) {
    expected.CalcMode = empty.CalcMode;
  }
  EXPECT_EQ(DetectProjectFormat(OlderFile(format), "panel.kvl"), format);
  const ReadFile file = Read(OlderFile(format), 7);
  EXPECT_EQ(file.Stored.ProjectInput, expected);
  EXPECT_TRUE(file.Notices.empty());
  EXPECT_TRUE(ComposeProject(file.Stored).starts_with("KORVA_603\r\n"));
}

TEST_P(OldFormats, APrefixLacksAValueOrOnlyTheEndOfTheLastOne) {
  const std::string text = OlderFile(GetParam());
  const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
  const std::size_t magic = 9;
  ExpectError(ErrorNumber::kInputPastEnd, [] { DetectProjectFormat("", "panel.kvl"); });
  for (std::size_t length = 1; length < text.size(); ++length) {
    const std::string prefix = text.substr(0, length);
    SCOPED_TRACE(testing::PrintToString(prefix));
    if (length < magic) {
      EXPECT_FALSE(DetectProjectFormat(prefix, "panel.kvl"));
    } else if (length <= lastLine) {
      const std::string detail = ExpectError(ErrorNumber::kInputPastEnd, [&] { Read(prefix); });
      EXPECT_TRUE(detail.starts_with("panel.kvl, line ")) << detail;
    } else {
      const ReadFile file = Read(prefix);
      EXPECT_EQ(file.Notices.size(), length < text.size() - 1 ? 1U : 0U);  // a lone CR ends a line, too
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

TEST(ProjectFile, AnyLineEndEndsALine) {
  for (const char* end : {"\r", "\n"}) {
    const ReadFile file = Read(Joined(kNewest, end));
    EXPECT_EQ(file.Stored.ProjectInput, NewestRecord());
    EXPECT_TRUE(file.Notices.empty());
  }
}

TEST(ProjectFile, NumberEntriesTellsHowManyCentersFollow) {
  EXPECT_EQ(Read(With(13, {"75", "76"})).Notices.size(), 1U);  // one center too many shifts all behind it
  for (const int entries : {0, 1, 2, 10, -3}) {
    Lines lines = With(13, {});
    lines[11] = PaddedText(static_cast<std::int16_t>(entries));
    for (int i = 1; i < entries; ++i) {
      lines.insert(lines.begin() + 11 + i, std::to_string(70 + i));
    }
    ReadFile file = Read(lines);
    const Project& p = file.Stored.ProjectInput;
    EXPECT_EQ(p.NumberEntries, entries == 0 ? 1 : entries);
    for (int i = 1; i <= 9; ++i) {
      EXPECT_EQ(p.XcutCenters[i], i < entries ? 70 + i : 0) << i;
    }
    EXPECT_EQ(p.CoalStrength, 950);
    EXPECT_TRUE(file.Notices.empty());
    lines[11] = PaddedText(p.NumberEntries);
    NormalizeDescription(file.Stored);
    EXPECT_EQ(ComposeProject(file.Stored), Joined(lines));
  }
}

TEST(ProjectFile, ZeroEntriesAreWrittenAsTheyAre) {
  StoredProject project;
  project.ProjectInput.NumberEntries = 0;
  EXPECT_NE(ComposeProject(project).find("\r\n 0 \r\n900\r\n162\r\n"), std::string::npos);
}

TEST(ProjectFile, ValuesBeyondTheirTablesAreReset) {
  EXPECT_EQ(Read(With(19, {" 7 "})).Stored.ProjectInput.LoadingCondition, 3);
  EXPECT_EQ(Read(With(19, {"-1 "})).Stored.ProjectInput.LoadingCondition, -1);
  for (const char* units : {" 5 ", "-1 ", " 2 "}) {
    const ReadFile file = Read(With(2, {units}));
    EXPECT_EQ(file.Stored.ProjectUnits, kEnglish) << units;
    EXPECT_EQ(file.Stored.ProjectInput, NewestRecord()) << units;
  }
}

struct BadLine {
  std::size_t line;
  std::string text;
  ErrorNumber number;
  std::string expected;
};

TEST(ProjectFile, ABadValueIsToldWithItsLineAndName) {
  const BadLine cases[] = {
      {2, "metric", ErrorNumber::kTypeMismatch, "ProjectUnits"},
      {2, " 40000 ", ErrorNumber::kOverflow, "ProjectUnits"},
      {8, "8OO", ErrorNumber::kTypeMismatch, "DepthCover"},
      {9, "nan", ErrorNumber::kTypeMismatch, "XcutAngle"},
      {10, "-inf", ErrorNumber::kTypeMismatch, "EntryWidth"},
      {11, "1e999", ErrorNumber::kOverflow, "XcutSpacing"},
      {12, " 11 ", ErrorNumber::kSubscript, "NumberEntries"},
      {12, " 32768 ", ErrorNumber::kOverflow, "NumberEntries"},
      {13, "75 76", ErrorNumber::kTypeMismatch, "XcutCenters 1"},
      {17, "-32769 ", ErrorNumber::kOverflow, "AMZAuto"},
      {21, " 1e39 ", ErrorNumber::kOverflow, "ArchFactor"},
      {38, "wide", ErrorNumber::kTypeMismatch, "WidthRowD"},
  };
  for (const BadLine& bad : cases) {
    const std::string detail = ExpectError(bad.number, [&] { Read(With(bad.line, {bad.text})); });
    EXPECT_TRUE(
        detail.starts_with("panel.kvl, line " + std::to_string(bad.line) + ": expected " + bad.expected))
        << detail;
  }
  const std::string cut = Joined(Lines(kNewest.begin(), kNewest.begin() + 15));
  EXPECT_EQ(ExpectError(ErrorNumber::kInputPastEnd, [&] { Read(cut); }),
            "panel.kvl, line 16: expected BreadthAMZ, found the end of the file");
}

TEST(ProjectFile, WhatStoodInFrontOfAFaultIsKept) {
  ReadFile file;
  ExpectError(ErrorNumber::kTypeMismatch, [&] { file.From(Joined(With(16, {"?"}))); });
  Project expected;
  expected.LoadingConditionAux = 0;
  const Project whole = NewestRecord();
  for (double Project::*field :
       {&Project::EntryHeight, &Project::DepthCover, &Project::XcutAngle, &Project::EntryWidth,
        &Project::XcutSpacing, &Project::CoalStrength, &Project::UnitWeight}) {
    expected.*field = whole.*field;
  }
  expected.XcutCenters[1] = 75;
  EXPECT_EQ(file.Stored.ProjectInput, expected);
  EXPECT_EQ(file.Stored.ProjectTitle, kNewest[2]);
  EXPECT_EQ(file.Stored.ProjectUnits, kMetric);
}

TEST(ProjectFile, OddNumberLinesAreReadAndNoticed) {
  const ReadFile file = Read(With(37, {"55,5"}));
  EXPECT_EQ(file.Stored.ProjectInput.WidthRowC, 55);
  EXPECT_EQ(file.Stored.ProjectInput.WidthRowD, 5);
  ASSERT_EQ(file.Notices.size(), 2U);
  EXPECT_EQ(file.Notices[0].line, 37);
  EXPECT_NE(file.Notices[0].text.find("WidthRowC"), std::string::npos);
  EXPECT_EQ(file.Notices[1].line, 38);
  EXPECT_NE(file.Notices[1].text.find("66.25"), std::string::npos);

  EXPECT_EQ(Read(With(16, {""})).Stored.ProjectInput.BreadthAMZ, 0);
  EXPECT_EQ(Read(With(16, {" \"140\" "})).Stored.ProjectInput, NewestRecord());
  EXPECT_EQ(Read(With(16, {"\t140 "})).Stored.ProjectInput, NewestRecord());
}

TEST(ProjectFile, ContentBehindTheLastValueIsNoticedByLine) {
  EXPECT_TRUE(Read(Joined(kNewest) + "\r\n  \r\n\r\n").Notices.empty());
  const ReadFile file = Read(Joined(kNewest) + "\r\nextra\r\n   \r\nmore");
  EXPECT_EQ(file.Stored.ProjectInput, NewestRecord());
  ASSERT_EQ(file.Notices.size(), 2U);
  EXPECT_EQ(file.Notices[0].line, 40);
  EXPECT_NE(file.Notices[0].text.find("extra"), std::string::npos);
  EXPECT_EQ(file.Notices[1].line, 42);
}

TEST(ProjectFile, TheFirstDescriptionLineIsWholeAndTheOthersAreFields) {
  EXPECT_EQ(Description({"  First, \"whole\" ", "left, right"}), "  First, \"whole\" \r\nleft\r\nright\r\n");
  EXPECT_EQ(Description({"a", "   indented  ", "", "  ", "b"}), "a\r\nindented  \r\nb\r\n");
  EXPECT_EQ(Description({"a", "\"one, two\" three", "\"open, quote", "say \"hi\""}),
            "a\r\none, two\r\nthree\r\nopen, quote\r\nsay \"hi\"\r\n");
  EXPECT_EQ(Description({""}), "");
  EXPECT_EQ(Description({"  ##EndDesc##", "##StartDesc##", "##EndDesc## "}),
            "  ##EndDesc##\r\n##StartDesc##\r\n##EndDesc## \r\n");
  EXPECT_EQ(Read(With(5, {"a", "b, c", ""})).Stored.ProjectDescriptionLines, 4);
}

TEST(ProjectFile, ADescriptionNeedsNoStartMarker) {
  const ReadFile file = Read(With(4, {}));
  EXPECT_EQ(file.Stored.ProjectDescription, kNewest[4] + "\r\n");
  EXPECT_EQ(file.Stored.ProjectInput, NewestRecord());
}

TEST(ProjectFile, AnEmptyDescriptionIsOneEmptyLine) {
  StoredProject project = Read(kNewest).Stored;
  project.ProjectDescription.clear();
  const std::string text = ComposeProject(project);
  EXPECT_EQ(text, Joined(With(5, {""})));
  EXPECT_EQ(Read(text).Stored.ProjectDescription, "");
}

TEST(ProjectFile, RefusesTextsThatWouldNotReadBack) {
  for (const char* title : {"two\r\nlines", "two\nlines", "two\rlines", "\n"}) {
    StoredProject project;
    project.ProjectTitle = title;
    ExpectError(ErrorNumber::kInvalidCall, [&] { ComposeProject(project); });
  }
  for (const char* description :
       {"##EndDesc##", "a\r\n##EndDesc##", "a\r\n##EndDesc##\r\nb", "a\r\n  ##EndDesc##\r\nb",
        "a\r\nb,##EndDesc##", "a\r\n\"##EndDesc##\"", "a\r\n\"b\"##EndDesc##\r\nc"}) {
    StoredProject project;
    project.ProjectDescription = description;
    ExpectError(ErrorNumber::kInvalidCall, [&] { ComposeProject(project); });
  }
  StoredProject project;
  project.ProjectTitle = "##EndDesc##";
  project.ProjectDescription = "see ##EndDesc##\r\n##EndDesc## \r\n##STARTDESC##";
  EXPECT_EQ(Read(ComposeProject(project)).Stored.ProjectDescription, project.ProjectDescription + "\r\n");
}

TEST(ProjectFile, NumbersReadBackTo15Digits) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-300, 300);
  for (int round = 0; round < 2000; ++round) {
    StoredProject project;
    Project& p = project.ProjectInput;
    p.EntryHeight = mantissa(random) * std::pow(10, exponent(random));
    p.DepthCover = mantissa(random) * std::pow(10, exponent(random) / 60);
    p.ArchFactor = static_cast<float>(mantissa(random) * std::pow(10, exponent(random) / 9));
    p.WidthRowC = static_cast<float>(mantissa(random));
    const Project back = Read(ComposeProject(project)).Stored.ProjectInput;
    EXPECT_NEAR(back.EntryHeight / p.EntryHeight, 1, 5.1e-15);
    EXPECT_NEAR(back.DepthCover / p.DepthCover, 1, 5.1e-15);
    EXPECT_NEAR(back.ArchFactor / p.ArchFactor, 1, 5.1e-7);
    EXPECT_EQ(Recomposed(project), ComposeProject(project));
  }
}

TEST(ProjectFile, ExtremeNumbersReadBack) {
  StoredProject project;
  project.ProjectInput.EntryHeight = std::numeric_limits<double>::max();
  project.ProjectInput.DepthCover = std::numeric_limits<double>::denorm_min();
  project.ProjectInput.XcutAngle = -0.0;
  project.ProjectInput.ArchFactor = std::numeric_limits<float>::max();
  project.ProjectInput.WidthRowC = std::numeric_limits<float>::denorm_min();
  EXPECT_EQ(Recomposed(project), ComposeProject(project));
  EXPECT_NE(ComposeProject(project).find("\r\n0\r\n"), std::string::npos);
  project.ProjectInput.EntryHeight = std::numeric_limits<double>::infinity();
  ExpectError(ErrorNumber::kOverflow, [&] { ComposeProject(project); });
}

// All that turns numbers to text and back, in one string.
std::string NumbersAtWork() {
  const ReadFile file = Read(kNewest);
  std::string text = ComposeProject(file.Stored);
  text += GeneralText(1234567.5) + Format(1234567.5, "##0.00") + Format(0.00125, "#.00E+00");
  text += GeneralText(ReadOptions("[KORVAOptions]\nCellSizeMetric=0.75\n").CellSizeMetric);
  return text + ExpectError(ErrorNumber::kOverflow, [] { Read(With(17, {" 123456.5 "})); });
}

class LocaleTest : public testing::Test {
 protected:
  ~LocaleTest() override {
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
  }
};

TEST_F(LocaleTest, AGroupingLocaleOfStreamsChangesNothing) {
  struct Grouping : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::string before = NumbersAtWork();
  std::locale::global(std::locale(std::locale::classic(), new Grouping));
  EXPECT_EQ(NumbersAtWork(), before);
}

TEST_F(LocaleTest, ACommaLocaleOfTheSystemChangesNothing) {
  const std::string before = NumbersAtWork();
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"}) {
    if (std::setlocale(LC_ALL, name) != nullptr) {
      ASSERT_STREQ(std::localeconv()->decimal_point, ",");
      std::locale::global(std::locale(name));
      EXPECT_EQ(NumbersAtWork(), before);
      return;
    }
  }
  GTEST_SKIP() << "this system has no German locale";
}

}  // namespace
}  // namespace korva
