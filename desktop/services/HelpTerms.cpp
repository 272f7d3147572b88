#include "desktop/services/HelpTerms.h"

#include <QAction>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QMenu>
#include <QVBoxLayout>

#include "desktop/services/HelpFile.h"
#include "desktop/services/HelpTools.h"

namespace korva::desktop {

HelpTerms::HelpTerms(HelpFile& file, QWidget* parent) : QWidget(parent), terms_(file.Engine().indexWidget()) {
  QLineEdit* word = NewHelpText("txtIndex", QStringLiteral("Word to look up"), this);
  terms_->setObjectName(QStringLiteral("Index"));
  terms_->setAccessibleName(QStringLiteral("Index"));
  terms_->setWordWrap(true);
  terms_->setResizeMode(QListView::Adjust);
  connect(word, &QLineEdit::textChanged, terms_,
          [this](const QString& text) { terms_->filterIndices(text, {}); });
  connect(word, &QLineEdit::returnPressed, terms_, &QHelpIndexWidget::activateCurrentItem);
  connect(terms_, &QHelpIndexWidget::clicked, terms_, &QHelpIndexWidget::activateCurrentItem);
  connect(terms_, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& link) { emit PageChosen(link.url); });
  connect(terms_, &QHelpIndexWidget::documentsActivated, this, &HelpTerms::ChooseOf);
  QVBoxLayout* layout = NewHelpTabLayout(*this);
  layout->addWidget(word);
  layout->addWidget(terms_, 1);
  setFocusProxy(word);
  JoinToList(*word, *terms_);
  file.Engine().indexModel()->createIndex({});
}

// A term with several pages: the person chooses.
void HelpTerms::ChooseOf(const QList<QHelpLink>& pages) {
  QMenu menu(this);
  for (const QHelpLink& page : pages) {
    menu.addAction(page.title)->setData(page.url);
  }
  const QRect line = terms_->visualRect(terms_->currentIndex());
  if (const QAction* chosen = menu.exec(terms_->viewport()->mapToGlobal(line.bottomLeft()))) {
    emit PageChosen(chosen->data().toUrl());
  }
}

}  // namespace korva::desktop
