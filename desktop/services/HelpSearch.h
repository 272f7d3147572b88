// The search in the help: words, and the pages that have all of them, each with its best place.
#pragma once

#include <QUrl>
#include <QWidget>

#include "desktop/services/HelpQuery.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace korva::desktop {

class HelpFile;

class HelpSearch final : public QWidget {
  Q_OBJECT

 public:
  HelpSearch(HelpFile& file, QWidget* parent);

 signals:
  void PageChosen(const QUrl& page, const HelpExcerpt& excerpt);

 private:
  void Search();
  void ShowResults();

  HelpFile& file_;
  QLineEdit* query_;
  QLabel* found_ = nullptr;
  QListWidget* results_;
  bool indexed_ = false;  // the pages were read
};

}  // namespace korva::desktop
