#include "desktop/services/HelpBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QFontInfo>
#include <QPainter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTextBlock>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/support/FormTools.h"
#include "desktop/support/Theme.h"

namespace korva::desktop {

namespace {

constexpr int kLeastZoom = 50;
constexpr int kGreatestZoom = 300;
constexpr int kZoomStep = 10;
constexpr double kFormulaSize = 1.1;  // its letters look smaller than those of the text
constexpr int kResizePause = 150;     // milliseconds
constexpr int kRounding = 3;          // pixels that the columns of a table are too wide at most
constexpr const char* kScheme = "qthelp";

// A colour between two others; `share` of the first.
QColor Mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](int a, int b) {
    return static_cast<int>(std::lround(share * a + (1 - share) * b));
  };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

}  // namespace

HelpBrowser::HelpBrowser(HelpFile& file, QWidget* parent)
    : QTextBrowser(parent), file_(file), basePoints_(QFontInfo(font()).pointSizeF()) {
  setObjectName(QStringLiteral("Browser"));
  setAccessibleName(QStringLiteral("Help page"));
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // pictures are fitted into what it leaves
  setWordWrapMode(QTextOption::WordWrap);
  document()->setDocumentMargin(2 * SpacingUnit(*this));
  resized_.setSingleShot(true);
  resized_.setInterval(kResizePause);
  connect(&resized_, &QTimer::timeout, this, &HelpBrowser::FitToWidth);
  ApplyColours();
}

void HelpBrowser::ApplyColours() {
  const QColor text = palette().color(QPalette::Text);
  const QColor paper = palette().color(QPalette::Base);
  const QString link = palette().color(QPalette::Link).name();
  const QString panel = Mixed(text, paper, 0.08).name();
  const QString line = Mixed(text, paper, 0.3).name();
  document()->setDefaultStyleSheet(
      QStringLiteral(
          "a { color: %1; text-decoration: none; }"
          "h1 { font-size: x-large; margin-bottom: 10px; }"
          "h2 { font-size: large; margin-top: 18px; margin-bottom: 6px; color: %5; }"
          "h3 { font-size: medium; margin-top: 14px; margin-bottom: 3px; }"
          "p, li { line-height: 125%; } li { margin-bottom: 4px; }"
          "table { border-collapse: collapse; border-color: %3; margin-top: 4px; margin-bottom: 8px; }"
          "th { background-color: %2; text-align: left; } td, th { padding: 4px 3px; }"
          "td p, th p { margin: 0; }"
          "td.note, td.code { background-color: %2; border-width: 0; padding: 6px 8px; }"
          "code, pre { font-family: '%4'; } pre { white-space: pre-wrap; } p.picture { line-height: 100%; }"
          "div.math { margin: 6px 0 10px 20px; }")
          .arg(link, panel, line, FixedPitchFont().family(), AccentColour(palette()).name()));
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl url = name.isRelative() ? page_.resolved(name) : name;
  if (url.scheme() != QLatin1String(kScheme)) {
    return {};  // nothing is fetched from elsewhere
  }
  const QByteArray bytes = file_.Bytes(url);
  if (type != QTextDocument::ImageResource) {
    shownWidth_ = viewport()->width();  // the pictures follow
    return bytes.isEmpty() ? QVariant() : QVariant(bytes);
  }
  return url.path().endsWith(QLatin1String(".svg")) ? Formula(bytes) : Picture(bytes);
}

// Formulas are as large as the text, in its colour, and as fine as the screen.
QImage HelpBrowser::Formula(QByteArray svg) const {
  static const QRegularExpression kSize(QStringLiteral("width=\"([0-9.]+)em\" height=\"([0-9.]+)em\""));
  const auto size = kSize.match(QString::fromUtf8(svg.left(512)));
  if (!size.hasMatch()) {
    return {};
  }
  svg.replace("#000000", palette().color(QPalette::Text).name().toUtf8());
  const qreal em = QFontInfo(font()).pixelSize() * kFormulaSize;
  const qreal ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(size.captured(1).toDouble() * em * ratio)),
                     static_cast<int>(std::ceil(size.captured(2).toDouble() * em * ratio)));
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QSvgRenderer renderer(svg);
  QPainter painter(&image);
  renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(pixels)));
  painter.end();
  image.setDevicePixelRatio(ratio);
  return image;
}

QImage HelpBrowser::Picture(const QByteArray& bytes) const {
  QImage image = QImage::fromData(bytes);
  if (image.isNull()) {
    return image;
  }
  const qreal ratio = devicePixelRatioF();
  const int room = viewport()->width() - static_cast<int>(2 * document()->documentMargin());
  const int width = std::min(image.width() * zoom_ / 100, std::max(room, 1));
  image = image.scaledToWidth(static_cast<int>(width * ratio), Qt::SmoothTransformation);
  image.setDevicePixelRatio(ratio);
  return image;
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  if (!name.isRelative() && name.scheme() != QLatin1String(kScheme)) {
    emit LinkOutside(name);
    return;
  }
  KeepPlace();
  page_ = name.isRelative() ? page_.resolved(name) : name;
  QTextBrowser::doSetSource(name, type);
  FinishLayout();
  if (const int heading = PositionOf(page_.fragment()); heading >= 0) {
    const QTextCursor cursor = textCursor();
    Show({source(), heading, SpacingUnit(*this), cursor.anchor(), cursor.position(), 0});
  }
}

void HelpBrowser::SetZoom(int percent) {
  zoom_ = std::clamp(percent, kLeastZoom, kGreatestZoom);
  QFont larger = font();
  larger.setPointSizeF(basePoints_ * zoom_ / 100);
  setFont(larger);
}

