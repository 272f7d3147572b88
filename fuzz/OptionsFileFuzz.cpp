// Any bytes as a settings file: every option ends up within its range.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "files/OptionsFile.h"

using namespace korva;

static void CheckRanges(const OptionSettings& o) {
  Require(static_cast<std::size_t>(o.OutputStrUnits) < kStressUnits.size(), "a unit of stress that there is");
  Require(static_cast<std::size_t>(o.OutputStrGradUnits) < kLoadUnits.size(), "a unit of load that there is");
  Require(o.PlotRangeMin >= 0 && o.PlotRangeMin <= 150, "PlotRangeMin is in 0 to 150");
  Require(o.PlotRangeMax >= 0 && o.PlotRangeMax <= 150, "PlotRangeMax is in 0 to 150");
  const int rounding = static_cast<int>(o.RoundKORVASF);
  const int folder = static_cast<int>(o.iOptDir);
  Require(rounding >= 0 && rounding <= 2, "RoundKORVASF is in 0 to 2");
  Require(folder >= 0 && folder <= 3, "iOptDir is in 0 to 3");
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
