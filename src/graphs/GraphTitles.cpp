#include "graphs/GraphTitles.h"

#include "core/Tables.h"

namespace korva {

void SetDefaultTitles(GraphSettings& graph, std::int16_t units) {
  for (int i = 0; i < kGraphs; ++i) {
    graph.XAxisTitle[i] = DefaultXAxisTitles[static_cast<std::size_t>(i)];
    graph.XAxisTitle[i] += i == kXcutAngleGraph ? " (deg)" : UnitLabel(UnitKind::kLength, units);
  }
  for (int i = 0; i < 2; ++i) {
    graph.YAxisTitle[i] = DefaultYAxisTitles[static_cast<std::size_t>(i)];
  }
  const GraphSettings defaults;
  graph.GraphTitle = defaults.GraphTitle;
  graph.GraphUnits = units;
  graph.GridStyle = defaults.GridStyle;
  graph.GraphStyle = defaults.GraphStyle;
  graph.CurveLegend = defaults.CurveLegend;
  graph.SymbolSize = defaults.SymbolSize;
}

// A settings file without titles reads as the default ones without a unit; an axis always tells its unit.
void PrepareTitles(GraphSettings& graph, int index, std::int16_t units) {
  const std::string& title = graph.XAxisTitle[index];
  const bool made = !title.empty() && title != DefaultXAxisTitles[static_cast<std::size_t>(index)];
  if (!made || graph.GraphUnits != units) {
    SetDefaultTitles(graph, units);
  }
}

int DisplayCurves(const Project& project, const SweepData& data) {
  return project.ExtentActiveGob == 0 || project.LoadingCondition == 0 ? 1 : data.CurveCount;
}

std::string_view CurveLabel(int curve) {
  return ModelStageTitles[static_cast<std::size_t>(curve - 1)];
}

}  // namespace korva
