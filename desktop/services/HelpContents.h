// The help's contents: pages and their sections, with the place that is open marked.
#pragma once

#include <QModelIndex>
#include <QUrl>
#include <QWidget>

class QHelpContentWidget;

namespace korva::desktop {

class HelpBrowser;
class HelpFile;

class HelpContents final : public QWidget {
  Q_OBJECT

 public:
  HelpContents(HelpFile& file, const HelpBrowser& browser, QWidget* parent);

 signals:
  void PageChosen(const QUrl& page);

 private:
  void ShowPlace(const QUrl& address);
  QUrl AddressOf(const QModelIndex& entry) const;
  QModelIndex SectionBefore(const QModelIndex& page, int position) const;

  const HelpBrowser& browser_;
  QHelpContentWidget* contents_;
};

}  // namespace korva::desktop
