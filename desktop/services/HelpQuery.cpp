#include "desktop/services/HelpQuery.h"

#include <QRegularExpression>
#include <QStringList>

namespace korva::desktop {

namespace {

constexpr QLatin1String kHit("<b>");
constexpr QLatin1String kHitEnd("</b>");
constexpr QLatin1String kLeftOut("...");

// The words of `piece` as one phrase; nothing if it has none.
QString Phrase(const QString& piece) {
  static const QRegularExpression kSigns(QStringLiteral("[^\\p{L}\\p{N}\\p{M}]+"));
  const QString words = piece.split(kSigns, Qt::SkipEmptyParts).join(QLatin1Char(' '));
  return words.isEmpty() ? QString() : QLatin1Char('"') + words + QLatin1Char('"');
}

// Without the dots around it. The engine cuts between words, and takes "quot" of "&quot;" for one.
QString WholeSnippet(QString snippet) {
  if (snippet.startsWith(kLeftOut)) {
    snippet.remove(0, kLeftOut.size());
  }
  if (snippet.endsWith(kLeftOut)) {
    snippet.chop(kLeftOut.size());
  }
  static const QRegularExpression kCutBefore(QStringLiteral("^(amp|lt|gt|quot);"));
  static const QRegularExpression kCutBehind(QStringLiteral("&(amp|lt|gt|quot)$"));
  return snippet.replace(kCutBefore, QStringLiteral("&\\1;")).replace(kCutBehind, QStringLiteral("&\\1;"));
}

QString PlainText(QString html) {
  html.remove(kHit).remove(kHitEnd);
  return html.replace(QLatin1String("&lt;"), QLatin1String("<"))
      .replace(QLatin1String("&gt;"), QLatin1String(">"))
      .replace(QLatin1String("&quot;"), QLatin1String("\""))
      .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

}  // namespace

QString FullTextQuery(const QString& typed) {
  static const QRegularExpression kBlanks(QStringLiteral("\\s+"));
  QStringList phrases;
  const QStringList parts = typed.split(QLatin1Char('"'));
  for (qsizetype i = 0; i < parts.size(); ++i) {
    const bool quoted = i % 2 == 1;
    for (const QString& piece : quoted ? QStringList{parts[i]} : parts[i].split(kBlanks)) {
      phrases << Phrase(piece);
    }
  }
  phrases.removeAll(QString());
  return phrases.join(QLatin1Char(' '));
}

HelpExcerpt ExcerptOf(const QString& snippet) {
  const QString html = WholeSnippet(snippet);
  const qsizetype begin = html.indexOf(kHit);
  const qsizetype end = html.indexOf(kHitEnd, begin);
  if (begin < 0 || end < 0) {
    return {PlainText(html), 0, 0};
  }
  return {PlainText(html), PlainText(html.left(begin)).size(),
          PlainText(html.mid(begin, end - begin)).size()};
}

QString ShownSnippet(const QString& snippet) {
  static const QRegularExpression kLines(QStringLiteral("\\s*\n(\\s*\uFFFC*\\s*\n)*\\s*"));
  static const QRegularExpression kPictures(QStringLiteral("\uFFFC+"));
  const QString dots = QStringLiteral("\u2026");
  const QString text =
      WholeSnippet(snippet).replace(kLines, QStringLiteral(" \u00b7 ")).replace(kPictures, dots);
  return (snippet.startsWith(kLeftOut) ? dots : QString()) + text +
         (snippet.endsWith(kLeftOut) ? dots : QString());
}

}  // namespace korva::desktop
