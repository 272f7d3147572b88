#include "plan/KORVAgraf.h"

namespace korva {

namespace {

constexpr double kSquareInchesPerSquareFoot = 144;
constexpr double kPaPerKPa = 1000;

// A row's share from the first side, and from the second, whose rows are counted from there.
void FillSideStress(const OutputResults& output, PlanValues& values) {
  const int lines = output.Work.NumRows;
  for (int i = 1; i <= std::min(3, lines); ++i) {
    values.SideStress[i] += output.Out.SideStressFirst[i];
    values.SideStress[lines + 1 - i] += output.Out.SideStressSecond[i];
  }
  values.TribStress = static_cast<double>(output.Out.TribStress);
}

void FillTraditional(const OutputResults& output, PlanValues& values) {
  for (int i = 1; i <= output.Work.NumRows; ++i) {
    values.Strength[i] = output.Out.PillarStrength[i];
    values.Capacity[i] = output.Out.PillarCapacity[i];
  }
  for (int side = 0; side < 2; ++side) {
    values.RowStrength[side] = output.Out.RowStrength[kFirstSide + side];
    values.RowCapacity[side] = output.Out.RowCapacity[kFirstSide + side];
  }
  values.HasStrength = values.HasTraditional = values.HasRowStrength = true;
  FillSideStress(output, values);
}

// The solver gives psi and Pa.
void FillLaminated(const StrondResults& results, std::int16_t units, const OutputUnits& output,
                   PlanValues& values) {
  const bool psf = units != kMetric && output.OutputStrUnits != 0;
  for (int i = 1; i <= kMaxRows; ++i) {
    const auto strength = static_cast<double>(results.StrondPillarStrength[i - 1]);
    values.Strength[i] = units == kMetric ? strength / kPaPerKPa
                         : psf            ? strength * kSquareInchesPerSquareFoot
                                          : strength;
  }
  values.HasStrength = true;
  values.HasRowStrength = false;  // the solver says nothing about bleeder pillars
}

}  // namespace

PlanValues PlanValuesOf(const Calculation* run, const StrondResults* laminated, std::int16_t units,
                        const OutputUnits& output) {
  PlanValues values;
  Calculation none;
  none.Work.Units = units;
  const OutputResults results = ConvertResultUnits(run != nullptr ? *run : none, output);
  values.StressLabel = results.StressLabel;
  values.LoadLabel = results.LoadLabel;
  if (run != nullptr) {
    FillTraditional(results, values);
  }
  if (laminated != nullptr) {
    FillLaminated(*laminated, units, output, values);
  }
  return values;
}

}  // namespace korva
