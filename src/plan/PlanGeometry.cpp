#include "plan/PlanGeometry.h"

#include <algorithm>
#include <cmath>

#include "core/ArithmeticWatch.h"

namespace korva {

namespace {

constexpr double kRightAngle = 90;
constexpr double kRowsBeyond = 2;    // crosscut spacings from row 6 to the top of the gobs
constexpr int kMostBleeders = 100;   // of a row; a sane panel has less than ten
constexpr double kSchematicGob = 2;  // barrier widths

PlanPoint Point(double x, double y) {
  return {static_cast<float>(x), static_cast<float>(y)};
}

PlanCorners Rectangle(double left, double near, double right, double far) {
  return {Point(left, near), Point(right, near), Point(right, far), Point(left, far)};
}

double Cotangent(const Project& p) {
  return std::cos(p.XcutAngle * kRadiansPerDegree) / CrosscutSine(p);
}

class Layout {
 public:
  Layout(const Project& project, const PlanOptions& options) : p_(project), options_(options) {}

  PlanGeometry Compute() {
    if (Lines() < 1) {
      return std::move(g_);  // no pillars, no panel
    }
    FillRowStarts();
    for (int i = 1; i <= Lines(); ++i) {
      for (int j = 1; j <= kLastRow; ++j) {
        g_.Pillars[i][j] = Corners(i, j);
        g_.PillarDrawn[i][j] = IsDrawn(i, j);
      }
      g_.RowTop = std::max({g_.RowTop, g_.Pillars[i][kLastRow][2].Y, g_.Pillars[i][kLastRow][3].Y});
    }
    g_.GobTop = static_cast<float>(static_cast<double>(g_.RowTop) + kRowsBeyond * p_.XcutSpacing);
    firstInner_ = {{0, g_.GobTop}};
    secondInner_ = {{static_cast<float>(CentersTo(Lines()) + W()), g_.GobTop}};
    if (HasFirstSideGob(p_)) {
      AddFirstSide();
    }
    if (HasSecondSideGob(p_)) {
      AddSecondSide();
    }
    if (HasActiveGob(p_)) {
      if (p_.BreadthAMZ > 0) {
        AddActiveMiningZone();
      }
      if (p_.ExtentActiveGob != 0) {
        AddActiveGob();
      }
    }
    return std::move(g_);
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }
  double W() const { return p_.EntryWidth; }
  // The way along an entry that a crosscut takes.
  double Crosscut() const { return W() / CrosscutSine(p_); }
  double Spacing(int i) const {
    return p_.XcutAngle == kRightAngle ? p_.XcutSpacing : static_cast<double>(options_.PlotXcutSpacing[i]);
  }
  double Top(int i, int j) const { return static_cast<double>(g_.RowStart[i]) + j * Spacing(i); }
  double CentersTo(int i) const {
    double sum = 0;
    for (int line = 1; line <= i; ++line) {
      sum += p_.XcutCenters[line];
    }
    return sum;
  }

  // Angled crosscuts make a chevron.
  void FillRowStarts() {
    const int middle = MiddleLine(p_);
    const double cot = Cotangent(p_);
    for (float& start : g_.RowStart) {
      start = static_cast<float>(2 * W());
    }
    for (int c = middle; c <= Lines(); ++c) {
      g_.RowStart[c] =
          static_cast<float>(static_cast<double>(g_.RowStart[c - 1]) + cot * p_.XcutCenters[c - 1]);
    }
    for (int c = middle - 1; c >= 1; --c) {
      const double less = c == middle - 1 ? cot * W() : 0;
      g_.RowStart[c] =
          static_cast<float>(static_cast<double>(g_.RowStart[c + 1]) + cot * p_.XcutCenters[c] - less);
    }
  }

  bool IsDrawn(int i, int j) const {
    return j <= kRetreatRow || (i == 1 && IsSet(p_.RowA)) || (i == Lines() && IsSet(p_.RowB));
  }

