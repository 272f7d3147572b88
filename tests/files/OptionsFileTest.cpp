#include <gtest/gtest.h>

#include <functional>

#include "files/OptionsFile.h"

namespace korva {
namespace {

using O = OptionSettings;

OptionSettings Read(const std::string& lines) {
  return ReadOptions("[KORVAOptions]\r\n" + lines);
}

struct Switch {
  std::string Key;
  std::function<int(const O&)> Of;
};
#define SWITCH(key)                                          \
  {                                                          \
#key, [](const O& o) { return static_cast<int>(o.key); } \
  }
// 0 is the value of the first six where the key is missing, 1 that of the others.
const Switch kSwitches[] = {
    SWITCH(OutputStrUnits),       SWITCH(OutputStrGradUnits),     SWITCH(ShowInputScreenOnLoad),
    SWITCH(Strond2DViewProgress), SWITCH(Strond2DViewProgOutput), SWITCH(Strond2DViewOutput),
    SWITCH(IssueWarningCancel),   SWITCH(ViewChildWindow),        SWITCH(PrintModuleHeader),
    SWITCH(PlotEntryDims),        SWITCH(PlotXcutDims),           SWITCH(PlotGobDims),
    SWITCH(PlotSingleXcutDims),   SWITCH(PlotGobExtLoose),        SWITCH(PrintPlotReminder),
    SWITCH(AskOfficeInstall)};
#undef SWITCH

// The settings that are no switches.
std::vector<double> Numbers(const O& o) {
  return {o.PlotRangeMin,   o.PlotRangeMax,   double(o.RoundKORVASF), double(o.CellSizeEnglish),
          o.CellSizeMetric, double(o.iOptDir)};
}

TEST(ReadOptions, AMissingOrEmptyKeyHasItsOwnValue) {
  for (const O& options :
       {ReadOptions(""), ReadOptions("[Graph]\niOptDir=3\n"),
        Read("OutputStrUnits=\nPlotRangeMin=\nPlotRangeMax=\nCellSizeEnglish=\niOptDir=\n")}) {
    for (std::size_t i = 0; i < std::size(kSwitches); ++i) {
      EXPECT_EQ(kSwitches[i].Of(options), i < 6 ? 0 : 1) << kSwitches[i].Key;
    }
    EXPECT_EQ(Numbers(options), (std::vector<double>{100, 150, 0, 2, 0.5, 1}));
  }
}

TEST(ReadOptions, EachKeyReachesItsSetting) {
  for (const auto& [key, unused] : kSwitches) {
    for (const bool on : {false, true}) {
      const O options = Read(key + (on ? "=1" : "=0"));
      for (const auto& [other, held] : kSwitches) {
        EXPECT_EQ(held(options), other == key ? on : held(Read(""))) << key << other;
      }
    }
  }
  EXPECT_EQ(Numbers(Read("PlotRangeMin=10\nPlotRangeMax=120\nRoundKORVASF=2\nCellSizeEnglish=5\n"
                         "CellSizeMetric=1.25\niOptDir=2 of 3\n")),
            (std::vector<double>{10, 120, 2, 5, 1.25, 2}));
}

TEST(ReadOptions, AValueOutsideItsRangeBecomesTheLowerBoundAndACellWithoutSizeItsOwnValue) {
  for (const char* value : {"2", "-1", "70000", "1e999", "off", "nan"}) {
    EXPECT_EQ(Read(std::string("PlotXcutDims=") + value).PlotXcutDims, 0) << value;
  }
  EXPECT_EQ(Numbers(Read("PlotRangeMin=200\nPlotRangeMax=49.6\nRoundKORVASF=3\nCellSizeEnglish=0\n"
                         "CellSizeMetric=1e-60\niOptDir=4\n")),  // 1e-60 is 0 in 32 bits
            (std::vector<double>{0, 50, 0, 2, 0.5, 0}));
}

TEST(ReadOptions, AnEmptyPlotRangeIsReset) {
  for (const char* lines : {"PlotRangeMin=70\nPlotRangeMax=70\n", "PlotRangeMin=-1\nPlotRangeMax=151\n"}) {
    EXPECT_EQ(Read(lines).PlotRangeMin, 50);
    EXPECT_EQ(Read(lines).PlotRangeMax, 150);
  }
  EXPECT_EQ(Read("PlotRangeMin=120\nPlotRangeMax=80\n").PlotRangeMin, 120);
}

TEST(SetOption, TellsWhatBecameOfTheValue) {
  O options;
  EXPECT_EQ(SetOption(options, "roundkorvasf", " 1 "), OptionChange::kDone);
  EXPECT_EQ(SetOption(options, "iOptDir", "7"), OptionChange::kReset);
  EXPECT_EQ(SetOption(options, "CellSizeMetric", "0"), OptionChange::kReset);
  EXPECT_EQ(SetOption(options, "CellSize", "1"), OptionChange::kUnknownKey);
  for (const char* value : {"", "one", "1x", "inf", "1,5"}) {
    EXPECT_EQ(SetOption(options, "RoundKORVASF", value), OptionChange::kNoNumber) << value;
  }
  EXPECT_EQ(Numbers(options), (std::vector<double>{50, 150, 1, 2, 0.5, 0}));
}

}  // namespace
}  // namespace korva
