// Paints drawing records on the screen, in the colours of the theme, and on paper.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>

#include "core/Drawing.h"

namespace korva::desktop {

struct PaintStyle {
  QPalette Palette;
  QFont Font;          // of texts and legend
  bool Texts = true;   // also dimensions, texts and legend
  bool Paper = false;  // patterns that hold in black and white
  double Unit = 1;     // of line widths, in the painter's units
};

// Fits the drawing into `room` and keeps its proportions. The legend stands below it.
void PaintDrawing(QPainter& painter, const QRectF& room, const Drawing& drawing, const PaintStyle& style);

// The font of texts in drawings: a step smaller than the window's, never below 8 points.
QFont DrawingFont(const QFont& windowFont);

}  // namespace korva::desktop
