// Page 3: the pillars of the panel.
#include <fmt/format.h>

#include "core/Format.h"
#include "core/Tables.h"
#include "reports/PageText.h"
#include "reports/Reports.h"

namespace korva {

std::string ReportPillars(const OutputResults& output, const OptionSettings& options) {
  const WorkValues& w = output.Work;
  const Results& r = output.Out;
  const std::string_view length = UnitLabel(UnitKind::kLength, w.Units);
  const std::string_view bareLength = length.substr(1);
  const auto cell = [](double value, std::string_view pattern) {
    return PadLeft(Format(value, pattern), 14);
  };
  const auto number = [](int row) { return PadLeft(fmt::format("{}", row), 6); };

  PageText page(kPillarsHeading);
  page.Line("PILLAR         ENTRY       MINIMUM       MAXIMUM");
  page.Line("              CENTER     DIMENSION     DIMENSION");
  page.Line(PadLeft(length, 20), PadLeft(length, 14), PadLeft(length, 14));
  for (int i = 1; i <= w.NumRows; ++i) {
    page.Line(number(i), cell(w.EntryCenters[i], kFactorPattern), cell(r.PillarMinDim[i], kFactorPattern),
              cell(r.PillarMaxDim[i], kFactorPattern));
  }
  page.Line();
  page.Line("PILLAR          AREA      STRENGTH  LOAD-BEARING");
  page.Line("                                        CAPACITY");
  page.Line(PadLeft(fmt::format("{}*{}", bareLength, bareLength), 20), PadLeft(output.StressLabel, 14),
            PadLeft(output.LoadLabel, 14));
  for (int i = 1; i <= w.NumRows; ++i) {
    page.Line(number(i), cell(r.PillarArea[i], kLoadPattern), cell(r.PillarStrength[i], kFactorPattern),
              cell(r.PillarCapacity[i], kLoadPattern));
  }
  page.Line();
  page.Line("TOTAL LOAD-BEARING CAPACITY OF PILLARS WITHIN AMZ: ", Format(r.AMZCapacity, kLoadPattern),
            output.LoadLabel);
  if (options.PrintPlotReminder) {
    page.Line();
    page.Line("To view the distribution of Pillar Load Bearing Capacity");
    page.Line("select 'View Plots->Settings->Pillar Load Bearing Capacity'");
  }
  return page.Line().Take();
}

}  // namespace korva
