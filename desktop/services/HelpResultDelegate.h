// Paints a page that the search found: its title, and below it the excerpt with the hits.
#pragma once

#include <QStyledItemDelegate>

class QTextDocument;

namespace korva::desktop {

class HelpResultDelegate final : public QStyledItemDelegate {
 public:
  // The role of an entry's excerpt, as the search engine returned it. The title is the entry's text.
  static constexpr int kSnippetRole = Qt::UserRole + 1;

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  static void Set(QTextDocument& text, const QStyleOptionViewItem& option, const QModelIndex& index);
};

}  // namespace korva::desktop
