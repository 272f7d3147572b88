#include "Layout.h"

#include <algorithm>
#include <cmath>

#include "Calibration.h"

namespace korva::laminated {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943278;
constexpr double kRightAngle = 90;

// The front abutment of the active gob is the array of pillars, which is softer than solid coal.
constexpr double kSoftestAbutment = 0.05;

constexpr double kCellsPerEntry = 5;
constexpr double kCellsPerLength = 10;
constexpr double kCellsPerPillar = 10;
constexpr double kCellsPerBarrier = 5;
constexpr double kMostCellsPerEntry = 12;
constexpr double kLeastCoalShare = 0.2;
constexpr double kInbyMargin = 1.5;  // the strip of solid between side gobs settles more slowly
constexpr int kSideMultiple = 32;
constexpr double kRoundingMargin = 1.2;
constexpr double kGrowth = 1.02;

Ground Between(double xa, double xb, double y0, double y1) {
  return {.X0 = std::min(xa, xb), .X1 = std::max(xa, xb), .Y0 = y0, .Y1 = y1};
}

Ground Clipped(Ground ground, double y0, double y1) {
  ground.Y0 = std::max(ground.Y0, y0);
  ground.Y1 = std::min(ground.Y1, y1);
  return ground;
}

void SetActiveGob(Layout& layout) {
  const Panel& panel = layout.Given;
  const auto side = [&](int k) -> const Side& { return panel.Sides.at(static_cast<std::size_t>(k)); };
  const double firstRib = layout.EntryX[1] - panel.EntryWidth / 2;
  const double lastRib = layout.EntryX.at(static_cast<std::size_t>(panel.Rows() - 1)) + panel.EntryWidth / 2;
  layout.GobLeft = panel.RowA ? firstRib : layout.Rib[0] - side(0).SlabCut;
  layout.GobRight = panel.RowB ? lastRib : layout.Rib[1] + side(1).SlabCut;
  layout.GobStart = -layout.CrosscutHalf();
  layout.GobEnd = std::min(-panel.ExtentActiveGob, layout.GobStart);
  const double width = layout.GobRight - layout.GobLeft;
  layout.Retreats = panel.ExtentActiveGob > 0 && width > 0;
  if (!layout.Retreats) {
    return;
  }
  layout.ActiveStiffness =
      GobStiffness(panel.DepthCover, layout.Length,
                   {.Width = std::min(panel.ExtentActiveGob, width),
                    .AbutmentAngle = panel.AbutmentAngleActiveGob,
                    .AbutmentStiffness = std::max(1 - layout.Extraction(), kSoftestAbutment)});
  // The remnants reach as far as the front abutment does at the corner of the gob.
  const double front = layout.PanelWidth() - (panel.RowA ? panel.Centers[0] : 0) -
                       (panel.RowB ? panel.Centers.at(static_cast<std::size_t>(panel.Rows() - 1)) : 0) +
                       side(0).SlabCut + side(1).SlabCut;
  const double reach =
      2 * ShedCover(panel.DepthCover, {.Width = kUnbounded, .AbutmentAngle = panel.AbutmentAngleActiveGob});
  layout.RemnantLength = std::max(0.0, std::min({front / 2, panel.ExtentActiveGob / 2, reach}));
}

// How far the grid reaches to the four sides of the origin.
struct Reach {
  double Left = 0;
  double Right = 0;
  double Inby = 0;
  double Outby = 0;
};

Reach ReachOf(const Layout& layout, double margin) {
  const Panel& panel = layout.Given;
  std::array<double, kSides> sides{};
  for (int side = 0; side < kSides; ++side) {
    const auto s = static_cast<std::size_t>(side);
    const bool gob = side < panel.GobSides();
    const double extent = gob ? panel.Sides.at(s).Extent : 0;
    const double edge = gob ? layout.BeyondBarrier(side).Gob : layout.Rib.at(s);
    sides.at(s) = edge + Layout::Outward(side) *
                             std::min(extent + margin, margin / std::sqrt(layout.SideStiffness.at(s)));
  }
  const double skew = layout.Line.Highest() - layout.Line.Lowest();
  const double array = margin / std::sqrt(std::max(kLeastCoalShare, 1 - layout.Extraction()));
  const double inby = std::max(
      {array, layout.RemnantLength + margin,
       std::min(panel.ExtentActiveGob + kInbyMargin * margin, margin / std::sqrt(layout.ActiveStiffness))});
  // Both ends lie in the middle of a pillar or of a crosscut, where the array mirrors itself.
  const auto toMirror = [half = panel.XcutSpacing / 2](double y) { return std::ceil(y / half) * half; };
  return {sides[0], sides[1], toMirror(inby + skew), toMirror(panel.BreadthAMZ + array + skew)};
}

double CellByRule(const Layout& layout) {
  const Panel& panel = layout.Given;
  double cell = std::min(panel.EntryWidth / kCellsPerEntry, layout.Length / kCellsPerLength);
  const auto fit = [&](double dimension, double cells) {
    if (dimension > 0) {
      cell = std::min(cell, std::max(dimension / cells, panel.EntryWidth / kMostCellsPerEntry));
    }
  };
  fit(layout.PillarLengthAlong() * layout.Sine, kCellsPerPillar);
  for (int row = 0; row < panel.Rows(); ++row) {
    fit(layout.PillarWidth(row), kCellsPerPillar);
  }
  for (int side = 0; side < panel.GobSides(); ++side) {
    const Side& given = panel.Sides.at(static_cast<std::size_t>(side));
    fit(given.Barrier, kCellsPerBarrier);
    fit(given.Barrier - given.SlabCut, kCellsPerBarrier);
    fit(given.BleederWidth, kCellsPerBarrier);
  }
  return cell;
}

int SideCells(double length, double cell) {
  return static_cast<int>(std::ceil(std::ceil(length / cell) / kSideMultiple)) * kSideMultiple;
}

// Cells no larger than `cell`, square but for the rounding of the sides.
Grid GridOf(const Reach& reach, double cell) {
  const double across = reach.Right - reach.Left;
  const double along = reach.Outby + reach.Inby;
  Grid grid = {.X0 = reach.Left, .Y0 = -reach.Inby};
  grid.Nx = SideCells(across, cell);
  grid.Ny = SideCells(along, cell);
  grid.Cx = across / grid.Nx;
  grid.Cy = along / grid.Ny;
  return grid;
}

// The first and the last crosscut pitch that the grid touches.
std::array<int, 2> PitchesIn(const Layout& layout, const Grid& grid) {
  const double pitch = layout.Given.XcutSpacing;
  return {static_cast<int>(std::floor((grid.Y0 - layout.Line.Highest()) / pitch)) - 1,
          static_cast<int>(std::ceil((grid.Y0 + grid.Ny * grid.Cy - layout.Line.Lowest()) / pitch)) + 1};
}

// Adds up the stiffness of the cells of a grid, one piece of ground after the other.
struct StiffnessMap {
  const Layout& Panel;
  const Grid& Seam;
  std::vector<double> Cells;

