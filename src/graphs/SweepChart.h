// A parametric sweep as a chart.
#pragma once

#include "charts/Chart.h"
#include "core/GraphData.h"
#include "core/Settings.h"

namespace korva {

// The stability factor that a graph is read against: 2 for barriers, 1.5 for the others.
double ReferenceFactor(GraphKind graph);

// The first `curves` curves of `data`, with titles and format of `settings`.
Chart ChartOf(const SweepData& data, int curves, const GraphSettings& settings, bool showReference);

}  // namespace korva
