#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "core/Format.h"
#include "core/RuntimeError.h"
#include "core/Tables.h"
#include "plan/KORVAgraf.h"
#include "plan/PlanFrame.h"

namespace korva {

namespace {

constexpr std::string_view kWhole = "#0";
constexpr double kTickShare = 1.0 / 75;  // of the world's width
constexpr double kValueInset = 0.15;     // of a pillar's width, for stresses
constexpr double kBesideLine = 0.62;     // text heights from a line to the middle of its text
constexpr double kTight = 1.2;           // text heights that a strip needs for a text of its own
constexpr int kFrameTurns = 8;
constexpr double kFrameSettled = 1e-4;
constexpr std::array<std::string_view, 4> kGobNames = {"First side gob", "First side barrier",
                                                       "Second side barrier", "Second side gob"};

DrawPoint At(const PlanPoint& point) {
  return {static_cast<double>(point.X), static_cast<double>(point.Y)};
}

std::string Whole(double value) {
  return Format(value, kWhole);
}

// The records of the panel in the panel's own coordinates; `side` is the width of the world around it.
class Drawer {
 public:
  Drawer(const PlanRequest& request, const PlanGeometry& geometry, double side)
      : r_(request),
        p_(request.ProjectCalc),
        g_(geometry),
        tick_(side * kTickShare),
        height_(side * request.TextShare) {}

  Drawing Draw() {
    AddAreas();
    AddPillars();
    if (r_.Full) {
      AddEntryDimensions();
      AddCrosscutDimensions();
      AddGobDimensions();
      AddActiveGobDimension();
      AddValues();
    }
    return std::move(d_);
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }
  double W() const { return p_.EntryWidth; }
  double S() const { return p_.XcutSpacing; }

  template <class Points>
  void AddPolygon(DrawLayer layer, const Points& points) {
    DrawPolygon polygon{layer, {}};
    std::transform(points.begin(), points.end(), std::back_inserter(polygon.Corners), At);
    d_.Polygons.push_back(std::move(polygon));
  }

  void AddText(DrawPoint at, std::string text, bool upright, double along = 0.5, bool plate = false) {
    d_.Texts.push_back({at, upright, std::move(text), along, plate});
  }

  void AddAreas() {
    if (!g_.ActiveGob.empty()) {
      AddPolygon(DrawLayer::kGob, g_.ActiveGob);
    }
    for (const PlanGobIndex gob : {kFirstGob, kFirstBarrier, kSecondBarrier, kSecondGob}) {
      if (g_.GobDrawn[gob] == 1) {
        const bool barrier = gob == kFirstBarrier || gob == kSecondBarrier;
        AddPolygon(barrier ? DrawLayer::kBarrier : DrawLayer::kGob, g_.Gobs[gob]);
      }
    }
  }

  void AddPillars() {
    for (int i = 1; i <= Lines(); ++i) {
      for (int j = 1; j <= kLastRow; ++j) {
        if (g_.PillarDrawn[i][j] == 1) {
          AddPolygon(j > kRetreatRow ? DrawLayer::kLeaveRow : DrawLayer::kPillar, g_.Pillars[i][j]);
        }
      }
    }
    for (const PlanBleeder& bleeder : g_.Bleeders) {
      AddPolygon(DrawLayer::kLeaveRow, bleeder.Corners);
    }
  }

  // A dimension line from x0 to x1 with its ticks, the text above it.
  void AddAcross(double x0, double x1, double y, const std::string& text) {
    d_.Lines.push_back({{x0, y}, {x1, y}});
    for (const double x : {x0, x1}) {
      d_.Lines.push_back({{x, y - tick_ / 2}, {x, y + tick_ / 2}});
    }
    AddText({(x0 + x1) / 2, y + kBesideLine * height_}, text, false, 0.5, true);
  }

