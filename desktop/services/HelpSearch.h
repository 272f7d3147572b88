// The search in the help: words, and the pages that have all of them.
#pragma once

#include <QLineEdit>
#include <QUrl>
#include <QWidget>

class QLabel;
class QListWidget;
class QVBoxLayout;

namespace korva::desktop {

class HelpFile;

// A line to type in, with its meaning shown while it is empty; gaps of a tab of the help window.
QLineEdit* NewHelpText(const char* name, const QString& meaning, QWidget* parent);
QVBoxLayout* NewHelpTabLayout(QWidget& page);

class HelpSearch final : public QWidget {
  Q_OBJECT

 public:
  HelpSearch(HelpFile& file, QWidget* parent);

 signals:
  // `word` is the first of those that were searched for.
  void PageChosen(const QUrl& page, const QString& word);

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
