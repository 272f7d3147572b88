
#include "plan/KORVAgraf.h"

namespace korva {

namespace {

constexpr double kPaPerKPa = 1000;

void AddSideStress(PlanValues& values, int line, double stress) {
  values.SideStress[line] += stress;
  values.HasSideStress[line] = true;
}

// A line's share of each side abutment. The lines of the second side are counted from there. Without a side
// gob there is nothing to share; behind the third line the model says nothing.
void FillSideStress(const OutputResults& output, PlanValues& values) {
  const int lines = output.Work.NumRows;
  const int sides = SideGobCount(output.Work.LoadCond);
  for (int i = 1; i <= lines; ++i) {
    if (sides == 0) {
      AddSideStress(values, i, 0);
    }
    if (sides >= 1 && i <= kSideStressRows) {
      AddSideStress(values, i, output.Out.SideStressFirst[i]);
    }
    if (sides == 2 && i <= kSideStressRows) {
      AddSideStress(values, lines + 1 - i, output.Out.SideStressSecond[i]);
    }
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
void FillLaminated(const StrondResults& results, UnitSystem units, const OutputUnits& output,
                   PlanValues& values) {
  const bool psf = units != kMetric && output.OutputStrUnits != StressUnit::kPsi;
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

PlanValues PlanValuesOf(const Calculation* run, const StrondResults* laminated, UnitSystem units,
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
