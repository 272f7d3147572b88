#include "graphs/GraphTitles.h"

#include "core/Tables.h"

namespace korva {

namespace {

std::string DefaultXTitle(int graph, UnitSystem units) {
  std::string title(DefaultXAxisTitles[static_cast<std::size_t>(graph)]);
  return title.append(graph == kXcutAngleGraph ? " (deg)" : UnitLabel(UnitKind::kLength, units));
}

}  // namespace

void SetDefaultTitles(GraphSettings& graph, UnitSystem units) {
  for (int i = 0; i < kGraphs; ++i) {
    graph.XAxisTitle[i] = DefaultXTitle(i, units);
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

void PrepareTitles(GraphSettings& graph, int index, UnitSystem units) {
  std::string& title = graph.XAxisTitle[index];
  if (title.empty() || graph.GraphUnits != units) {
    SetDefaultTitles(graph, units);
  } else if (title == DefaultXAxisTitles[static_cast<std::size_t>(index)]) {
    title = DefaultXTitle(index, units);  // as a settings file without titles reads
  }
}

int DisplayCurves(const Project& project, const SweepData& data) {
  return project.ExtentActiveGob == 0 || project.LoadingCondition == PanelLoading::kDevelopmentLoad
             ? 1
             : data.CurveCount;
}

std::string_view CurveLabel(int curve) {
  return ModelStageTitles[static_cast<std::size_t>(curve - 1)];
}

}  // namespace korva
