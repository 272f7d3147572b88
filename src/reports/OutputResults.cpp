#include "reports/OutputResults.h"

namespace korva {

namespace {

constexpr double kPoundsPerTon = 2000;
constexpr double kSquareFeetPerSquareInch = 0.006944444444444444;

template <class Array, class Change>
void ChangeAll(Array& values, Change change) {
  for (auto& value : values) {
    if constexpr (requires { value.begin(); }) {
      ChangeAll(value, change);
    } else {
      change(value);
    }
  }
}

template <class Change, class... Arrays>
void ChangeEach(Change change, Arrays&... arrays) {
  (ChangeAll(arrays, change), ...);
}

void LoadsToTons(Results& r) {
  const auto toTons = [](double& load) { load /= kPoundsPerTon; };
  toTons(r.DevLoad);
  toTons(r.AMZCapacity);
  ChangeEach(toTons, r.AbutLoad, r.LTRANSBAR, r.LTRANSREM, r.AMZLoad, r.AMZTotalLoad, r.SlabLoad,
             r.BarArchLoad, r.BarTribLoad, r.BarFrontLoad, r.BarSideLoad, r.BarTotalLoad, r.LFBAR,
             r.RemnantLoad, r.BarrierCapacity, r.RowCapacity, r.RowTribLoad, r.RowExcess, r.RemnantCapacity,
             r.PillarCapacity);
}

void StressesToPsi(Results& r) {
  const auto toPsi = [](double& stress) { stress *= kSquareFeetPerSquareInch; };
  ChangeEach(toPsi, r.PillarStrength, r.BarrierStrength, r.RowStrength, r.SideStressFirst, r.SideStressSecond,
             r.BarTribStress, r.BarFrontStress, r.BarSideStress, r.BarTotalStress);
  r.TribStress = static_cast<float>(static_cast<double>(r.TribStress) * kSquareFeetPerSquareInch);
}

}  // namespace

OutputResults ConvertResultUnits(const Calculation& calculation, const OutputUnits& units) {
  OutputResults output{calculation.Work, calculation.Out, " (kN)", " (kPa)"};
  if (calculation.Work.Units == kMetric) {
    return output;
  }
  output.LoadLabel = " (lbs)";
  if (units.OutputStrGradUnits == LoadUnit::kTons) {
    output.LoadLabel = " (tons)";
    LoadsToTons(output.Out);
  }
  output.StressLabel = " (psf)";
  if (units.OutputStrUnits == StressUnit::kPsi) {
    output.StressLabel = " (psi)";
    StressesToPsi(output.Out);
  }
  return output;
}

}  // namespace korva
