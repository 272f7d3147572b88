#include "desktop/services/HelpResultDelegate.h"

#include <QAbstractItemView>
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>
#include <cmath>

#include "desktop/services/HelpQuery.h"

namespace korva::desktop {

void HelpResultDelegate::Set(QTextDocument& text, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  const QString snippet = ShownSnippet(index.data(kSnippetRole).toString());
  text.setDefaultFont(option.font);
  text.setHtml(
      QStringLiteral("<p><b>%1</b><br/>%2</p>").arg(index.data().toString().toHtmlEscaped(), snippet));
  text.setTextWidth(static_cast<const QAbstractItemView*>(option.widget)->viewport()->width());
}

void HelpResultDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
  QStyleOptionViewItem entry = option;
  initStyleOption(&entry, index);
  entry.text.clear();
  entry.widget->style()->drawControl(QStyle::CE_ItemViewItem, &entry, painter, entry.widget);
  QTextDocument text;
  Set(text, option, index);
  QAbstractTextDocumentLayout::PaintContext context;
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  context.palette = option.palette;
  context.palette.setColor(QPalette::Text,
                           option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  painter->save();
  painter->translate(option.rect.topLeft());
  text.documentLayout()->draw(painter, context);
  painter->restore();
}

QSize HelpResultDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QTextDocument text;
  Set(text, option, index);
  return {static_cast<int>(text.textWidth()), static_cast<int>(std::ceil(text.size().height()))};
}

}  // namespace korva::desktop
