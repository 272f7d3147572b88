// Any bytes as a result file: finite numbers and pages of them, or a run-time error.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "core/RuntimeError.h"
#include "strond/KORVAStrond2D.h"

using namespace korva;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const StrondResults results = ReadStrondResults({reinterpret_cast<const char*>(data), size}, "fuzz");
    Project project;
    project.LoadingCondition = PanelLoading{3};
    project.ExtentActiveGob = 1;
    project.NumberEntries = 10;
    const StrondPages pages = StrondReport(results, project, kEnglish);
    for (int page = pages.Page.kFirst; page <= pages.Page.kLast; ++page) {
      Require(pages.Page[page].find("nan") == std::string::npos, "no page has a number that is none");
      Require(pages.Page[page].find("inf") == std::string::npos, "no page has an endless number");
    }
  } catch (const RuntimeError& error) {
    Require(error.Number() != ErrorNumber{}, "an error has its number");
  }
  return 0;
}
