#include "desktop/services/HelpContents.h"

#include <QHelpContentWidget>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QVBoxLayout>

#include "desktop/services/HelpBrowser.h"
#include "desktop/services/HelpFile.h"

namespace korva::desktop {

namespace {

// Tells a title that is cut off.
class TitleTips final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const bool cut =
        event->type() == QEvent::ToolTip && sizeHint(option, index).width() > option.rect.width();
    QToolTip::showText(event->globalPos(), cut ? index.data().toString() : QString(), view);
    return true;
  }
};

}  // namespace

HelpContents::HelpContents(HelpFile& file, const HelpBrowser& browser, QWidget* parent)
    : QWidget(parent), browser_(browser), contents_(file.Engine().contentWidget()) {
  contents_->setObjectName(QStringLiteral("Contents"));
  contents_->setAccessibleName(QStringLiteral("Contents"));
  contents_->setFrameShape(QFrame::NoFrame);
  contents_->setItemDelegate(new TitleTips(contents_));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(contents_);
  setFocusProxy(contents_);
  connect(contents_, &QHelpContentWidget::linkActivated, this, &HelpContents::PageChosen);
  connect(contents_, &QHelpContentWidget::clicked, this, [this](const QModelIndex& entry) {
    if (const QUrl page = AddressOf(entry); !page.isEmpty()) {
      emit PageChosen(page);
    }
  });
  connect(file.Engine().contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
    contents_->expandToDepth(0);
    ShowPlace(browser_.source());
  });
  connect(&browser_, &QTextBrowser::sourceChanged, this, &HelpContents::ShowPlace);
  file.Engine().contentModel()->createContents({});
}

QUrl HelpContents::AddressOf(const QModelIndex& entry) const {
  const auto* item = static_cast<QHelpContentModel*>(contents_->model())->contentItemAt(entry);
  return item != nullptr ? item->url() : QUrl();
}

// The last section of `page` that begins at or before `position`, or the page itself.
QModelIndex HelpContents::SectionBefore(const QModelIndex& page, int position) const {
  QModelIndex section = page;
  for (int row = 0; row < contents_->model()->rowCount(page); ++row) {
    const QModelIndex child = contents_->model()->index(row, 0, page);
    const int begin = browser_.PositionOf(AddressOf(child).fragment());
    if (begin >= 0 && begin <= position) {
      section = SectionBefore(child, position);
    }
  }
  return section;
}

void HelpContents::ShowPlace(const QUrl& address) {
  const QModelIndex page = contents_->indexOf(address);  // which ignores fragments
  if (!page.isValid()) {
    return;
  }
  const QModelIndex place = SectionBefore(page, browser_.PositionOf(address.fragment()));
  contents_->setCurrentIndex(place);
  contents_->scrollTo(place);
}

}  // namespace korva::desktop
