#include "plan/PlanNotes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/Tables.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

// Of the bleeder pillars; beneath them, meters keep their decimals.
void AddRowLengths(const PlanRequest& request, std::vector<double>& lengths) {
  const Project& p = request.ProjectCalc;
  const bool sizes = request.PlotType == kPlotDimensions;
  const bool widths = sizes || (request.Options.PlotGobDims && request.Units != kMetric);
  for (const int side : {kFirstSideLine, kSecondSideLine}) {
    const bool first = side == kFirstSideLine;
    if (first ? HasFirstSideGob(p) && IsSet(p.RowC) : HasSecondSideGob(p) && IsSet(p.RowD)) {
      lengths.insert(lengths.end(),
                     {widths ? BleederWidth(p, side) : 0, sizes ? p.XcutSpacing - p.EntryWidth : 0});
    }
  }
}

// The lengths that are drawn in whole units.
std::vector<double> WholeLengths(const PlanRequest& request) {
  const Project& p = request.ProjectCalc;
  const OptionSettings& options = request.Options;
  std::vector<double> lengths;
  for (int i = 1; i < p.NumberEntries; ++i) {
    if (options.PlotEntryDims) {
      lengths.push_back(p.XcutCenters[i]);
    }
    if (request.PlotType == kPlotDimensions) {
      const PillarSize size = PillarSizeOf(request, i);
      lengths.insert(lengths.end(), {size.Width, size.Length});
    }
  }
  if (options.PlotXcutDims) {
    lengths.push_back(p.XcutSpacing);
  }
  const bool toScale = !request.Geometry.SchematicGobs;
  const bool cuts = request.Units != kMetric;  // are whole, too
  if (options.PlotGobDims && HasFirstSideGob(p)) {
    lengths.insert(lengths.end(),
                   {p.BarrierFirstGob, toScale ? p.ExtentFirstGob : 0, cuts ? p.SlabcutFirstGob : 0});
  }
  if (options.PlotGobDims && HasSecondSideGob(p)) {
    lengths.insert(lengths.end(),
                   {p.BarrierSecondGob, toScale ? p.ExtentSecondGob : 0, cuts ? p.SlabcutSecondGob : 0});
  }
  AddRowLengths(request, lengths);
  if (HasActiveGob(p)) {
    lengths.push_back(p.ExtentActiveGob);
  }
  return lengths;
}

// But for what only the arithmetic has made of it.
bool IsRounded(double length) {
  constexpr double kNoise = 1e-6;
  return std::abs(length - std::round(length)) > kNoise;
}

}  // namespace

std::vector<std::string> PlanNotes(const PlanRequest& request) {
  std::vector<std::string> notes;
  bool other = false;
  for (int i = 1; i < request.ProjectCalc.NumberEntries; ++i) {
    other = other || HasOtherStrengthSize(request, i);
  }
  if (other && request.PlotType == kPlotDimensions) {
    notes.emplace_back("Pillar sizes: across and along the entries. Those of the strength: page 3.");
  }
  const std::vector<double> lengths = WholeLengths(request);
  if (std::any_of(lengths.begin(), lengths.end(), IsRounded)) {
    notes.push_back(fmt::format("Dimensions without a decimal are rounded to whole {}.",
                                BareUnit(UnitLabel(UnitKind::kLength, request.Units))));
  }
  return notes;
}

}  // namespace korva