  void Add(const Ground& ground, double stiffness) {
    AddStiffness(Cells, Seam, Panel.Line, ground, stiffness);
  }
};

// Side gobs and the solid ground behind them, or beside a panel without; alike in both cases.
void AddSideGround(StiffnessMap& map) {
  const Layout& layout = map.Panel;
  for (int side = 0; side < kSides; ++side) {
    const auto s = static_cast<std::size_t>(side);
    const double far = Layout::Outward(side) * kUnbounded;
    if (side >= layout.Given.GobSides()) {
      map.Add(Between(layout.Rib.at(s), far, -kUnbounded, kUnbounded), 1);
      continue;
    }
    const double gob = layout.BeyondBarrier(side).Gob;
    const double end = gob + Layout::Outward(side) * layout.Given.Sides.at(s).Extent;
    map.Add(Between(gob, end, -kUnbounded, kUnbounded), layout.SideStiffness.at(s));
    map.Add(Between(end, far, -kUnbounded, kUnbounded), 1);
  }
}

void AddBleeders(StiffnessMap& map, int side, double y0, double y1, double stiffness) {
  const Layout& layout = map.Panel;
  if (!layout.Given.Sides.at(static_cast<std::size_t>(side)).BleederRow) {
    return;
  }
  const double shift = layout.Line.At(layout.Rib.at(static_cast<std::size_t>(side)));
  const auto [first, last] = PitchesIn(layout, map.Seam);
  for (int along = first; along <= last; ++along) {
    map.Add(Clipped(layout.BleederPillar(side, along), y0 + shift, y1 + shift), stiffness);
  }
}

}  // namespace

