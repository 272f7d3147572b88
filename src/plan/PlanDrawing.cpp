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
constexpr double kLeastGob = 1.2;        // text heights that a gob is wide to be named
constexpr double kLeastScale = 0.5;
constexpr double kFitting = 0.95;  // of the room that there is
constexpr int kFrameTurns = 8;
constexpr double kFrameSettled = 1e-4;
constexpr std::string_view kActiveGob = "Active gob";
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

  // Makes the last text smaller, as far as it stays readable, to take at most this length and height.
  void FitText(double length, double height) {
    DrawText& text = d_.Texts.back();
    const double scale = std::min({1.0, length / (TextLength(text.Text) * height_), height / height_});
    text.Scale = std::max(kLeastScale, scale);
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

  // A dimension line from x0 to x1 with its ticks, the text above it, or below.
  void AddAcross(double x0, double x1, double y, const std::string& text, bool plate, bool above = true) {
    d_.Lines.push_back({{x0, y}, {x1, y}});
    for (const double x : {x0, x1}) {
      d_.Lines.push_back({{x, y - tick_ / 2}, {x, y + tick_ / 2}});
    }
    AddText({(x0 + x1) / 2, y + (above ? 1 : -1) * kBesideLine * height_}, text, false, 0.5, plate);
    FitText(kFitting * (x1 - x0), height_);
  }

  // The same upward, the text left of it.
  void AddUpward(double y0, double y1, double x, const std::string& text, bool plate) {
    d_.Lines.push_back({{x, y0}, {x, y1}});
    for (const double y : {y0, y1}) {
      d_.Lines.push_back({{x - tick_ / 2, y}, {x + tick_ / 2, y}});
    }
    AddText({x - kBesideLine * height_, (y0 + y1) / 2}, text, true, 0.5, plate);
  }

  void AddEntryDimensions() {
    if (r_.Options.PlotEntryDims != 1) {
      return;
    }
    for (int i = 1; i <= Lines(); ++i) {
      const DrawPoint left = At(g_.Pillars[i][1][0]);
      const DrawPoint right = At(g_.Pillars[i][1][1]);
      const bool above = S() / 2 > 2 * kBesideLine * height_;  // there is room below the pillar
      AddAcross(left.X - W() / 2, right.X + W() / 2, std::min(left.Y, right.Y) - S() / 2,
                Whole(p_.XcutCenters[i]), false, above);
    }
  }

  double LeftEdge() const {
    return g_.GobDrawn[kFirstGob] == 1 ? At(g_.Gobs[kFirstGob][0]).X : At(g_.Pillars[1][1][0]).X;
  }

  // Each line has a strip of one entry width.
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
      AddUpward(near - crosscut / 2, far + crosscut / 2, x, Whole(S()), false);
      FitText(S(), once ? height_ : kFitting * W());
      d_.Texts.back().At.X = x - kBesideLine * height_ * d_.Texts.back().Scale;
    }
  }

  void AddGobDimensions() {
    if (r_.Options.PlotGobDims == 1) {
      const double y = S() / 2;
      const auto across = [&](PlanGobIndex gob, double width) {
        if (g_.GobDrawn[gob] == 1 && width > 0) {
          const auto [left, right] = std::minmax({At(g_.Gobs[gob][0]).X, At(g_.Gobs[gob][1]).X});
          AddAcross(left, right, y, Whole(width), true);
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
    AddAcross(std::min(edge.X, inner.X), std::max(edge.X, inner.X), inner.Y + W(), Whole(width), true);
  }

  void AddBleederWidths(double y) {
    for (const int side : {kFirstSideLine, kSecondSideLine}) {
      const auto found = std::find_if(g_.Bleeders.begin(), g_.Bleeders.end(),
                                      [side](const PlanBleeder& bleeder) { return bleeder.Side == side; });
      if (found != g_.Bleeders.end()) {
        const DrawPoint near = At(found->Corners[0]);
        const double clear = near.Y - 2 * kBesideLine * height_;  // the text stands below the pillar
        AddAcross(near.X, At(found->Corners[1]).X, std::min(y, clear), Whole(BleederWidth(side)), false);
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
    if (high.X - low.X < kLeastGob * height_) {
      return;
    }
    std::string name(kGobNames[static_cast<std::size_t>(gob - kFirstGob)]);
    if (r_.Geometry.SchematicGobs) {
      name += fmt::format(", {} {}, not to scale", Whole(extent),
                          BareUnit(UnitLabel(UnitKind::kLength, r_.Units)));
    }
    AddText({(low.X + high.X) / 2, (low.Y + high.Y) / 2}, name, true, 0.5, true);
    FitText(kFitting * (high.Y - low.Y), height_);
  }

  // In the entry left of the middle line, the text on the side that has room for it.
  void AddActiveGobDimension() {
    if (g_.ActiveGob.empty()) {
      return;
    }
    const int line = std::min(MiddleLine(p_), Lines());
    const DrawPoint corner = At(g_.Pillars[line][kLastRow][3]);
    const double x = corner.X - W() / 2;
    const auto top = static_cast<double>(g_.GobTop);
    const std::string extent = Whole(p_.ExtentActiveGob);
    AddUpward(corner.Y, top, x, extent, true);
    const bool roomLeft = x > 2 * kBesideLine * height_;
    DrawPoint& at = d_.Texts.back().At;
    at = {x + (roomLeft ? -1 : 1) * kBesideLine * height_,
          top - (0.2 + 0.5) * TextLength(extent) * height_ - tick_};
    const double from = roomLeft ? x : x + 2 * kBesideLine * height_;
    const double right = At(g_.Pillars[Lines()][1][1]).X + W();
    if (TextLength(kActiveGob) * height_ < kFitting * (right - from)) {
      AddText({(from + right) / 2, (static_cast<double>(g_.RowTop) + top) / 2}, std::string(kActiveGob),
              false, 0.5, true);
    }
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
      const double slope = std::abs(At(corners[1]).Y - a.Y) / std::max(b.X - a.X, W());
      FitText(kFitting * (At(corners[3]).Y - a.Y) - slope * height_, kFitting * (b.X - a.X));
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
  void AddStress(const PlanCorners& corners, const std::string& text, bool leftWing) {
    const DrawPoint left = At(corners[3]);
    const DrawPoint right = At(corners[2]);
    const double inset = kValueInset * (right.X - left.X);
    AddText({leftWing ? left.X + inset : right.X - inset, 0}, text, false, leftWing ? 0 : 1);
    FitText(right.X - left.X - inset, height_);
    DrawText& made = d_.Texts.back();
    // One text below the edge above it, but no nearer to the edge beneath it than to that.
    const double length = TextLength(text) * height_ * made.Scale;
    const double slope = (leftWing ? 1 : -1) * (right.Y - left.Y) / (right.X - left.X);
    const auto [low, high] = std::minmax({slope * inset, slope * (inset + length)});
    const double along = left.Y - At(corners[0]).Y;
    made.At.Y = (leftWing ? left.Y : right.Y) + std::max(low - height_, (low + high - along) / 2);
  }

  void AddStresses() {
    if (!r_.Values || !r_.Values->HasTraditional) {
      return;
    }
    const int middle = MiddleLine(p_);
    for (int i = 1; i <= Lines(); ++i) {
      const double tributary = r_.PlotType == kPlotTotalStress ? r_.Values->TribStress : 0;
      const std::string text = Whole(r_.Values->SideStress[i] + tributary);
      for (int j = 1; j <= kLastRow; ++j) {
        if (g_.PillarDrawn[i][j] != 1 || !r_.Values->HasSideStress[i]) {
          continue;
        }
        AddStress(g_.Pillars[i][j], text, i < middle);
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
