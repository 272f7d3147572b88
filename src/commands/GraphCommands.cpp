#include "commands/GraphCommands.h"

#include <fmt/format.h>

#include "commands/Formats.h"
#include "core/FileNames.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"
#include "graphs/GraphTitles.h"

namespace korva {

namespace {

constexpr const char* kNeedsExcel =
    "This option will only work if Microsoft Excel is installed on this computer. Proceed?";

// A spreadsheet program may still have an earlier one open.
std::string FreeWorkbookName(const std::string& folder, const std::string& project) {
  const std::string stem = folder + FileBaseName(project, true) + " graph";
  for (int number = 1;; ++number) {
    std::string name = fmt::format("{} {}.xlsx", stem, number);
    if (!StateOfFile(name).exists) {
      return name;
    }
  }
}

}  // namespace

void ExportGraph(Korva& korva, Ports& ports, const Chart& chart) {
  if (!korva.Preferences.Options.AskOfficeInstall &&
      !IsConfirmed(korva, ports.Messages, kNeedsExcel, "messages-graphs")) {
    return;
  }
  std::string file;
  {
    const BusyPointer busy(ports.Busy);
    const std::string bytes = Formats().GraphWorkbook(chart);
    TryMakeFolderPath(korva.Places.TempRoot);  // writing reports what went wrong
    file = FreeWorkbookName(korva.Places.TempRoot, korva.ProjectFileName);
    WriteFileSafely(file, bytes);
  }
  const bool opened = ports.Documents.Open(file);
  ShowMessage(korva, ports.Messages,
              {.text = fmt::format("Exported {} Curves", chart.Curves.size()),
               .detail = opened ? "" : fmt::format("No program is set to open it. It was saved as {}", file),
               .topic = "messages-graphs"});
}

void TakeTitles(Korva& korva, const Chart& chart) {
  const GraphKind graph = korva.Sweep.GraphIndex;
  GraphSettings& settings = korva.Preferences.Graph;
  settings.GraphTitle = chart.Title;
  settings.XAxisTitle[graph] = chart.XAxis.Title;
  settings.YAxisTitle[YTitleOf(graph)] = chart.YAxis.Title;
}

}  // namespace korva