  PlanCorners Corners(int i, int j) const {
    const double right = CentersTo(i);
    const double left = right - p_.XcutCenters[i] + W();
    const double top = Top(i, j);
    const double near = top - Spacing(i) + Crosscut();
    if (p_.XcutAngle == kRightAngle) {
      return Rectangle(left, top - Spacing(i) + W(), right, top);
    }
    const double turned = i < MiddleLine(p_) ? p_.XcutAngle + kRightAngle : kRightAngle - p_.XcutAngle;
    const double slope = p_.XcutAngle == 0 ? 0 : std::tan(turned * kRadiansPerDegree);
    const double rise = slope * (p_.XcutCenters[i] - W());
    return {Point(left, near), Point(right, near + rise), Point(right, top + rise), Point(left, top)};
  }

  // The panel's side of a barrier above its bottom, from below: the step of a slab cut behind the crosscut of
  // `pillar`, the one in row 4 beside it, as far as the common top lets it go.
  std::vector<PlanPoint> InnerSide(double gobSide, double panelSide, double slabCut,
                                   const PlanPoint& pillar) const {
    const double top = static_cast<double>(g_.GobTop);
    const double step = static_cast<double>(pillar.Y) + Crosscut();
    if (!(slabCut > 0) || step >= top) {
      return {Point(panelSide, top)};
    }
    const double cut = std::min(slabCut, (top - step) * CrosscutSine(p_));
    const double inner = panelSide + (gobSide < panelSide ? -cut : cut);
    return {Point(panelSide, step), Point(inner, step + cut / CrosscutSine(p_)), Point(inner, top)};
  }

  // A barrier from its gob side to its panel side.
  static std::vector<PlanPoint> Barrier(double gobSide, double panelSide,
                                        const std::vector<PlanPoint>& innerSide) {
    std::vector<PlanPoint> outline = {Point(gobSide, 0), Point(panelSide, 0)};
    outline.insert(outline.end(), innerSide.begin(), innerSide.end());
    if (innerSide.back().X == outline.front().X) {
      outline.pop_back();  // the cut takes all of the barrier, up to the top
    } else {
      outline.push_back({outline.front().X, innerSide.back().Y});
    }
    return outline;
  }

  std::vector<PlanPoint> Gob(double left, double right) const {
    const PlanCorners corners = Rectangle(left, 0, right, static_cast<double>(g_.GobTop));
    return {corners.begin(), corners.end()};
  }

  // Rows C and D stand in the gob, beside the barrier, level with the rows of the line next to them. They
  // fill the height of the gob.
  void AddBleeders(int side, int line, double left, double right) {
    const double top = static_cast<double>(g_.GobTop);
    const double length = Spacing(line) - W();
    const double spacing = Spacing(line);
    const double lowest = Top(line, 1) - length;
    const double below = std::floor(lowest / spacing);  // rows that fit in front of the first one
    const int first = 1 - static_cast<int>(std::clamp<double>(below, 0, kMostBleeders));
    for (int j = first; j < first + kMostBleeders && Top(line, j) - length < top; ++j) {
      g_.Bleeders.push_back(
          {side, j, Rectangle(left, Top(line, j) - length, right, std::min(top, Top(line, j)))});
    }
  }

  // A schematic gob is seen without a barrier, too.
  double GobWidth(double barrier, double extent) const {
    return options_.SchematicGobs ? kSchematicGob * (barrier > 0 ? barrier : W()) : extent;
  }

  void AddFirstSide() {
    const double panelSide = 0;
    const double gobSide = panelSide - p_.BarrierFirstGob;
    double edge = gobSide;
    if (IsSet(p_.RowC)) {
      const auto width = static_cast<double>(p_.WidthRowC);
      AddBleeders(kFirstSideLine, 1, edge - W() - width, edge - W());
      edge -= W() + width + W();
    }
    firstInner_ = InnerSide(gobSide, panelSide, p_.SlabcutFirstGob, g_.Pillars[1][kRetreatRow][3]);
    g_.Gobs[kFirstBarrier] = Barrier(gobSide, panelSide, firstInner_);
    g_.Gobs[kFirstGob] = Gob(edge - GobWidth(p_.BarrierFirstGob, p_.ExtentFirstGob), edge);
    g_.GobDrawn[kFirstBarrier] = g_.GobDrawn[kFirstGob] = true;
  }