  // The same upward, the text left of it, its middle at `share` of the way.
  void AddUpward(double y0, double y1, double x, const std::string& text, double share = 0.5) {
    d_.Lines.push_back({{x, y0}, {x, y1}});
    for (const double y : {y0, y1}) {
      d_.Lines.push_back({{x - tick_ / 2, y}, {x + tick_ / 2, y}});
    }
    AddText({x - kBesideLine * height_, y0 + share * (y1 - y0)}, text, true, 0.5, true);
  }

  void AddEntryDimensions() {
    if (r_.Options.PlotEntryDims != 1) {
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      const DrawPoint left = At(g_.Pillars[i][1][0]);
      const DrawPoint right = At(g_.Pillars[i][1][1]);
      AddAcross(left.X - W() / 2, right.X + W() / 2, std::min(left.Y, right.Y) - S() / 2,
                Whole(p_.XcutCenters[i]));
    }
  }

  double LeftEdge() const {
    return g_.GobDrawn[kFirstGob] == 1 ? At(g_.Gobs[kFirstGob][0]).X : At(g_.Pillars[1][1][0]).X;
  }

  // Each line has a strip of one entry width. Where that is too narrow for a text, neighbours stand at other
  // heights.
  void AddCrosscutDimensions() {
    if (r_.Options.PlotXcutDims != 1) {
      return;
    }
    const bool once = r_.Options.PlotSingleXcutDims == 1;
    const double crosscut = W() / CrosscutSine(p_);
    const double edge = LeftEdge();
    for (int i = 1; i <= (once ? 1 : Lines()); ++i) {
      const double x = edge - (once ? 1 : p_.NumberEntries - i) * W();
      const double near = At(g_.Pillars[i][1][0]).Y;
      const double far = At(g_.Pillars[i][1][3]).Y;
      const double share = once || W() > kTight * height_ ? 0.5 : 0.25 + 0.25 * (i % 3);
      AddUpward(near - crosscut / 2, far + crosscut / 2, x, Whole(S()), share);
    }
  }

  void AddGobDimensions() {
    if (r_.Options.PlotGobDims == 1) {
      const double y = S() / 2;
      const auto across = [&](PlanGobIndex gob, double width) {
        if (g_.GobDrawn[gob] == 1) {
          AddAcross(At(g_.Gobs[gob][0]).X, At(g_.Gobs[gob][1]).X, y, Whole(width));
        }
      };
      across(kFirstBarrier, p_.BarrierFirstGob);
      across(kSecondBarrier, p_.BarrierSecondGob);
      if (!r_.Geometry.SchematicGobs) {
        across(kFirstGob, p_.ExtentFirstGob);
        across(kSecondGob, p_.ExtentSecondGob);
      }
      AddSlabCut(kFirstBarrier, p_.SlabcutFirstGob);
      AddSlabCut(kSecondBarrier, p_.SlabcutSecondGob);
      AddBleederWidths(y);
    }
    AddGobName(kFirstGob, p_.ExtentFirstGob);
    AddGobName(kSecondGob, p_.ExtentSecondGob);
  }

  // One entry width above the step.
  void AddSlabCut(PlanGobIndex barrier, double width) {
    const std::vector<PlanPoint>& outline = g_.Gobs[barrier];
    if (g_.GobDrawn[barrier] != 1 || !(width > 0)) {
      return;
    }
    const DrawPoint edge = At(outline[2]);
    const DrawPoint inner = At(outline[3]);
    AddAcross(std::min(edge.X, inner.X), std::max(edge.X, inner.X), inner.Y + W(), Whole(width));
  }

  void AddBleederWidths(double y) {
    for (const int side : {kFirstSideLine, kSecondSideLine}) {
      const auto found = std::find_if(g_.Bleeders.begin(), g_.Bleeders.end(),
                                      [side](const PlanBleeder& bleeder) { return bleeder.Side == side; });
      if (found != g_.Bleeders.end()) {
        const DrawPoint near = At(found->Corners[0]);
        const double clear = near.Y - 2 * kBesideLine * height_;  // the text stands below the pillar
        AddAcross(near.X, At(found->Corners[1]).X, std::min(y, clear), Whole(BleederWidth(side)));
      }
    }
  }