QTextCursor HelpBrowser::CursorAt(int position, int anchor) const {
  const int last = std::max(0, document()->characterCount() - 1);
  QTextCursor cursor(document());
  cursor.setPosition(std::min(anchor, last));
  cursor.setPosition(std::min(position, last), QTextCursor::KeepAnchor);
  return cursor;
}

// The selection if it is in view, or else the first line that is not cut off at the top.
QTextCursor HelpBrowser::LineToKeep() const {
  const int height = viewport()->height();
  const int selected = textCursor().selectionStart();
  QTextCursor line = CursorAt(selected, selected);
  const int top = cursorRect(line).top();
  if (textCursor().hasSelection() && top >= 0 && top < height) {
    return line;
  }
  for (int y = 0; y < height; y += SpacingUnit(*this)) {
    line = cursorForPosition(QPoint(0, y));
    if (cursorRect(line).top() >= 0) {
      return line;
    }
  }
  return cursorForPosition(QPoint(0, 0));
}

// The place that was set, as long as nobody has moved on: what it had to round or to cut does not add up.
HelpBrowser::Place HelpBrowser::PlaceInView() const {
  const QTextCursor cursor = textCursor();
  const int scroll = verticalScrollBar()->value();
  if (place_ && place_->Page == source() && place_->Scroll == scroll && place_->Anchor == cursor.anchor() &&
      place_->Cursor == cursor.position()) {
    return *place_;
  }
  const QTextCursor line = LineToKeep();
  return {source(), line.position(), cursorRect(line).top(), cursor.anchor(), cursor.position(), scroll};
}

// Long pages are laid out piece by piece, and the scroll bars lag behind that.
void HelpBrowser::FinishLayout() {
  QAbstractTextDocumentLayout* layout = document()->documentLayout();
  layout->frameBoundingRect(document()->rootFrame());
  const bool fits = layout->documentSize().width() <= viewport()->width() + kRounding;
  setHorizontalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
  emit layout->documentSizeChanged(layout->documentSize());
}

void HelpBrowser::Show(Place place) {
  FinishLayout();
  const QTextCursor kept = CursorAt(place.Cursor, place.Anchor);
  if (kept != textCursor() || kept.anchor() != textCursor().anchor()) {
    setTextCursor(kept);
  }
  const QTextCursor line = CursorAt(place.Position, place.Position);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(line).top() - place.Y);
  place.Scroll = verticalScrollBar()->value();
  place_ = place;
}

void HelpBrowser::ReloadAt(const Place& place) {
  resized_.stop();
  if (!source().isEmpty()) {
    reload();
    Show(place);
  }
}

void HelpBrowser::FitToWidth() {
  if (viewport()->width() != shownWidth_) {
    ReloadAt(PlaceInView());
  }
}

void HelpBrowser::KeepPlace() {
  places_[source()] = PlaceInView();
}

// The toolkit kept pixels, which are another place in another width or size.
void HelpBrowser::ReturnToPlace() {
  page_ = source();
  if (const auto place = places_.find(source()); place != places_.end()) {
    Show(place->second);
  }
}

void HelpBrowser::backward() {
  KeepPlace();
  QTextBrowser::backward();
  ReturnToPlace();
}

void HelpBrowser::forward() {
  KeepPlace();
  QTextBrowser::forward();
  ReturnToPlace();
}

bool HelpBrowser::FindText(const QString& text, bool backward) {
  const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text.isEmpty() || find(text, flags)) {
    return !text.isEmpty();
  }
  const QTextCursor before = textCursor();
  moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  if (find(text, flags)) {
    return true;
  }
  setTextCursor(before);
  return false;
}

void HelpBrowser::ShowExcerpt(const HelpExcerpt& excerpt) {
  const qsizetype at = document()->toPlainText().indexOf(excerpt.Text);
  if (at < 0) {
    return;
  }
  QTextCursor hit(document());
  hit.setPosition(static_cast<int>(at + excerpt.At));
  hit.setPosition(static_cast<int>(at + excerpt.At + excerpt.Hits), QTextCursor::KeepAnchor);
  setTextCursor(hit);
  const int above = cursorRect().top() - viewport()->height() / 3;
  verticalScrollBar()->setValue(verticalScrollBar()->value() + above);
}

int HelpBrowser::PositionOf(const QString& anchor) const {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      if (piece.fragment().charFormat().anchorNames().contains(anchor)) {
        return piece.fragment().position();
      }
    }
  }
  return -1;
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
  if (source().isEmpty() || textCursor().isNull()) {  // nothing to look at, or only half of it
    QTextBrowser::resizeEvent(event);
    return;
  }
  const Place place = PlaceInView();
  QTextBrowser::resizeEvent(event);
  Show(place);
  resized_.start();
}

void HelpBrowser::showEvent(QShowEvent* event) {
  QTextBrowser::showEvent(event);
  FitToWidth();
}

void HelpBrowser::changeEvent(QEvent* event) {
  const bool colours = event->type() == QEvent::PaletteChange;
  if (!colours && event->type() != QEvent::FontChange) {
    QTextBrowser::changeEvent(event);
    return;
  }
  const Place place = PlaceInView();
  QTextBrowser::changeEvent(event);
  if (colours) {
    ApplyColours();
  }
  ReloadAt(place);
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QTextBrowser::wheelEvent(event);
  } else if (event->angleDelta().y() != 0) {
    SetZoom(zoom_ + (event->angleDelta().y() > 0 ? kZoomStep : -kZoomStep));
  }
}

}  // namespace korva::desktop
