#include <gtest/gtest.h>

#include <string>

#include "files/OptionsFile.h"

namespace korva {
namespace {

OptionSettings Read(std::string_view lines) {
  return ReadOptions("[KORVAOptions]\r\n" + std::string(lines));
}

constexpr std::int16_t OptionSettings::*kSwitches[] = {
    &OptionSettings::OutputStrUnits,
    &OptionSettings::OutputStrGradUnits,
    &OptionSettings::ShowInputScreenOnLoad,
    &OptionSettings::IssueWarningCancel,
    &OptionSettings::ViewChildWindow,
    &OptionSettings::PrintModuleHeader,
    &OptionSettings::PlotEntryDims,
    &OptionSettings::PlotXcutDims,
    &OptionSettings::PlotGobDims,
    &OptionSettings::PlotSingleXcutDims,
    &OptionSettings::PlotGobExtLoose,
    &OptionSettings::PrintPlotReminder,
    &OptionSettings::AskOfficeInstall,
    &OptionSettings::Strond2DViewProgress,
    &OptionSettings::Strond2DViewProgOutput,
    &OptionSettings::Strond2DViewOutput,
};
constexpr const char* kSwitchKeys[] = {
    "OutputStrUnits",   "OutputStrGradUnits",   "ShowInputScreenOnLoad",  "IssueWarningCancel",
    "ViewChildWindow",  "PrintModuleHeader",    "PlotEntryDims",          "PlotXcutDims",
    "PlotGobDims",      "PlotSingleXcutDims",   "PlotGobExtLoose",        "PrintPlotReminder",
    "AskOfficeInstall", "Strond2DViewProgress", "Strond2DViewProgOutput", "Strond2DViewOutput",
};

TEST(ReadOptions, AMissingOrEmptyKeyHasItsOwnValue) {
  std::string empty;
  for (const char* key : {"OutputStrGradUnits", "PlotRangeMin", "PlotRangeMax", "CellSizeEnglish",
                          "CellSizeMetric", "iOptDir", "PlotGobDims"}) {
    empty.append(key).append("=\r\n");
  }
  for (const OptionSettings& options :
       {ReadOptions(""), Read(""), Read(empty), ReadOptions("[Graph]\niOptDir=3\n")}) {
    // 0 for the first three and the solver's windows, 1 for the others.
    for (std::size_t i = 0; i < std::size(kSwitches); ++i) {
      EXPECT_EQ(options.*kSwitches[i], i >= 3 && i <= 12 ? 1 : 0) << kSwitchKeys[i];
    }
    EXPECT_EQ(options.PlotRangeMin, 100);
    EXPECT_EQ(options.PlotRangeMax, 150);
    EXPECT_EQ(options.RoundKORVASF, 0);
    EXPECT_EQ(options.CellSizeEnglish, 2);
    EXPECT_EQ(options.CellSizeMetric, 0.5F);
    EXPECT_EQ(options.iOptDir, 1);
  }
}

TEST(ReadOptions, EachKeyReachesItsSetting) {
  for (std::size_t i = 0; i < std::size(kSwitches); ++i) {
    for (const bool on : {false, true}) {
      const std::string line = std::string(kSwitchKeys[i]) + (on ? "=1" : "=0");
      OptionSettings expected = Read("");
      expected.*kSwitches[i] = on;
      const OptionSettings options = Read(line);
      for (const auto member : kSwitches) {
        EXPECT_EQ(options.*member, expected.*member) << line;
      }
    }
  }
  const OptionSettings options = Read(
      "PlotRangeMin=10\nPlotRangeMax=120\nRoundKORVASF=2\nCellSizeEnglish=5\nCellSizeMetric=1.25\niOptDir="
      "2\n");
  EXPECT_EQ(options.PlotRangeMin, 10);
  EXPECT_EQ(options.PlotRangeMax, 120);
  EXPECT_EQ(options.RoundKORVASF, 2);
  EXPECT_EQ(options.CellSizeEnglish, 5);
  EXPECT_EQ(options.CellSizeMetric, 1.25F);
  EXPECT_EQ(options.iOptDir, 2);
}

TEST(ReadOptions, AValueOutsideItsRangeBecomesTheLowerBound) {
  for (const char* value : {"2", "-1", "70000", "1e999", "off", "nan"}) {
    EXPECT_EQ(Read(std::string("PlotXcutDims=") + value).PlotXcutDims, 0) << value;
  }
  EXPECT_EQ(Read("iOptDir=4").iOptDir, 0);
  EXPECT_EQ(Read("RoundKORVASF=3").RoundKORVASF, 0);
  EXPECT_EQ(Read("PlotRangeMin=200").PlotRangeMin, 0);
  EXPECT_EQ(Read("PlotRangeMax=-5").PlotRangeMax, 0);
  EXPECT_EQ(Read("CellSizeEnglish=0").CellSizeEnglish, 2);
  EXPECT_EQ(Read("CellSizeMetric=0.0").CellSizeMetric, 0.5F);
  EXPECT_EQ(Read("CellSizeMetric=1e-60").CellSizeMetric, 0.5F);  // 0 in 32 bits
}

TEST(ReadOptions, TakesTheLeadingNumberAndRoundsWhereAWholeNumberBelongs) {
  EXPECT_EQ(Read("iOptDir=2 of 3").iOptDir, 2);
  EXPECT_EQ(Read("iOptDir=0.9").iOptDir, 1);
  EXPECT_EQ(Read("PlotRangeMin=49.6").PlotRangeMin, 50);
  EXPECT_EQ(Read("PlotRangeMin=ten").PlotRangeMin, 0);
}

TEST(ReadOptions, AnEmptyPlotRangeIsReset) {
  const OptionSettings equal = Read("PlotRangeMin=70\nPlotRangeMax=70\n");
  EXPECT_EQ(equal.PlotRangeMin, 50);
  EXPECT_EQ(equal.PlotRangeMax, 150);
  const OptionSettings outside = Read("PlotRangeMin=-1\nPlotRangeMax=151\n");  // both become 0
  EXPECT_EQ(outside.PlotRangeMin, 50);
  EXPECT_EQ(outside.PlotRangeMax, 150);
  const OptionSettings reversed = Read("PlotRangeMin=120\nPlotRangeMax=80\n");
  EXPECT_EQ(reversed.PlotRangeMin, 120);
  EXPECT_EQ(reversed.PlotRangeMax, 80);
}

TEST(SetOption, TellsWhatBecameOfTheValue) {
  OptionSettings options;
  EXPECT_EQ(SetOption(options, "roundkorvasf", " 1 "), OptionChange::kDone);
  EXPECT_EQ(options.RoundKORVASF, 1);
  EXPECT_EQ(SetOption(options, "iOptDir", "7"), OptionChange::kReset);
  EXPECT_EQ(options.iOptDir, 0);
  EXPECT_EQ(SetOption(options, "CellSizeMetric", "0"), OptionChange::kReset);
  EXPECT_EQ(options.CellSizeMetric, 0.5F);
  EXPECT_EQ(SetOption(options, "CellSize", "1"), OptionChange::kUnknownKey);
  EXPECT_EQ(SetOption(options, "", "1"), OptionChange::kUnknownKey);
  for (const char* value : {"", "one", "1x", "inf", "1,5"}) {
    EXPECT_EQ(SetOption(options, "RoundKORVASF", value), OptionChange::kNoNumber) << value;
  }
  EXPECT_EQ(options.RoundKORVASF, 1);
}

}  // namespace
}  // namespace korva
