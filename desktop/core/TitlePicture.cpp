#include "desktop/core/TitlePicture.h"

#include "core/Korva.h"
#include "core/Version.h"
#include "desktop/plan/PaintDrawing.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Theme.h"
#include "plan/PanelSchematic.h"

namespace korva::desktop {

namespace {

constexpr double kQuiet = 0.55;

}  // namespace

TitlePicture::TitlePicture(QWidget* parent) : QWidget(parent) {
  setAccessibleName(FromUtf8(ExeName) + QStringLiteral(", ") + FromUtf8(ProgramTitle));
  setMinimumSize(fontMetrics().height() * 18, fontMetrics().height() * 9);
}

QSize TitlePicture::sizeHint() const {
  return {fontMetrics().height() * 44, fontMetrics().height() * 24};
}

void TitlePicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont name(font());
  name.setPixelSize(std::max(fontMetrics().height(), height() / 9));
  name.setBold(true);
  const QFontMetrics metrics(name);
  const int unit = SpacingUnit(*this);
  const QRect words(unit, unit, width() - 2 * unit, metrics.height() + 2 * fontMetrics().height());

  painter.setFont(name);
  painter.setPen(AccentColour(palette()));
  painter.drawText(words, Qt::AlignHCenter | Qt::AlignTop, FromUtf8(ExeName));
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(words, Qt::AlignHCenter | Qt::AlignBottom, FromUtf8(ProgramTitle));

  painter.setOpacity(kQuiet);
  const QRect below = rect().adjusted(2 * unit, words.bottom() + 2 * unit, -2 * unit, -2 * unit);
  PaintDrawing(painter, below,
               PanelSchematic({.Condition = PanelLoading::kWithBothSideGobs, .RowC = true, .RowD = true}),
               {palette(), font(), false});
}

}  // namespace korva::desktop