  double BleederWidth(int side) const {
    return static_cast<double>(side == kFirstSideLine ? p_.WidthRowC : p_.WidthRowD);
  }

  void AddGobName(PlanGobIndex gob, double extent) {
    if (g_.GobDrawn[gob] != 1) {
      return;
    }
    const DrawPoint low = At(g_.Gobs[gob][0]);
    const DrawPoint high = At(g_.Gobs[gob][2]);
    if (high.X - low.X < kTight * height_) {
      return;
    }
    std::string name(kGobNames[static_cast<std::size_t>(gob - kFirstGob)]);
    if (r_.Geometry.SchematicGobs) {
      name += fmt::format(", {} {}, not to scale", Whole(extent),
                          BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
    }
    AddText({(low.X + high.X) / 2, (low.Y + high.Y) / 2}, name, true, 0.5, true);
  }

  // In the entry left of the middle line.
  void AddActiveGobDimension() {
    if (g_.ActiveGob.empty()) {
      return;
    }
    const int line = std::min(MiddleLine(p_), Lines());
    const DrawPoint corner = At(g_.Pillars[line][kLastRow][3]);
    const double x = corner.X - W() / 2;
    const auto top = static_cast<double>(g_.GobTop);
    const std::string extent = Whole(p_.ExtentActiveGob);
    AddUpward(corner.Y, top, x, extent);
    d_.Texts.back().At.Y = top - (0.2 + 0.5) * TextLength(extent) * height_ - tick_;
    const double right = At(g_.Pillars[Lines()][1][1]).X + W();
    AddText({(x + right) / 2, (static_cast<double>(g_.RowTop) + top) / 2}, "Active gob", false, 0.5, true);
  }

  // Values stand in the last row in front of the active gob, and in the last one of a line that is left.
  bool ShowsValue(int i, int j) const {
    return j == kRetreatRow || (j == kLastRow && g_.PillarDrawn[i][j] == 1);
  }

  void AddValues() {
    if (r_.PlotType == kPlotSideStress || r_.PlotType == kPlotTotalStress) {
      AddStresses();
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      for (int j = 1; j <= kLastRow; ++j) {
        if (ShowsValue(i, j)) {
          AddValue(g_.Pillars[i][j], PillarText(i));
        }
      }
    }
    for (const PlanBleeder& bleeder : g_.Bleeders) {
      if (bleeder.Row == kRetreatRow) {
        AddValue(bleeder.Corners, BleederText(bleeder.Side));
      }
    }
  }

  void AddValue(const PlanCorners& corners, const std::string& text) {
    if (!text.empty()) {
      const DrawPoint a = At(corners[0]);
      const DrawPoint b = At(corners[2]);
      AddText({(a.X + b.X) / 2, (a.Y + b.Y) / 2}, text, true);
    }
  }

  std::string PillarText(int i) const {
    if (r_.PlotType == kPlotDimensions) {
      const PillarSize size = PillarSizeOf(r_, i);
      return Whole(size.Width) + "x" + Whole(size.Length);
    }
    if (!r_.Values) {
      return {};
    }
    if (r_.PlotType == kPlotStrength) {
      return r_.Values->HasStrength ? Whole(r_.Values->Strength[i]) : std::string();
    }
    return r_.Values->HasTraditional ? Whole(r_.Values->Capacity[i]) : std::string();
  }

  std::string BleederText(int side) const {
    if (r_.PlotType == kPlotDimensions) {
      return Whole(BleederWidth(side)) + "x" + Whole(S() - W());
    }
    if (!r_.Values) {
      return {};
    }
    if (r_.PlotType == kPlotStrength) {
      return r_.Values->HasRowStrength ? Whole(r_.Values->RowStrength[side]) : std::string();
    }
    return r_.Values->HasTraditional ? Whole(r_.Values->RowCapacity[side]) : std::string();
  }

  // On a pillar's far side, from its left edge in the left wing, else up to its right edge.
  void AddStresses() {
    if (!r_.Values || !r_.Values->HasTraditional) {
      return;
    }
    const int middle = MiddleLine(p_);
    for (int i = 1; i <= Lines(); ++i) {
      const double tributary = r_.PlotType == kPlotTotalStress ? r_.Values->TribStress : 0;
      const std::string text = Whole(r_.Values->SideStress[i] + tributary);
      for (int j = 1; j <= kLastRow; ++j) {
        if (g_.PillarDrawn[i][j] != 1) {
          continue;
        }
        const PlanCorners& corners = g_.Pillars[i][j];
        const double inset = kValueInset * (At(corners[1]).X - At(corners[0]).X);
        const double y = std::min(At(corners[2]).Y, At(corners[3]).Y) - height_;
        if (i < middle) {
          AddText({At(corners[0]).X + inset, y}, text, false, 0);
        } else {
          AddText({At(corners[1]).X - inset, y}, text, false, 1);
        }
      }
    }
  }

  const PlanRequest& r_;
  const Project& p_;
  const PlanGeometry& g_;
  double tick_;
  double height_;
  Drawing d_;
};

// The greatest of 1, 2 and 5 times a power of ten that is at most `length`.
double RoundLength(double length) {
  const double power = std::pow(10, std::floor(std::log10(length)));
  for (const double step : {5.0, 2.0}) {
    if (step * power <= length) {
      return step * power;
    }
  }
  return power;
}

// What stands around the panel in the square world: caption above, legend and scale below.
class Frame {
 public:
  Frame(const PlanRequest& request, double side)
      : r_(request),
        side_(side),
        height_(side * request.TextShare),
        margin_(request.ProjectCalc.EntryWidth) {}

