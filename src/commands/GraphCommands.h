// What the graph window does with a graph beyond showing it.
#pragma once

#include <string>

#include "charts/Chart.h"
#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

// "Export to Excel": asks if the settings want that, writes a workbook into the documents' temporary folder
// under a name that is free, opens it, and tells how many curves it has. Run-time errors of writing.
void ExportGraph(Korva& korva, Ports& ports, const Chart& chart);

// Takes titles that were edited in the chart of the last sweep into the settings.
void TakeTitles(Korva& korva, const Chart& chart);

}  // namespace korva
