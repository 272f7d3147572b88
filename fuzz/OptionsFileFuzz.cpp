// Any bytes as a settings file: every option ends up within its range.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "files/OptionsFile.h"

using namespace korva;

static void CheckRanges(const OptionSettings& o) {
  for (const int flag :
       {o.OutputStrUnits, o.OutputStrGradUnits, o.ShowInputScreenOnLoad, o.IssueWarningCancel,
        o.ViewChildWindow, o.PrintModuleHeader, o.PlotEntryDims, o.PlotXcutDims, o.PlotGobDims,
        o.PlotSingleXcutDims, o.PlotGobExtLoose, o.PrintPlotReminder, o.AskOfficeInstall,
        o.Strond2DViewProgress, o.Strond2DViewProgOutput, o.Strond2DViewOutput}) {
    Require(flag == 0 || flag == 1, "a flag is 0 or 1");
  }
  Require(o.PlotRangeMin >= 0 && o.PlotRangeMin <= 150, "PlotRangeMin is in 0 to 150");
  Require(o.PlotRangeMax >= 0 && o.PlotRangeMax <= 150, "PlotRangeMax is in 0 to 150");
  Require(o.RoundKORVASF >= 0 && o.RoundKORVASF <= 2, "RoundKORVASF is in 0 to 2");
  Require(o.iOptDir >= 0 && o.iOptDir <= 3, "iOptDir is in 0 to 3");
  Require(o.CellSizeEnglish != 0 && o.CellSizeMetric != 0, "a cell has a size");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  OptionSettings options = ReadOptions(text);
  CheckRanges(options);
  Require(options.PlotRangeMin != options.PlotRangeMax, "a plot range is not empty");
  const std::size_t equals = std::min(text.find('='), text.size());
  SetOption(options, text.substr(0, equals), text.substr(std::min(equals + 1, text.size())));
  CheckRanges(options);
  return 0;
}