  double CaptionHeight() const {
    const double lines = std::ceil(TextLength(PlanCaption(r_)) * height_ / (side_ - 2 * margin_));
    return r_.Full ? (lines + kGap) * height_ : 0;
  }
  double LegendHeight(const Drawing& drawing) const {
    return r_.Full ? (static_cast<double>(Legend(drawing).size()) + 1) * kRow * height_ + kGap * height_ : 0;
  }

  void Add(Drawing& drawing) const {
    if (!r_.Full) {
      return;
    }
    const auto rows = Legend(drawing);
    drawing.Texts.push_back(
        {{margin_, side_ - margin_ - height_ / 2}, false, PlanCaption(r_), 0, false, side_ - 2 * margin_});
    double y = margin_ + (static_cast<double>(rows.size()) + 0.5) * kRow * height_;
    for (const auto& row : rows) {
      AddLegendRow(drawing, row, y);
      y -= kRow * height_;
    }
    AddScale(drawing, margin_ + kRow * height_ / 2);
  }

 private:
  static constexpr double kGap = 0.6;     // text heights
  static constexpr double kRow = 1.5;     // from legend row to legend row
  static constexpr double kSwatch = 1.6;  // its width
  static constexpr double kScaleShare = 5;

  struct Entry {
    DrawLayer Layer;
    std::string Text;
  };

  static double Length(const Entry& entry) { return kSwatch + kGap + TextLength(entry.Text) + 2 * kGap; }

  // Rows A and B are left beside the active gob, rows C and D as bleeder pillars in the side gobs.
  std::string LeaveRowName() const {
    const Project& p = r_.ProjectCalc;
    const bool bleeders =
        (p.LoadingCondition >= 2 && p.RowC == 1) || (p.LoadingCondition >= 3 && p.RowD == 1);
    const bool leaves = p.RowA == 1 || p.RowB == 1;
    return bleeders && leaves ? "Leave and bleeder pillar" : bleeders ? "Bleeder pillar" : "Leave pillar";
  }

