#include "desktop/core/CardPlan.h"

#include <algorithm>

#include "commands/PlanCommands.h"
#include "desktop/plan/PaintDrawing.h"
#include "desktop/support/FormTools.h"
#include "plan/PanelOverview.h"
#include "plan/PanelSchematic.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 62;  // of digits
constexpr int kLines = 19;
constexpr int kLegendColumns = 34;  // that the legend takes at least
constexpr double kLegendLines = 4.2;
const QString kNoPlan = QStringLiteral("No plan: these dimensions do not form a panel");

}  // namespace

CardPlan::CardPlan(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picCardPlan"));
}

void CardPlan::Show(const Korva& korva) {
  const Project& project = korva.Stored.ProjectInput;
  auto request = PreviewRequest(korva, project);
  if (request) {
    request->Full = true;  // with the active mining zone
  }
  drawing_ = request ? PanelOverview(*request) : std::nullopt;
  const int picture = PanelPictureIndex({project.LoadingCondition, IsSet(project.RowA), IsSet(project.RowB),
                                         IsSet(project.RowC), IsSet(project.RowD)});
  const QString panel = FromUtf8(PanelSchematicText(PanelPictureOf(picture)));
  const QString text = drawing_ ? QStringLiteral("The panel to scale: ") + panel : kNoPlan;
  setAccessibleName(text);
  setToolTip(text);
  update();
}

QSize CardPlan::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(QLatin1Char('0')) * kColumns, metrics.height() * kLines};
}

QSize CardPlan::minimumSizeHint() const {
  return sizeHint() / 2;
}

// What the drawing takes of this widget, at its top, so that the legend stands close to it.
QRectF CardPlan::Room() const {
  const QFontMetricsF metrics(DrawingFont(font()));
  const double legend = kLegendLines * metrics.lineSpacing();
  const double across = drawing_->High.X - drawing_->Low.X;
  const double along = drawing_->High.Y - drawing_->Low.Y;
  if (height() <= legend || !(across > 0) || !(along > 0)) {
    return rect();
  }
  const double scale = std::min(width() / across, (height() - legend) / along);
  const double least = metrics.horizontalAdvance(QLatin1Char('0')) * kLegendColumns;
  const double wide = std::min<double>(width(), std::max(scale * across, least));
  return {(width() - wide) / 2, 0, wide, scale * along + legend};
}

void CardPlan::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (drawing_) {
    PaintDrawing(painter, Room(), *drawing_, {palette(), DrawingFont(font())});
  } else {
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, kNoPlan);
  }
}

}  // namespace korva::desktop
