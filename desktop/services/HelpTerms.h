// The help's index: all terms, and those of them that have a word.
#pragma once

#include <QUrl>
#include <QWidget>

class QHelpIndexWidget;
struct QHelpLink;

namespace korva::desktop {

class HelpFile;

class HelpTerms final : public QWidget {
  Q_OBJECT

 public:
  HelpTerms(HelpFile& file, QWidget* parent);

 signals:
  void PageChosen(const QUrl& page);

 private:
  void ChooseOf(const QList<QHelpLink>& pages);

  QHelpIndexWidget* terms_;
};

}  // namespace korva::desktop