  // In rows that fit; none where no more than two kinds stand together.
  std::vector<std::vector<Entry>> Legend(const Drawing& drawing) const {
    std::vector<Entry> entries;
    for (const auto& [layer, text] : {std::pair<DrawLayer, std::string>{DrawLayer::kPillar, "Pillar"},
                                      {DrawLayer::kLeaveRow, LeaveRowName()},
                                      {DrawLayer::kBarrier, "Barrier pillar"},
                                      {DrawLayer::kGob, "Gob"}}) {
      if (std::any_of(drawing.Polygons.begin(), drawing.Polygons.end(),
                      [l = layer](const DrawPolygon& polygon) { return polygon.Layer == l; })) {
        entries.push_back({layer, text});
      }
    }
    std::vector<std::vector<Entry>> rows;
    double length = side_;
    for (const Entry& entry : entries.size() > 2 ? entries : std::vector<Entry>()) {
      if (rows.empty() || (length + Length(entry)) * height_ > side_ - 2 * margin_) {
        rows.emplace_back();
        length = 0;
      }
      rows.back().push_back(entry);
      length += Length(entry);
    }
    return rows;
  }

  void AddLegendRow(Drawing& drawing, const std::vector<Entry>& row, double y) const {
    double x = margin_;
    for (const Entry& entry : row) {
      const double right = x + kSwatch * height_;
      const double half = 0.4 * height_;
      drawing.Polygons.push_back(
          {entry.Layer, {{x, y - half}, {right, y - half}, {right, y + half}, {x, y + half}}});
      drawing.Texts.push_back({{right + kGap * height_, y}, false, entry.Text, 0, false});
      x += Length(entry) * height_;
    }
  }

