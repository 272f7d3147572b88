// Paints printed sheets, on paper and on the screen alike.
#pragma once

#include <QFont>
#include <QPainter>

#include "core/PrintedSheet.h"

namespace korva::desktop {

// Paints the records of a sheet, black; the whole paper fills `target`.
void PaintSheet(QPainter& painter, const PrintedSheet& sheet, PaperSize paper, const QRectF& target);

// The font of all printed text, for a painter whose unit is a twip.
QFont PrinterFont();

}  // namespace korva::desktop
