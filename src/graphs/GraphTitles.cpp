#include "graphs/GraphTitles.h"

namespace korva {

namespace {

std::string DefaultXTitle(GraphKind graph, UnitSystem units) {
  std::string title(ParameterName(graph));
  return title.append(graph == kXcutAngleGraph ? " (deg)" : UnitLabel(UnitKind::kLength, units));
}

}  // namespace

void SetDefaultTitles(GraphSettings& settings, UnitSystem units) {
  const bool parameters = settings.GraphSetParams;
  settings = GraphSettings();
  settings.GraphSetParams = parameters;
  settings.GraphUnits = units;
  for (int i = 0; i < kGraphs; ++i) {
    settings.XAxisTitle[i] = DefaultXTitle(static_cast<GraphKind>(i), units);
  }
  for (int i = 0; i < 2; ++i) {
    settings.YAxisTitle[i] = DefaultYAxisTitles[static_cast<std::size_t>(i)];
  }
}

void PrepareTitles(GraphSettings& settings, GraphKind graph, UnitSystem units) {
  std::string& title = settings.XAxisTitle[graph];
  if (title.empty() || settings.GraphUnits != units) {
    SetDefaultTitles(settings, units);
  } else if (title == ParameterName(graph)) {
    title = DefaultXTitle(graph, units);  // as a settings file without titles reads
  }
}

bool HasBarrierOf(GraphKind graph, const Project& project) {
  if (graph == kSecondBarrierGraph) {
    return project.BarrierSecondGob > 0 && HasSecondSideGob(project);
  }
  return !IsBarrierGraph(graph) || (project.BarrierFirstGob > 0 && HasFirstSideGob(project));
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
