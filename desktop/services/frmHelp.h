// The help window: contents, index and search at the left, the page at the right. It stays usable while
// another window waits for an answer, and is only hidden when it is closed, so that size, place and page
// remain.
#pragma once

#include <QToolButton>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "desktop/services/HelpFile.h"
#include "desktop/support/Session.h"

class QBoxLayout;
class QLineEdit;
class QTabWidget;

namespace korva::desktop {

class HelpBrowser;

class frmHelp final : public QWidget {
  Q_OBJECT

 public:
  // Nothing, after a message, if the help file is not available.
  static std::unique_ptr<frmHelp> Open(Session& session);

  // Comes to the front at the first of the labels that the help has; at the start page if it has none.
  void ShowTopic(const std::vector<std::string>& labels);
  void ShowContents() { ShowTab(0); }
  void ShowIndex() { ShowTab(1); }

  // As far as the screen has room.
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  frmHelp(Session& session, std::unique_ptr<HelpFile> file);

  QBoxLayout* NewToolRow();
  QToolButton* NewTool(const char* name, const char* image, const QString& caption, const QKeySequence& key,
                       const std::function<void()>& command);
  void PlaceOnScreen();
  void PaintImages();

  void ShowTab(int tab);
  void ShowInFront();
  void BelongToFrontDialog();
  void GoTo(const QUrl& page);
  void Find(bool backward);

  Session& session_;
  std::unique_ptr<HelpFile> file_;
  HelpBrowser* browser_;
  QTabWidget* tabs_ = nullptr;
  QLineEdit* find_ = nullptr;
  std::vector<std::pair<QToolButton*, QString>> tools_;  // with the names of their images
};

}  // namespace korva::desktop
