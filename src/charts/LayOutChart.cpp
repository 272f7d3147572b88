#include "charts/LayOutChart.h"

#include <algorithm>
#include <cmath>

#include "charts/ChartWork.h"
#include "charts/FitText.h"

namespace korva {

namespace {

constexpr double kHeadingPixels = 20;
constexpr double kHeadingLine = 22;
constexpr double kPlotTop = 36;  // of the plot
constexpr double kTick = 5;
constexpr double kGap = 4;
constexpr double kXLabelGap = 10;
constexpr double kLabelLine = 19;  // of labels, below the plot
constexpr double kTitleLine = 36;
constexpr double kNoteHeight = 15;
constexpr double kHeightWithoutNotes = 200;
constexpr double kLeastRight = 28;  // for the text of a reference line
constexpr double kDash = 5;
constexpr std::size_t kEmptyTitle = 20;  // blanks, to be clicked
constexpr double kWideName = 100;        // names beyond it are cut off, not left out

// A low picture has room for some of the notes.
std::vector<std::string> ShownNotes(ChartWork& work) {
  const double room = work.Size.Width - 2 * kEdge;
  const auto size = [&work](const std::string& text) { return work.Width(text); };
  std::vector<std::string> lines = NoteLines(work.Source.Notes, room, size);
  const double most = std::max(1.0, std::floor((work.Size.Height - kHeightWithoutNotes) / kNoteHeight));
  if (static_cast<double>(lines.size()) > most) {
    lines.resize(static_cast<std::size_t>(most));
    lines.back() = TruncatedText(lines.back(), " ...", room, size);
  }
  work.NotesTop =
      work.Size.Height - static_cast<double>(lines.size()) * kNoteHeight - (lines.empty() ? 0 : kGap);
  return lines;
}

// Moves a text that is centered at its place off the edges of the sheet.
void KeepOnSheet(const ChartWork& work, PictureText& text) {
  const double half = work.Measure(text.Text, text.Pixels) / 2;
  text.At.X = std::max(kEdge + half, std::min(text.At.X, work.Size.Width - kEdge - half));
}

// The titles come first: no other text takes their room.
void DrawTitles(ChartWork& work) {
  const Chart& chart = work.Source;
  ChartLayout& out = work.Out;
  const double room = work.Size.Width - 2 * kEdge;
  const auto add = [&work](PictureText text, double most, double least) {
    FitText(text, most, least, work.Measure);
    if (!text.Upright) {
      KeepOnSheet(work, text);
    }
    if (text.Text.empty()) {
      text.Text = std::string(kEmptyTitle, ' ');
      return BoxOf(text, work.Measure);
    }
    return work.AddText(text) ? work.Occupied.back() : PictureBox{};
  };
  out.Title = add({chart.Title, {work.Size.Width / 2, kHeadingLine}, kHeadingPixels, 0.5}, room, kTextPixels);
  out.XTitle = add({chart.XAxis.Title, {out.Plot.CenterX(), out.Plot.Bottom + kTitleLine}, kTextPixels, 0.5},
                   room, kLeastPixels);
  out.YTitle = add({chart.YAxis.Title, {kEdge + kTextPixels - 2, out.Plot.CenterY()}, kTextPixels, 0.5, true},
                   out.Plot.Height() + 2 * kGap, kLeastPixels);
}

// The labels of an axis that lie in the part that is seen: every `step`th of its names, cut off where they
// are wider than `most`, or the numbers of `scale`.
std::vector<AxisLabel> LabelsOf(const ChartWork& work, const ChartAxis& axis, const AxisRange& seen,
                                const AxisScale& scale, std::size_t step, double most) {
  std::vector<AxisLabel> labels;
  for (std::size_t i = 0; i < axis.Names.size(); i += step) {
    PictureText text = {axis.Names[i], {}, kTextPixels};
    FitText(text, most, kTextPixels, work.Measure);
    labels.push_back({static_cast<double>(i), text.Text});
  }
  for (int i = 0; axis.Names.empty() && i < scale.Labels(); ++i) {
    labels.push_back({scale.Value(i), scale.Text(i)});
  }
  const double slack = 1e-9 * (seen.High - seen.Low);
  std::erase_if(labels, [&](const AxisLabel& label) {
    return label.Value < seen.Low - slack || label.Value > seen.High + slack;
  });
  return labels;
}

// What a name below the plot needs at most.
double NameWidth(const ChartWork& work) {
  double widest = 0;
  for (const std::string& name : work.Source.XAxis.Names) {
    widest = std::max(widest, work.Width(name));
  }
  return std::min(widest, kWideName);
}

// Every how many names are shown, where each has `room` and a label needs `least`.
std::size_t StepOfNames(double least, double room) {
  return static_cast<std::size_t>(std::max(1.0, std::ceil(least / room)));
}

void DrawGrid(ChartWork& work) {
  const ChartLayout& out = work.Out;
  const PicturePen pen = {kGridColour, 1};
  if (work.Source.XAxis.Grid) {
    for (const AxisLabel& label : work.XLabels) {
      const double x = Snapped(out.Place(label.Value, 0).X);
      work.AddLine({x, out.Plot.Top}, {x, out.Plot.Bottom}, pen);
    }
  }
  if (work.Source.YAxis.Grid) {
    for (const AxisLabel& label : work.YLabels) {
      const double y = Snapped(out.Place(0, label.Value).Y);
      work.AddLine({out.Plot.Left, y}, {out.Plot.Right, y}, pen);
    }
  }
}

void DrawAxes(ChartWork& work) {
  const ChartLayout& out = work.Out;
  const PictureBox& plot = out.Plot;
  const PicturePen pen = {kBlack, 1};
  for (const auto& [value, text] : work.XLabels) {
    const double x = Snapped(out.Place(value, 0).X);
    work.AddLine({x, plot.Bottom}, {x, plot.Bottom + kTick}, pen);
    work.AddText({text, {x, plot.Bottom + kLabelLine}, kTextPixels, 0.5});
  }
  for (const auto& [value, text] : work.YLabels) {
    const double y = Snapped(out.Place(0, value).Y);
    work.AddLine({plot.Left - kTick, y}, {plot.Left, y}, pen);
    work.AddText({text, {plot.Left - kTick - kGap, y + kMiddleLine * kTextPixels}, kTextPixels, 1});
  }
  work.AddBox(plot, {}, pen);
}

// Clear of a symbol at the frame.
double ReferenceGap(const ChartWork& work) {
  return std::max(kGap, work.SymbolRadius() + 1);
}

// What their texts leave free around them, of the scale of colours, too.
double ReferencesClear(const ChartWork& work) {
  return ReferenceGap(work) + (work.Source.Cells ? kGap : 0);
}

void DrawReferences(ChartWork& work) {
  const PictureBox& plot = work.Out.Plot;
  for (const ChartReference& line : work.Source.References) {
    const AxisRange& seen = line.Upright ? work.Out.Seen.X : work.Out.Seen.Y;
    if (line.At < seen.Low || line.At > seen.High) {
      continue;
    }
    const PicturePen pen = {kReferenceColour, 1, kDash};
    const DrawPoint at = work.Out.Place(line.At, line.At);
    if (line.Upright) {
      const double x = Snapped(at.X);
      work.AddLine({x, plot.Top}, {x, plot.Bottom}, pen);
      PictureText text = {line.Text, {x, plot.Top - kGap}, kTextPixels, 0.5, false, kReferenceColour};
      KeepOnSheet(work, text);
      work.AddText(std::move(text));
    } else {
      const double y = Snapped(at.Y);
      work.AddLine({plot.Left, y}, {plot.Right, y}, pen);
      const DrawPoint place = {plot.Right + ReferenceGap(work), y + kMiddleLine * kTextPixels};
      PictureText text = {line.Text, place, kTextPixels, 0, false, kReferenceColour};
      FitText(text, work.ReferencesRoom - ReferencesClear(work) + kRounding, kTextPixels, work.Measure);
      work.AddText(std::move(text));
    }
  }
}

void DrawNotes(ChartWork& work, const std::vector<std::string>& lines) {
  double y = work.NotesTop;
  for (const std::string& line : lines) {
    work.AddText({line, {kEdge, y + kTextPixels - kGap}, kTextPixels});
    y += kNoteHeight;
  }
}

// Each beside its point on the side that is free, if one is.
void DrawLabels(ChartWork& work) {
  const double away = work.SymbolRadius() + 2;
  for (const ChartLabel& label : work.Source.Labels) {
    const DrawPoint at = work.Out.Place(label.X, label.Y);
    if (!work.Out.Plot.Contains(at)) {
      continue;
    }
    const double middle = at.Y + kMiddleLine * kTextPixels;
    for (const auto& [along, to] : {std::pair{0.0, DrawPoint{at.X + away, middle}},
                                    {1.0, {at.X - away, middle}},
                                    {0.5, {at.X, at.Y - away - 2}},
                                    {0.5, {at.X, at.Y + away + kTextPixels}}}) {
      const PictureText text = {label.Text, to, kTextPixels, along};
      if (work.Out.Plot.Contains(BoxOf(text, work.Measure)) && work.AddText(text)) {
        break;
      }
    }
  }
}

}  // namespace

double Snapped(double place) {
  return std::floor(place) + 0.5;
}

void ChartWork::AddBox(const PictureBox& box, std::optional<Rgb> fill, const PicturePen& pen, bool clipped) {
  Add(PicturePath{
      .Points = {{box.Left, box.Top}, {box.Right, box.Top}, {box.Right, box.Bottom}, {box.Left, box.Bottom}},
      .Pen = pen,
      .Closed = true,
      .Fill = fill,
      .Clipped = clipped});
}

bool ChartWork::AddText(PictureText text) {
  const PictureBox box = BoxOf(text, Measure);
  const PictureBox sheet = {0, 0, Size.Width, Size.Height};
  if (text.Text.empty() || !sheet.Contains(box) ||
      std::any_of(Occupied.begin(), Occupied.end(),
                  [&box](const PictureBox& taken) { return taken.Meets(box); })) {
    return false;
  }
  Occupied.push_back(box);
  Add(std::move(text));
  return true;
}

void PlaceFrame(ChartWork& work, double right, double below) {
  PictureBox& plot = work.Out.Plot;
  const AxisRange& y = work.Out.Seen.Y;
  double texts = 0;  // of the references
  double top = kPlotTop;
  for (const ChartReference& line : work.Source.References) {
    texts = std::max(texts, line.Upright ? 0 : work.Width(line.Text) + ReferencesClear(work));
    top = line.Upright ? kPlotTop + kTextPixels + 2 : top;
  }
  plot.Top = Snapped(top);
  plot.Bottom = std::max(plot.Top + 1, Snapped(work.NotesTop - kAxisRoom - below));
  const double mostLabels = work.Size.Width / 3;
  const AxisScale yScale =
      ScaleThatFits(y.Low, y.High, plot.Height(), kGap, [](const std::string&) { return kTextPixels; });
  work.YLabels = LabelsOf(work, work.Source.YAxis, y, yScale,
                          StepOfNames(kTextPixels + 2, plot.Height() / (y.High - y.Low)), mostLabels);
  double labels = 0;
  for (const AxisLabel& label : work.YLabels) {
    labels = std::max(labels, work.Width(label.Text));
  }
  plot.Left = Snapped(kEdge + kTextPixels + kEdge + std::min(labels, mostLabels) + kGap + kTick);
  const double room = std::clamp(texts, kLeastRight, std::max(kLeastRight, work.Size.Width / 4));
  work.ReferencesRoom = room;
  work.RightRoom = room + CellScaleRoom(work);
  plot.Right = std::max(plot.Left + 1, Snapped(work.Size.Width - kEdge - work.RightRoom - right));
  work.CellsLeft = plot.Right + room;
  const AxisRange& x = work.Out.Seen.X;
  const AxisScale xScale = ScaleThatFits(x.Low, x.High, plot.Width(), kXLabelGap,
                                         [&work](const std::string& text) { return work.Width(text); });
  const double nameRoom = plot.Width() / (x.High - x.Low);
  const std::size_t step = StepOfNames(NameWidth(work) + kXLabelGap, nameRoom);
  work.XLabels =
      LabelsOf(work, work.Source.XAxis, x, xScale, step, static_cast<double>(step) * nameRoom - kXLabelGap);
}

DrawPoint ChartLayout::Place(double x, double y) const {
  return {Plot.Left + (x - Seen.X.Low) / (Seen.X.High - Seen.X.Low) * Plot.Width(),
          Plot.Bottom - (y - Seen.Y.Low) / (Seen.Y.High - Seen.Y.Low) * Plot.Height()};
}

DrawPoint ChartLayout::ValueAt(const DrawPoint& place) const {
  return {Seen.X.Low + (place.X - Plot.Left) / Plot.Width() * (Seen.X.High - Seen.X.Low),
          Seen.Y.Low + (Plot.Bottom - place.Y) / Plot.Height() * (Seen.Y.High - Seen.Y.Low)};
}

ChartWindow WholeOf(const Chart& chart) {
  const AxisScale& x = chart.XAxis.Scale;
  const AxisScale& y = chart.YAxis.Scale;
  return {{x.Low, x.High}, {y.Low, y.High}};
}

ChartLayout LayOutChart(const Chart& chart, PictureSize size, const TextMeasure& measure,
                        const std::optional<ChartWindow>& seen) {
  ChartWork work(chart, size, measure);
  work.Out.Drawn.Size = size;
  work.Out.Seen = seen.value_or(WholeOf(chart));
  work.AddBox({0, 0, size.Width, size.Height}, kPaper, {});
  const std::vector<std::string> notes = ShownNotes(work);
  PlaceFrame(work);
  PlaceLegend(work);
  // The symbols at the ends of the whole are whole.
  work.Out.Drawn.Clip = seen ? work.Out.Plot : work.Out.Plot.Grown(work.SymbolRadius() + 1);
  DrawBackdrop(work);
  DrawGrid(work);
  DrawMarks(work);
  DrawTitles(work);
  DrawNotes(work, notes);
  DrawAxes(work);
  DrawReferences(work);
  DrawCellScale(work);
  DrawLegend(work);
  DrawLabels(work);
  return std::move(work.Out);
}

}  // namespace korva
