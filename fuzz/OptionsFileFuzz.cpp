// Any bytes as a settings file: every option ends up within its range.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "files/OptionsFile.h"

namespace {

using namespace korva;

void CheckRanges(const OptionSettings& options) {
  for (const std::int16_t flag :
       {options.OutputStrUnits, options.OutputStrGradUnits, options.ShowInputScreenOnLoad,
        options.IssueWarningCancel, options.ViewChildWindow, options.PrintModuleHeader, options.PlotEntryDims,
        options.PlotXcutDims, options.PlotGobDims, options.PlotSingleXcutDims, options.PlotGobExtLoose,
        options.PrintPlotReminder, options.AskOfficeInstall, options.Strond2DViewProgress,
        options.Strond2DViewProgOutput, options.Strond2DViewOutput}) {
    Require(flag == 0 || flag == 1, "a flag is 0 or 1");
  }
  for (const float percent : {options.PlotRangeMin, options.PlotRangeMax}) {
    Require(percent >= 0 && percent <= 150, "a percentage is in 0 to 150");
  }
  Require(options.RoundKORVASF >= 0 && options.RoundKORVASF <= 2, "RoundKORVASF is in 0 to 2");
  Require(options.iOptDir >= 0 && options.iOptDir <= 3, "iOptDir is in 0 to 3");
  Require(options.CellSizeEnglish != 0 && options.CellSizeMetric != 0, "a cell has a size");
}

}  // namespace

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
