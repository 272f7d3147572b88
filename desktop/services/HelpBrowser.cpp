#include "desktop/services/HelpBrowser.h"

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
  document()->setDocumentMargin(2 * SpacingUnit(*this));
  resized_.setSingleShot(true);
  resized_.setInterval(kResizePause);
  connect(&resized_, &QTimer::timeout, this, &HelpBrowser::ReloadInPlace);
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
          "th { background-color: %2; text-align: left; } td, th { padding: 4px; }"
          "td p, th p { margin: 0; }"
          "td.note, td.code { background-color: %2; border-width: 0; }"
          "code, pre { font-family: '%4'; }"
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
  shownWidth_ = viewport()->width();
  page_ = name.isRelative() ? page_.resolved(name) : name;
  QTextBrowser::doSetSource(name, type);
  if (page_.hasFragment()) {  // room above the heading
    verticalScrollBar()->setValue(verticalScrollBar()->value() - SpacingUnit(*this));
  }
}

void HelpBrowser::SetZoom(int percent) {
  zoom_ = std::clamp(percent, kLeastZoom, kGreatestZoom);
  QFont larger = font();
  larger.setPointSizeF(basePoints_ * zoom_ / 100);
  setFont(larger);
  ReloadInPlace();
}

// Sets the page anew and stays at its place.
void HelpBrowser::ReloadInPlace() {
  const int top = cursorForPosition(QPoint(0, 0)).position();
  shownWidth_ = viewport()->width();
  reload();
  QTextCursor first(document());
  first.setPosition(std::min(top, std::max(0, document()->characterCount() - 1)));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(first).top());
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
  QTextBrowser::resizeEvent(event);
  if (viewport()->width() != shownWidth_ && !source().isEmpty()) {
    resized_.start();
  }
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    ApplyColours();
    if (!source().isEmpty()) {
      ReloadInPlace();
    }
  }
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QTextBrowser::wheelEvent(event);
  } else if (event->angleDelta().y() != 0) {
    SetZoom(zoom_ + (event->angleDelta().y() > 0 ? kZoomStep : -kZoomStep));
  }
}

}  // namespace korva::desktop
