#include "desktop/plan/SchematicView.h"

#include "desktop/plan/PaintDrawing.h"
#include "desktop/support/FormTools.h"
#include "plan/PanelPicture.h"
#include "plan/PanelSchematic.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 62;  // of digits
constexpr int kLines = 19;

}  // namespace

SchematicView::SchematicView(int index, QWidget* parent)
    : QWidget(parent), drawing_(PanelSchematic(PanelPictureOf(index))) {
  const QString text = FromUtf8(PanelSchematicText(PanelPictureOf(index)));
  setAccessibleName(text);
  setToolTip(text);
}

QSize SchematicView::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(QLatin1Char('0')) * kColumns, metrics.height() * kLines};
}

QSize SchematicView::minimumSizeHint() const {
  return sizeHint() * 3 / 4;
}

void SchematicView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintDrawing(painter, rect(), drawing_, {palette(), DrawingFont(font())});
}

}  // namespace korva::desktop
