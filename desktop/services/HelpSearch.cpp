#include "desktop/services/HelpSearch.h"

#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "desktop/services/HelpFile.h"
#include "desktop/services/HelpResultDelegate.h"
#include "desktop/services/HelpTools.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kMostResults = 100;

}  // namespace

HelpSearch::HelpSearch(HelpFile& file, QWidget* parent)
    : QWidget(parent),
      file_(file),
      query_(NewHelpText("txtSearch", QStringLiteral("Words to search for"), this)),
      results_(new QListWidget(this)) {
  QPushButton* search = NewButton("cmdSearch", "Sea&rch", "", *this, [this] { Search(); });
  results_->setObjectName(QStringLiteral("lstSearch"));
  results_->setAccessibleName(QStringLiteral("Pages found"));
  results_->setItemDelegate(new HelpResultDelegate(results_));
  results_->setResizeMode(QListView::Adjust);
  results_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  results_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the entries keep their width
  found_ = NewLabel(QStringLiteral("lblSearch"), {}, this);
  found_->setWordWrap(true);
  connect(query_, &QLineEdit::returnPressed, this, &HelpSearch::Search);
  const auto choose = [this](const QListWidgetItem* item) {
    emit PageChosen(item->data(Qt::UserRole).toUrl(),
                    ExcerptOf(item->data(HelpResultDelegate::kSnippetRole).toString()));
  };
  connect(results_, &QListWidget::itemActivated, this, choose);
  connect(results_, &QListWidget::itemClicked, this, choose);
  const QHelpSearchEngine* engine = file_.Engine().searchEngine();
  connect(engine, &QHelpSearchEngine::indexingFinished, this, [this] {
    indexed_ = true;
    Search();
  });
  connect(engine, &QHelpSearchEngine::searchingFinished, this, &HelpSearch::ShowResults);
  QVBoxLayout* layout = NewHelpTabLayout(*this);
  auto* row = new QHBoxLayout;
  row->addWidget(query_, 1);
  row->addWidget(search);
  layout->addLayout(row);
  layout->addWidget(found_);
  layout->addWidget(results_, 1);
  setFocusProxy(query_);
  setTabOrder(query_, search);
  setTabOrder(search, results_);
  JoinToList(*query_, *results_);
}

// The engine reads the pages once it is made; what is asked before it has is searched then.
void HelpSearch::Search() {
  const QString query = FullTextQuery(query_->text());
  if (query.isEmpty()) {
    results_->clear();
    found_->clear();
    return;
  }
  if (!indexed_) {
    found_->setText(QStringLiteral("Reading the pages..."));
    return;
  }
  file_.Search(query);
}

void HelpSearch::ShowResults() {
  results_->clear();
  const auto pages = file_.Engine().searchEngine()->searchResults(0, kMostResults);
  for (const QHelpSearchResult& page : pages) {
    auto* item = new QListWidgetItem(page.title(), results_);
    item->setData(Qt::UserRole, page.url());
    item->setData(HelpResultDelegate::kSnippetRole, page.snippet());
  }
  found_->setText(pages.isEmpty()     ? QStringLiteral("No page has all of these words")
                  : pages.size() == 1 ? QStringLiteral("1 page")
                                      : QStringLiteral("%1 pages").arg(pages.size()));
}

}  // namespace korva::desktop