  void AddSecondSide() {
    const double panelSide = CentersTo(Lines()) + W();
    const double gobSide = panelSide + p_.BarrierSecondGob;
    double edge = gobSide;
    if (IsSet(p_.RowD)) {
      const auto width = static_cast<double>(p_.WidthRowD);
      AddBleeders(kSecondSideLine, Lines(), edge + W(), edge + W() + width);
      edge += W() + width + W();
    }
    secondInner_ = InnerSide(gobSide, panelSide, p_.SlabcutSecondGob, g_.Pillars[Lines()][kRetreatRow][2]);
    g_.Gobs[kSecondBarrier] = Barrier(gobSide, panelSide, secondInner_);
    g_.Gobs[kSecondGob] = Gob(edge, edge + GobWidth(p_.BarrierSecondGob, p_.ExtentSecondGob));
    g_.GobDrawn[kSecondBarrier] = g_.GobDrawn[kSecondGob] = true;
  }

  // The edge of the active gob behind the crosscut of row 4, from pillar to pillar.
  std::vector<PlanPoint> GobEdge() const {
    std::vector<PlanPoint> edge;
    const auto behind = [this](const PlanPoint& corner) {
      return Point(static_cast<double>(corner.X), static_cast<double>(corner.Y) + Crosscut());
    };
    for (int i = 1; i <= Lines(); ++i) {
      edge.push_back(behind(g_.Pillars[i][kRetreatRow][3]));
      edge.push_back(behind(g_.Pillars[i][kRetreatRow][2]));
    }
    return edge;
  }

  // As wide as the model counts it, from the middle of the first entry to that of the last one.
  void AddActiveMiningZone() {
    std::vector<PlanPoint> edge = GobEdge();
    edge.insert(edge.begin(), Point(W() / 2, static_cast<double>(edge.front().Y)));
    edge.push_back(Point(CentersTo(Lines()) + W() / 2, static_cast<double>(edge.back().Y)));
    g_.ActiveMiningZone = edge;
    for (auto corner = edge.rbegin(); corner != edge.rend(); ++corner) {
      const double low = static_cast<double>(corner->Y) - p_.BreadthAMZ;
      g_.ZoneCutOff = g_.ZoneCutOff || low < 0;
      g_.ActiveMiningZone.push_back(Point(static_cast<double>(corner->X), std::max(low, 0.0)));
    }
  }

  // From its edge up to the common top, slab cuts included.
  void AddActiveGob() {
    std::vector<PlanPoint>& outline = g_.ActiveGob;
    outline = GobEdge();
    const auto right = static_cast<float>(CentersTo(Lines()) + W());
    if (secondInner_.size() <= 1) {  // else the step is where it ends
      outline.push_back({right, outline.back().Y});
    }
    outline.insert(outline.end(), secondInner_.begin(), secondInner_.end());
    outline.insert(outline.end(), firstInner_.rbegin(), firstInner_.rend());
    if (firstInner_.size() <= 1) {
      outline.push_back({0, outline.front().Y});
    }
  }

  const Project& p_;
  const PlanOptions& options_;
  PlanGeometry g_;
  // The panel's sides, from below: those of the barriers if there are any.
  std::vector<PlanPoint> firstInner_;
  std::vector<PlanPoint> secondInner_;
};

}  // namespace

std::string_view NameOf(PlanGobIndex gob) {
  static constexpr std::array<std::string_view, 4> kNames = {"First side gob", "First side barrier",
                                                             "Second side barrier", "Second side gob"};
  return kNames.at(static_cast<std::size_t>(gob - kFirstGob));
}

double WidthOf(PlanGobIndex gob, const Project& project) {
  const std::array widths = {project.ExtentFirstGob, project.BarrierFirstGob, project.BarrierSecondGob,
                             project.ExtentSecondGob};
  return widths.at(static_cast<std::size_t>(gob - kFirstGob));
}

int MiddleLine(const Project& project) {
  return project.NumberEntries / 2 + 1;
}

double CrosscutSine(const Project& project) {
  return project.XcutAngle == 0 ? 1 : std::sin(project.XcutAngle * kRadiansPerDegree);
}

PlanGeometry ComputePlan(const Project& project, const PlanOptions& options) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  PlanGeometry geometry = Layout(project, options).Compute();
  watch.Step("plan");
  return geometry;
}

}  // namespace korva
