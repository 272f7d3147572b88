// What the steps of a chart's layout share.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "charts/LayOutChart.h"

namespace korva {

// Pixels.
inline constexpr double kTextPixels = 12;
inline constexpr double kLeastPixels = 6;  // of upright titles
inline constexpr double kEdge = 8;         // around the whole
inline constexpr double kAxisRoom = 44;    // below the plot, for its labels and title
inline constexpr double kLegendGap = 14;
inline constexpr double kMiddleLine = 0.36;  // of a font's size: from the middle of a letter to its base line

inline constexpr double kRounding = 1e-6;

inline constexpr Rgb kPaper = 0xFFFFFF;
inline constexpr Rgb kBlack = 0x000000;
inline constexpr Rgb kReferenceColour = 0x808080;
inline constexpr Rgb kGridColour = 0xE0E0E0;

// A label of an axis, and what it stands at.
struct AxisLabel {
  double Value = 0;
  std::string Text;
};

struct ChartWork {
  ChartWork(const Chart& chart, PictureSize size, const TextMeasure& measure)
      : Source(chart), Size(size), Measure(measure) {}

  const Chart& Source;
  PictureSize Size;
  const TextMeasure& Measure;
  ChartLayout Out;
  std::vector<AxisLabel> XLabels;
  std::vector<AxisLabel> YLabels;
  double NotesTop = 0;
  double ReferencesRoom = 0;         // right of the plot, for the texts of references
  double CellsLeft = 0;              // where the scale of the cells' colours begins
  double RightRoom = 0;              // right of the plot, without a legend
  std::size_t LegendRows = 0;        // in a column
  std::vector<PictureBox> Occupied;  // by texts and the legend

  double Width(const std::string& text) const { return Measure(text, kTextPixels); }
  double SymbolRadius() const { return Source.SymbolSize / 2 + 1; }
  template <class Record>
  void Add(Record record) {
    Out.Drawn.Records.emplace_back(std::move(record));
  }
  void AddLine(const DrawPoint& from, const DrawPoint& to, const PicturePen& pen) {
    Add(PicturePath{.Points = {from, to}, .Pen = pen});
  }
  void AddBox(const PictureBox& box, std::optional<Rgb> fill, const PicturePen& pen, bool clipped = false);
  // Adds a text that has its room on the sheet, away from all others; false if it has not.
  bool AddText(PictureText text);
};

// In the middle of a pixel, where thin lines are sharp.
double Snapped(double place);

// Where a rectangle in the units of the axes stands.
PictureBox PlacedBox(const ChartLayout& layout, const DrawPoint& from, const DrawPoint& to);

// Whether an interval is around a point of a curve.
bool HasInterval(const ChartCurve& curve, std::size_t point);

// Gives the plot its place, with so much room kept right of it and below it, and both axes their labels.
void PlaceFrame(ChartWork& work, double right = 0, double below = 0);

// Finds the legend its place, and moves the plot where it stands beside or below that.
void PlaceLegend(ChartWork& work);
void DrawLegend(ChartWork& work);

// Bands and cells, over which there may be a grid; then bars and curves.
void DrawBackdrop(ChartWork& work);
void DrawMarks(ChartWork& work);
void DrawSymbol(ChartWork& work, const ChartCurve& curve, const DrawPoint& at, double radius, bool hollow,
                bool clipped);

// The room that the scale of the cells' colours takes; 0 if there are none.
double CellScaleRoom(const ChartWork& work);
void DrawCellScale(ChartWork& work);

}  // namespace korva
