#include "reports/OutputResults.h"

#include "core/Tables.h"

namespace korva {

namespace {

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

void ChangeLoads(Results& r, double scale) {
  const auto change = [scale](double& load) { load /= scale; };
  change(r.DevLoad);
  change(r.AMZCapacity);
  ChangeEach(change, r.AbutLoad, r.LTRANSBAR, r.LTRANSREM, r.AMZLoad, r.AMZTotalLoad, r.SlabLoad,
             r.BarArchLoad, r.BarTribLoad, r.BarFrontLoad, r.BarSideLoad, r.BarTotalLoad, r.LFBAR,
             r.RemnantLoad, r.BarrierCapacity, r.RowCapacity, r.RowTribLoad, r.RowExcess, r.RemnantCapacity,
             r.PillarCapacity);
}

void ChangeStresses(Results& r, double scale) {
  const auto change = [scale](double& stress) { stress *= scale; };
  ChangeEach(change, r.PillarStrength, r.BarrierStrength, r.RowStrength, r.SideStressFirst,
             r.SideStressSecond, r.BarTribStress, r.BarFrontStress, r.BarSideStress, r.BarTotalStress);
  r.TribStress = static_cast<float>(static_cast<double>(r.TribStress) * scale);
}

}  // namespace

OutputResults ConvertResultUnits(const Calculation& calculation, const OutputUnits& units) {
  OutputResults output{calculation.Work, calculation.Out, UnitLabel(UnitKind::kMetricLoad, kMetric),
                       UnitLabel(UnitKind::kMetricStress, kMetric)};
  if (calculation.Work.Units == kMetric) {
    return output;
  }
  const OutputUnit& load = UnitOf(units.OutputStrGradUnits);
  output.LoadLabel = load.Label;
  ChangeLoads(output.Out, load.Scale);
  const OutputUnit& stress = UnitOf(units.OutputStrUnits);
  output.StressLabel = stress.Label;
  ChangeStresses(output.Out, stress.Scale);
  return output;
}

}  // namespace korva
