#include "plan/PanelSchematic.h"

#include <array>
#include <string_view>

#include "plan/PlanLegend.h"
#include "plan/PlanRecords.h"

namespace korva {

namespace {

// The panel's measures. Entries run upward; pillar columns and rows are counted from the lower left.
constexpr int kColumns = 5;
constexpr int kRows = 6;
constexpr int kMinedRows = 2;  // of them, the upper ones, once the retreat has begun
constexpr double kPillarWidth = 10;
constexpr double kPillarLength = 12;
constexpr double kEntry = 4;
constexpr double kColumn = kPillarWidth + kEntry;
constexpr double kRow = kPillarLength + kEntry;
constexpr double kPanelWidth = kColumns * kColumn - kEntry;
constexpr double kHeight = kRows * kRow - kEntry;
constexpr double kRetreatLine = (kRows - kMinedRows) * kRow - kEntry / 2;
constexpr double kBarrier = 20;
constexpr double kSlabCut = 8;
constexpr double kBleeder = 8;
constexpr double kSideGob = 17;
// From the panel's side to the end of the picture with everything in it.
constexpr double kSide = kEntry + kBarrier + kEntry + kBleeder + kEntry + kSideGob;

DrawPolygon Rectangle(DrawLayer layer, double left, double bottom, double right, double top) {
  return {layer, {{left, bottom}, {right, bottom}, {right, top}, {left, top}}};
}

// Draws the left side as it stands and the right side as its mirror image.
class SideBuilder {
 public:
  SideBuilder(Drawing& drawing, bool mirrored) : drawing_(drawing), mirrored_(mirrored) {}

  void Add(DrawPolygon polygon) const {
    for (DrawPoint& corner : polygon.Corners) {
      corner.X = Across(corner.X);
    }
    drawing_.Polygons.push_back(std::move(polygon));
  }

  void AddText(double x, double y, std::string_view text, bool upright, bool background = true) const {
    drawing_.Texts.push_back({{Across(x), y}, upright, std::string(text), 0.5, background});
  }

 private:
  double Across(double x) const { return mirrored_ ? kPanelWidth - x : x; }

  Drawing& drawing_;
  bool mirrored_;
};

bool IsLeft(const PanelPicture& picture, int column, int row) {
  if (!HasActiveGob(picture.Condition) || row < kRows - kMinedRows) {
    return true;
  }
  return (column == 0 && picture.RowA) || (column == kColumns - 1 && picture.RowB);
}

void AddPillars(Drawing& drawing, const PanelPicture& picture) {
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      if (!IsLeft(picture, column, row)) {
        continue;
      }
      const bool leaveRow = HasActiveGob(picture.Condition) && row >= kRows - kMinedRows;
      const double left = column * kColumn;
      const double bottom = row * kRow;
      drawing.Polygons.push_back(Rectangle(leaveRow ? DrawLayer::kLeaveRow : DrawLayer::kPillar, left, bottom,
                                           left + kPillarWidth, bottom + kPillarLength));
      if (leaveRow) {
        drawing.Texts.push_back({{left + kPillarWidth / 2, bottom + kPillarLength / 2},
                                 false,
                                 column == 0 ? "A" : "B",
                                 0.5,
                                 false});
      }
    }
  }
}

void AddActiveGob(Drawing& drawing, const PanelPicture& picture) {
  const double left = picture.RowA ? kColumn - kEntry / 2 : -kEntry;
  const double right = kPanelWidth - (picture.RowB ? kColumn - kEntry / 2 : -kEntry);
  drawing.Polygons.push_back(Rectangle(DrawLayer::kGob, left, kRetreatLine, right, kHeight));
  drawing.Texts.push_back({{(left + right) / 2, (kRetreatLine + kHeight) / 2}, false, "Active gob"});
}

void AddActiveMiningZone(Drawing& drawing) {
  drawing.Polygons.push_back(Rectangle(DrawLayer::kActiveMiningZone, -kEntry, kRetreatLine - 2 * kRow,
                                       kPanelWidth + kEntry, kRetreatLine));
}

// A side of the panel: its barrier, with a slab cut if no row of the panel is left beside it, the bleeder
// row, and the side gob.
void AddSide(const SideBuilder& side, bool rowLeft, bool bleeder, std::string_view bleederLetter,
             std::string_view gobName) {
  const double inner = -kEntry;
  const double outer = inner - kBarrier;
  const double cut = rowLeft ? inner : inner - kSlabCut;
  side.Add({DrawLayer::kBarrier,
            {{outer, 0},
             {inner, 0},
             {inner, kRetreatLine},
             {cut, kRetreatLine},
             {cut, kHeight},
             {outer, kHeight}}});
  side.AddText((outer + inner) / 2, kRetreatLine / 2, "Barrier", true);
  if (!rowLeft) {
    side.Add(Rectangle(DrawLayer::kGob, cut, kRetreatLine, inner, kHeight));
    side.AddText((cut + inner) / 2, (kRetreatLine + kHeight) / 2, "Slab cut", true);
  }
  double gobEdge = outer;
  if (bleeder) {
    const double right = outer - kEntry;
    for (int row = 0; row < kRows; ++row) {
      side.Add(
          Rectangle(DrawLayer::kLeaveRow, right - kBleeder, row * kRow, right, row * kRow + kPillarLength));
      side.AddText(right - kBleeder / 2, row * kRow + kPillarLength / 2, bleederLetter, false, false);
    }
    gobEdge = right - kBleeder - kEntry;
  }
  side.Add(Rectangle(DrawLayer::kGob, gobEdge - kSideGob, 0, gobEdge, kHeight));
  side.AddText(gobEdge - kSideGob / 2, kHeight / 2, gobName, true);
}

}  // namespace

Drawing PanelSchematic(const PanelPicture& picture) {
  Drawing drawing;
  drawing.Low = {-kSide, 0};
  drawing.High = {kPanelWidth + kSide, kHeight};
  if (HasActiveGob(picture.Condition)) {
    AddActiveGob(drawing, picture);
  }
  AddPillars(drawing, picture);
  if (HasFirstSideGob(picture.Condition)) {
    AddSide(SideBuilder(drawing, false), picture.RowA, picture.RowC, "C", NameOf(kFirstGob));
  }
  if (HasSecondSideGob(picture.Condition)) {
    AddSide(SideBuilder(drawing, true), picture.RowB, picture.RowD, "D", NameOf(kSecondGob));
  }
  if (HasActiveGob(picture.Condition)) {
    AddActiveMiningZone(drawing);
    drawing.Note = kRetreatNote;
  }
  drawing.Legend = LegendOf(drawing);
  return drawing;
}

std::string PanelSchematicText(const PanelPicture& picture) {
  static constexpr std::array<std::string_view, 4> kConditions = {
      "Development, no nearby gob", "One active retreat section", "One active section and one side gob",
      "One active section and two side gobs"};
  std::string text(kConditions.at(static_cast<std::size_t>(picture.Condition)));
  std::string rows;
  for (const auto& [left, letter] :
       {std::pair{picture.RowA, "A"}, {picture.RowB, "B"}, {picture.RowC, "C"}, {picture.RowD, "D"}}) {
    if (left) {
      rows += rows.empty() ? letter : std::string(", ") + letter;
    }
  }
  return rows.empty() ? text : text + "; rows left: " + rows;
}

}  // namespace korva
