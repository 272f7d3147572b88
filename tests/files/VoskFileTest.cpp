#include <gtest/gtest.h>

#include "files/VoskFile.h"
#include "support/ExpectError.h"
#include "support/VoskPanel.h"

namespace korva {
namespace {

TEST(VoskFile, TakesThePanelAndSkipsTheRest) {
  StoredProject read;
  std::vector<FileNotice> notices;
  read.ProjectInput.LoadingConditionAux = 7;
  ReadVoskProject(test::VoskPanel(), "a.VSK", read, notices);
  // Each value's place is looked at in the form; here, what the form does not show.
  const Project& p = read.ProjectInput;
  EXPECT_EQ(p.LoadingCondition, PanelLoading{5}) << "the project file's own reader would make it 3";
  EXPECT_EQ(std::tuple(p.ArchAuto, p.RowA, p.RowB, p.RowC, p.RowD), std::tuple(2, 1, 2, 3, 4));
  EXPECT_EQ(std::tuple(p.AMZAuto, p.ArchFactor, p.LoadingConditionAux), std::tuple(0, 0.87F, 7));
  EXPECT_EQ(read.ProjectUnits, kMetric);
  EXPECT_EQ(read.ProjectTitle, "North, \"four\"");
  EXPECT_EQ(read.ProjectDescription, "First line, whole\r\nsecond\r\nits rest\r\n");
  ASSERT_EQ(notices.size(), 1U) << "what stands behind the panel";

  EXPECT_TRUE(DetectVoskFormat("\"VOSK_103\",9\n", "a.VSK"));
  for (const char* other : {"VOSK_102\n", "vosk_103\n", "VOSK_103 \n", "KORVA_603\n"}) {
    EXPECT_FALSE(DetectVoskFormat(other, "a.VSK")) << other;
  }
}

TEST(VoskFile, FaultsKeepWhatStandsInFrontOfThem) {
  const auto read = [](const std::string& text, ErrorNumber number, std::string_view cause) {
    StoredProject project;
    std::vector<FileNotice> notices;
    const std::string detail = ExpectError(number, [&] { ReadVoskProject(text, "a.VSK", project, notices); });
    EXPECT_NE(detail.find(cause), detail.npos) << detail;
    return project;
  };
  const StoredProject unmarked =
      read(test::VoskPanel("##KORVA START##", "##Korva start##"), ErrorNumber::kInputPastEnd, "KORVA START");
  EXPECT_EQ(unmarked.ProjectTitle, "North, \"four\"");
  EXPECT_EQ(unmarked.ProjectInput.DepthCover, 0);
  EXPECT_EQ(read(test::VoskPanel("\n910\n", "\nstrong\n"), ErrorNumber::kTypeMismatch, "CoalStrength")
                .ProjectInput.XcutCenters[2],
            82);
  EXPECT_EQ(read(test::VoskPanel("\n85\n 3 \n", "\n85\n11\n"), ErrorNumber::kSubscript, "NumberEntries")
                .ProjectInput.DepthCover,
            812.5);
  EXPECT_EQ(
      read(test::VoskPanel("\n66.25\n", ""), ErrorNumber::kInputPastEnd, "WidthRowD").ProjectInput.WidthRowC,
      55.5F);

  StoredProject odd;
  std::vector<FileNotice> notices;
  ReadVoskProject(test::VoskPanel("\n 1 \nNorth", "\n 2 \nNorth"), "a.VSK", odd, notices);
  EXPECT_EQ(odd.ProjectUnits, kEnglish);
}

}  // namespace
}  // namespace korva