  // A bar with its length at the right, and which way the retreat goes at the left.
  void AddScale(Drawing& drawing, double y) const {
    const double length = RoundLength(side_ / kScaleShare);
    const std::string text = fmt::format("{:g} {}", length, BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
    const double right = side_ - margin_ - (TextLength(text) + kGap) * height_;
    const double end = height_ / 2;
    drawing.Lines.push_back({{right - length, y}, {right, y}});
    for (const double x : {right - length, right}) {
      drawing.Lines.push_back({{x, y - end / 2}, {x, y + end / 2}});
    }
    drawing.Texts.push_back({{right + kGap * height_, y}, false, text, 0, false});
    if (r_.ProjectCalc.LoadingCondition >= 1) {
      drawing.Texts.push_back({{margin_, y}, false, "Retreat from top to bottom", 0, false});
    }
  }

  const PlanRequest& r_;
  double side_;
  double height_;
  double margin_;
};

// The side of the least square that holds the drawing with all that belongs to it: texts have a share of
// that side, so it is found in turns.
double SideOf(const PlanRequest& request, const PlanGeometry& geometry) {
  const double margins = 2 * request.ProjectCalc.EntryWidth;
  double side = BoxOf(Drawer(request, geometry, 0).Draw(), 0).Height() + margins;
  for (int turn = 0; turn < kFrameTurns; ++turn) {
    const Drawing drawing = Drawer(request, geometry, side).Draw();
    const DrawBox box = BoxOf(drawing, side * request.TextShare);
    const Frame frame(request, side);
    const double needed =
        margins + std::max(box.Width(), box.Height() + frame.CaptionHeight() + frame.LegendHeight(drawing));
    if (std::abs(needed - side) <= kFrameSettled * side) {
      break;
    }
    side = needed;
  }
  return side;
}

PlanPoint Moved(const PlanPoint& point, DrawPoint by) {
  return {static_cast<float>(static_cast<double>(point.X) + by.X),
          static_cast<float>(static_cast<double>(point.Y) + by.Y)};
}

template <class Points>
Points AllMoved(Points points, DrawPoint by) {
  for (PlanPoint& point : points) {
    point = Moved(point, by);
  }
  return points;
}

void AddMoved(Plan& plan, const PlanGeometry& geometry, int lines, DrawPoint by) {
  for (int i = 1; i <= lines; ++i) {
    for (int j = 1; j <= kLastRow; ++j) {
      if (geometry.PillarDrawn[i][j] == 1) {
        plan.Pillars.push_back({i, j, AllMoved(geometry.Pillars[i][j], by)});
      }
    }
  }
  for (const PlanBleeder& bleeder : geometry.Bleeders) {
    plan.Bleeders.push_back({bleeder.Side, bleeder.Row, AllMoved(bleeder.Corners, by)});
  }
  for (const PlanGobIndex gob : {kFirstGob, kFirstBarrier, kSecondBarrier, kSecondGob}) {
    if (geometry.GobDrawn[gob] == 1) {
      plan.Gobs.push_back(
          {kGobNames[static_cast<std::size_t>(gob - kFirstGob)], AllMoved(geometry.Gobs[gob], by)});
    }
  }
  plan.ActiveGob = AllMoved(geometry.ActiveGob, by);
}

}  // namespace

PillarSize PillarSizeOf(const PlanRequest& request, int i) {
  const Project& p = request.ProjectCalc;
  const double across = p.XcutCenters[i] - p.EntryWidth;
  if (p.XcutAngle == 90) {
    return {across, p.XcutSpacing - p.EntryWidth};
  }
  const double sine = CrosscutSine(p);
  const auto spacing = static_cast<double>(request.Geometry.PlotXcutSpacing[i]);
  const double along = spacing - p.EntryWidth / sine;
  if (across <= along) {
    return {across, along};
  }
  return {sine * spacing - p.EntryWidth, across / sine};
}

std::string PlanCaption(const PlanRequest& request) {
  const PlanValues values = request.Values.value_or(PlanValues{});
  std::string text;
  switch (request.PlotType) {
    case kPlotDimensions:
      text = fmt::format("Actual Pillar Dimensions (width*length, {})",
                         BareUnit(UnitLabel(UnitKind::kLength, request.Units)));
      break;
    case kPlotStrength:
      text = "Unit Pillar Strength" + values.StressLabel;
      break;
    case kPlotCapacity:
      text = "Pillar Load Bearing Capacity" + values.LoadLabel;
      break;
    case kPlotSideStress:
      text = "Individual Pillar Stresses - Abutment" + values.StressLabel;
      break;
    case kPlotTotalStress:
      text = "Individual Pillar Stresses - Total" + values.StressLabel;
      break;
    default:
      throw RuntimeError(ErrorNumber::kInvalidCall, fmt::format("the plot type {}", request.PlotType));
  }
  return fmt::format("{}: {}.  Entries shown from left to right.",
                     request.ProjectCalc.CalcMode != kTraditionalModel ? "KORVA-STROND" : "KORVA", text);
}

std::optional<Plan> DrawPlan(const PlanRequest& request) {
  const PlanGeometry geometry = ComputePlan(request.ProjectCalc, request.Geometry);
  const DrawBox panel = BoxOf(Drawer(request, geometry, 0).Draw(), 0);
  if (!(panel.Width() > 0) && !(panel.Height() > 0)) {
    return std::nullopt;
  }
  const double side = SideOf(request, geometry);
  const double height = side * request.TextShare;
  Plan plan;
  plan.PlanWidth = plan.PlanHeight = static_cast<float>(side);
  plan.Picture = Drawer(request, geometry, side).Draw();
  const DrawBox box = BoxOf(plan.Picture, height);
  const Frame frame(request, side);
  const double below = frame.LegendHeight(plan.Picture);
  const double above = side - frame.CaptionHeight();
  const DrawPoint by = {side / 2 - (box.Low.X + box.High.X) / 2,
                        (below + above) / 2 - (box.Low.Y + box.High.Y) / 2};
  Move(plan.Picture, by);
  AddMoved(plan, geometry, request.ProjectCalc.NumberEntries - 1, by);
  frame.Add(plan.Picture);
  plan.Picture.High = {side, side};
  return plan;
}

}  // namespace korva