double Layout::Extraction() const {
  double width = 0;
  for (int row = 0; row < Given.Rows(); ++row) {
    width += std::max(0.0, PillarWidth(row));
  }
  return 1 - width * std::max(0.0, PillarLengthAlong()) / (PanelWidth() * Given.XcutSpacing);
}

Ground Layout::Pillar(int row, int along) const {
  const auto r = static_cast<std::size_t>(row);
  return {.X0 = EntryX.at(r) + Given.EntryWidth / 2,
          .X1 = EntryX.at(r + 1) - Given.EntryWidth / 2,
          .Y0 = along * Given.XcutSpacing + CrosscutHalf(),
          .Y1 = (along + 1) * Given.XcutSpacing - CrosscutHalf()};
}

Ground Layout::BarrierBetween(int side, double y0, double y1, double cut) const {
  const auto s = static_cast<std::size_t>(side);
  return Between(Rib.at(s) + Outward(side) * Given.Sides.at(s).Barrier, Rib.at(s) + Outward(side) * cut, y0,
                 y1);
}

Ground Layout::BleederPillar(int side, int along) const {
  const Beyond beyond = BeyondBarrier(side);
  Ground ground =
      Between(beyond.BleederNear, beyond.BleederFar, along * Given.XcutSpacing + Given.EntryWidth / 2,
              (along + 1) * Given.XcutSpacing - Given.EntryWidth / 2);
  ground.Plain = true;
  return ground;
}

Layout::Beyond Layout::BeyondBarrier(int side) const {
  const auto s = static_cast<std::size_t>(side);
  const Side& given = Given.Sides.at(s);
  const double edge = Rib.at(s) + Outward(side) * given.Barrier;
  if (!given.BleederRow) {
    return {edge, edge, edge};
  }
  const double near = edge + Outward(side) * Given.EntryWidth;
  const double far = near + Outward(side) * given.BleederWidth;
  return {near, far, far + Outward(side) * Given.EntryWidth};
}

Layout LayOut(const Panel& panel) {
  Layout layout;
  layout.Given = panel;
  layout.Length = LengthScale(panel.DepthCover, panel.Metric);
  for (int row = 0; row < panel.Rows(); ++row) {
    const auto r = static_cast<std::size_t>(row);
    layout.EntryX.at(r + 1) = layout.EntryX.at(r) + panel.Centers.at(r);
  }
  layout.Rib = {-panel.EntryWidth / 2, layout.PanelWidth() + panel.EntryWidth / 2};
  const bool skew = panel.XcutAngle < kRightAngle;
  const double angle = panel.XcutAngle * kRadiansPerDegree;
  layout.Sine = skew ? std::sin(angle) : 1;
  layout.Line = CrosscutLine(skew ? std::cos(angle) / std::sin(angle) : 0,
                             layout.EntryX.at(static_cast<std::size_t>(panel.Entries / 2)), layout.Rib[0],
                             layout.Rib[1]);
  SetActiveGob(layout);
  for (int side = 0; side < panel.GobSides(); ++side) {
    const auto s = static_cast<std::size_t>(side);
    const Side& given = panel.Sides.at(s);
    layout.SideStiffness.at(s) = GobStiffness(panel.DepthCover, layout.Length,
                                              {.Width = given.Extent, .AbutmentAngle = given.AbutmentAngle});
  }
  return layout;
}

