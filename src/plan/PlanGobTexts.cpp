#include <algorithm>
#include <cstddef>

#include "plan/PlanLegend.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

constexpr double kLeastGob = 1.2;  // text heights that a gob is wide to be named
constexpr double kBesideText = 2;  // text heights between the middles of a dimension and a name
constexpr double kBelowEnd = 1.2;  // of its length, from the upper end of a line to the lower end of its text
constexpr double kAwayFromBreak = 0.6;  // ticks, from the gap of a broken line to its text

class GobTexts {
 public:
  GobTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry)
      : pen_(pen), r_(request), p_(request.ProjectCalc), g_(geometry) {}

  void Add() {
    AddSideGob(kFirstGob);
    AddSideGob(kSecondGob);
    AddActiveGob();
  }

 private:
  int Lines() const { return p_.NumberEntries - 1; }
  double W() const { return p_.EntryWidth; }

  void AddSideGob(PlanGobIndex gob) {
    if (!g_.GobDrawn[gob]) {
      return;
    }
    const DrawBox room = {At(g_.Gobs[gob][0]), At(g_.Gobs[gob][2])};
    if (room.Width() < kLeastGob * pen_.Height()) {
      return;
    }
    std::string name(NameOf(gob));
    std::vector<DrawBox> rooms = {room};
    if (r_.Geometry.SchematicGobs) {
      name.append(", ").append(LengthText(WidthOf(gob, p_), r_.Units)).append(kNotToScale);
    } else if (r_.Options.PlotGobDims) {  // above the dimension's text, or in front of it
      const double line = GobDimensionHeight(p_);
      const double half = (TextLength(Whole(WidthOf(gob, p_))) / 2 + 1) * pen_.Height();
      rooms = {{{room.Low.X, line + 2 * kBesideLine * pen_.Height()}, room.High},
               {{room.Low.X, line}, {(room.Low.X + room.High.X) / 2 - half, room.High.Y}}};
    }
    pen_.Name(rooms, {name});
  }

  // In the entry left of the middle line, the text on the side that has room for it. Its line always ends
  // with the drawing, so it is never to scale.
  void AddActiveGob() {
    if (g_.ActiveGob.empty()) {
      return;
    }
    const int line = std::min(MiddleLine(p_), Lines());
    const DrawPoint corner = At(g_.Pillars[line][kLastRow][3]);
    const double x = corner.X - W() / 2;
    const auto top = static_cast<double>(g_.GobTop);
    const std::string extent = Whole(p_.ExtentActiveGob);
    pen_.VerticalDimension(corner.Y, top, x, extent, true, true);
    const double free = (1 - kBreakAt) * (top - corner.Y) - (1 + kAwayFromBreak) * pen_.Tick();
    pen_.Fit(free / kBelowEnd, pen_.Height());
    DrawText& text = pen_.Last();
    const double height = pen_.Height() * text.Scale;
    const bool roomLeft = x > 2 * kBesideLine * pen_.Height();
    text.At = {x + (roomLeft ? -1 : 1) * kBesideLine * height,
               top - (kBelowEnd - 0.5) * TextLength(extent) * height - pen_.Tick()};
    pen_.Name(RoomsBeside(x, roomLeft, corner.Y),
              {"Active gob,", LengthText(p_.ExtentActiveGob, r_.Units) + ",", "not to scale"});
  }

  // Behind row 6, on both sides of the dimension at `x`, and below its end at `low`, if no rows are left
  // there.
  std::vector<DrawBox> RoomsBeside(double x, bool textLeft, double low) const {
    const auto top = static_cast<double>(g_.GobTop);
    const auto bottom = static_cast<double>(g_.RowTop);
    const double right = At(g_.Pillars[Lines()][1][1]).X + W();
    const double beside = kBesideText * kBesideLine * pen_.Height();
    std::vector<DrawBox> rooms = {{{textLeft ? x : x + beside, bottom}, {right, top}},
                                  {{0, bottom}, {textLeft ? x - beside : x, top}}};
    if (!IsSet(p_.RowA) && !IsSet(p_.RowB)) {
      const double edge =
          At(*std::max_element(g_.ActiveGob.begin(), g_.ActiveGob.begin() + std::ptrdiff_t{2} * Lines(),
                               [](auto& a, auto& b) { return a.Y < b.Y; }))
              .Y;
      rooms.push_back({{0, edge}, {right, low - pen_.Tick()}});
    }
    return rooms;
  }

  PlanPen& pen_;
  const PlanRequest& r_;
  const Project& p_;
  const PlanGeometry& g_;
};

}  // namespace

void AddGobTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry) {
  GobTexts(pen, request, geometry).Add();
}

}  // namespace korva
