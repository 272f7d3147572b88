#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <type_traits>

#include "reports/OutputResults.h"

namespace korva {
namespace {

template <class T>
void Fill(T& value) {
  if constexpr (std::is_arithmetic_v<T>) {
    value = 1;
  } else {
    for (auto& element : value) {
      Fill(element);
    }
  }
}

template <class T>
bool AllAre(const T& value, double expected) {
  if constexpr (std::is_arithmetic_v<T>) {
    return std::abs(static_cast<double>(value) - expected) < 1e-7 * expected;
  } else {
    return std::all_of(value.begin(), value.end(),
                       [expected](const auto& element) { return AllAre(element, expected); });
  }
}

// The names of the results that the conversion of a record full of ones makes `value` throughout.
std::set<std::string> Changed(std::int16_t units, const OutputUnits& choice, double value) {
  Calculation run;
  run.Work.Units = units;
  VisitResults(run.Out, [](const char*, auto& result) { Fill(result); });
  std::set<std::string> names;
  const OutputResults output = ConvertResultUnits(run, choice);
  VisitResults(output.Out, [&](const char* name, const auto& result) {
    if (AllAre(result, value)) {
      names.insert(name);
    }
  });
  return names;
}

const std::set<std::string> kLoads = {
    "DevLoad",         "AMZCapacity",    "AbutLoad",       "LTRANSBAR",   "LTRANSREM",    "AMZLoad",
    "AMZTotalLoad",    "SlabLoad",       "BarArchLoad",    "BarTribLoad", "BarFrontLoad", "BarSideLoad",
    "BarTotalLoad",    "LFBAR",          "RemnantLoad",    "RowCapacity", "RowTribLoad",  "RowExcess",
    "RemnantCapacity", "PillarCapacity", "BarrierCapacity"};
const std::set<std::string> kStresses = {
    "PillarStrength", "BarrierStrength", "RowStrength",    "SideStressFirst", "SideStressSecond",
    "TribStress",     "BarTribStress",   "BarFrontStress", "BarSideStress",   "BarTotalStress"};

TEST(ConvertResultUnits, LoadsAndStressesHaveTheirOwnOption) {
  const OutputUnits tons = {.OutputStrUnits = 1, .OutputStrGradUnits = 1};
  const OutputUnits psi = {.OutputStrUnits = 0, .OutputStrGradUnits = 0};
  const std::size_t all = Changed(kMetric, {}, 1).size();  // metric results stay
  EXPECT_EQ(Changed(kEnglish, {.OutputStrUnits = 1, .OutputStrGradUnits = 0}, 1).size(), all);
  EXPECT_EQ(Changed(kEnglish, tons, 1 / 2000.0), kLoads);
  EXPECT_EQ(Changed(kEnglish, tons, 1).size(), all - kLoads.size());
  EXPECT_EQ(Changed(kEnglish, psi, 1 / 144.0), kStresses);
  EXPECT_EQ(Changed(kEnglish, psi, 1).size(), all - kStresses.size());
}

TEST(ConvertResultUnits, Labels) {
  const auto labels = [](std::int16_t units, std::int16_t stress, std::int16_t load) {
    Calculation run;
    run.Work.Units = units;
    const OutputResults output =
        ConvertResultUnits(run, {.OutputStrUnits = stress, .OutputStrGradUnits = load});
    return std::string(output.LoadLabel) + std::string(output.StressLabel);
  };
  EXPECT_EQ(labels(kEnglish, 0, 1), " (tons) (psi)");
  EXPECT_EQ(labels(kEnglish, 1, 0), " (lbs) (psf)");
  EXPECT_EQ(labels(kMetric, 0, 1), " (kN) (kPa)");
}

}  // namespace
}  // namespace korva