Grid GridFor(const Layout& layout, const GridRule& rule) {
  const Reach reach = ReachOf(layout, rule.Margin * layout.Length);
  double cell = CellByRule(layout) * rule.CellFactor;
  const double cells = (reach.Right - reach.Left) / cell * ((reach.Outby + reach.Inby) / cell);
  cell *= std::sqrt(std::max(1.0, cells / rule.MostCells));
  const double most = kRoundingMargin * rule.MostCells;
  // Before a side is counted, so that it stays a count.
  while (std::max(reach.Right - reach.Left, reach.Outby + reach.Inby) / cell * kSideMultiple > most) {
    cell *= kGrowth;
  }
  Grid grid = GridOf(reach, cell);
  while (static_cast<double>(grid.Cells()) > most) {
    cell *= kGrowth;
    grid = GridOf(reach, cell);
  }
  return grid;
}

std::vector<double> DevelopmentStiffness(const Layout& layout, const Grid& grid, const Yield& yield) {
  StiffnessMap map{layout, grid, std::vector<double>(grid.Cells())};
  AddSideGround(map);
  for (int side = 0; side < layout.Given.GobSides(); ++side) {
    const auto s = static_cast<std::size_t>(side);
    map.Add(layout.BarrierBetween(side, -kUnbounded, kUnbounded), yield.Barrier.at(s));
    AddBleeders(map, side, -kUnbounded, kUnbounded, yield.Bleeder.at(s));
  }
  const auto [first, last] = PitchesIn(layout, grid);
  for (int row = 0; row < layout.Given.Rows(); ++row) {
    for (int along = first; along <= last; ++along) {
      map.Add(layout.Pillar(row, along), 1);
    }
  }
  return std::move(map.Cells);
}

std::vector<double> RetreatStiffness(const Layout& layout, const Grid& grid, const Yield& yield) {
  StiffnessMap map{layout, grid, std::vector<double>(grid.Cells())};
  AddSideGround(map);
  for (int side = 0; side < layout.Given.GobSides(); ++side) {
    const auto s = static_cast<std::size_t>(side);
    map.Add(layout.BarrierBetween(side, 0, kUnbounded), yield.Barrier.at(s));
    map.Add(layout.BarrierBetween(side, layout.GobStart, 0), yield.BesideGob.at(s));
    map.Add(layout.BarrierBetween(side, layout.GobEnd, layout.GobStart, layout.Given.Sides.at(s).SlabCut),
            yield.BesideGob.at(s));
    map.Add(layout.BarrierBetween(side, -kUnbounded, layout.GobEnd), 1);
    AddBleeders(map, side, 0, kUnbounded, yield.Bleeder.at(s));
    AddBleeders(map, side, layout.GobEnd, 0, yield.BleederBesideGob.at(s));
    AddBleeders(map, side, -kUnbounded, layout.GobEnd, 1);
  }
  const int lastRow = layout.Given.Rows() - 1;
  const auto [first, last] = PitchesIn(layout, grid);
  for (int row = 0; row <= lastRow; ++row) {
    const bool stays = (row == 0 && layout.Given.RowA) || (row == lastRow && layout.Given.RowB);
    for (int along = stays ? first : 0; along <= last; ++along) {
      map.Add(Clipped(layout.Pillar(row, along), layout.GobEnd, kUnbounded), 1);
    }
  }
  map.Add(Between(layout.GobLeft, layout.GobRight, layout.GobEnd, layout.GobStart), layout.ActiveStiffness);
  map.Add(Between(layout.Rib[0], layout.Rib[1], -kUnbounded, layout.GobEnd), 1);
  return std::move(map.Cells);
}

}  // namespace korva::laminated
