// Any bytes as an exchange line: a panel that is solved to finite factors within the cell limit, or a status.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "ExchangeLine.h"
#include "Factors.h"
#include "Require.h"
#include "ResultFile.h"
#include "Status.h"

using namespace korva::laminated;

static void CheckSolution(const Panel& panel) {
  const Grid grid = GridFor(LayOut(panel));
  korva::Require(grid.Cells() > 0 && grid.Cells() <= 1'200'000, "the grid keeps to its limit");
  const Factors factors = ComputeFactors(panel, {.Cells = {.CellFactor = 8, .MostCells = 4000}});
  for (const double factor : factors.Pillars) {
    korva::Require(std::isfinite(factor) && factor >= 0, "a factor is a number");
  }
  const std::string whole = ResultText(factors);
  const std::string text = whole.substr(whole.find('\n'));  // after the heading
  korva::Require(text.find("nan") == std::string::npos && text.find("inf") == std::string::npos,
                 "a result is a number");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    CheckSolution(ReadExchangeLine({reinterpret_cast<const char*>(data), size}));
  } catch (const Failure& failure) {
    korva::Require(failure.Code != 0, "a failure has a status");
  }
  return 0;
}
