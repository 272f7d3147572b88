// Prints pictures that windows paint of themselves.
#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>
#include <functional>

namespace korva::desktop {

class PicturePrinter {
 public:
  // Paints on the sheet with a painter of its own, in the units of that; `room` is what can be printed on.
  using Paint = std::function<void(QPaintDevice& sheet, const QRectF& room)>;

  virtual ~PicturePrinter() = default;
  // Asks for the printer and prints one sheet, in landscape unless the person wants it otherwise. False if
  // that was cancelled. Run-time error 482 if there is no printer or it fails.
  virtual bool PrintPicture(const QString& title, const Paint& paint) = 0;
};

// Begins painting on a sheet; run-time error 482 if that cannot be.
void BeginPainting(QPainter& painter, QPaintDevice& sheet);

}  // namespace korva::desktop
