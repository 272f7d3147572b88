// Shows the pages of the help file: in the window's colours, formulas too, pictures no wider than the window.
#pragma once

#include <QTextBrowser>
#include <QTimer>
#include <map>
#include <optional>

#include "desktop/services/HelpFile.h"
#include "desktop/services/HelpQuery.h"

namespace korva::desktop {

class HelpBrowser final : public QTextBrowser {
  Q_OBJECT

 public:
  HelpBrowser(HelpFile& file, QWidget* parent);

  QVariant loadResource(int type, const QUrl& name) override;
  void backward() override;
  void forward() override;

  int Zoom() const { return zoom_; }
  // In percent, kept between a half and three times.
  void SetZoom(int percent);
  // Finds `text` from the place of the cursor on, and from the other end if it is not there; false if the
  // page does not have it.
  bool FindText(const QString& text, bool backward = false);
  // Marks the excerpt's hit, if the page has the excerpt.
  void ShowExcerpt(const HelpExcerpt& excerpt);
  // Where in the page the anchor stands; -1 if the page does not have it.
  int PositionOf(const QString& anchor) const;

 signals:
  // A link that leads out of the help; it is not followed.
  void LinkOutside(const QUrl& link);

 protected:
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // What a person looks at.
  struct Place {
    QUrl Page;
    int Position;  // of a line in the text
    int Y;         // where the line's top stands in the view
    int Anchor;    // of the text cursor
    int Cursor;
    int Scroll;  // of the scroll bar, while the place is in view
  };

  QImage Formula(QByteArray svg) const;
  QImage Picture(const QByteArray& bytes) const;
  void ApplyColours();
  QTextCursor CursorAt(int position, int anchor) const;
  QTextCursor LineToKeep() const;
  Place PlaceInView() const;
  void FinishLayout();
  void Show(Place place);
  void ReloadAt(const Place& place);
  void FitToWidth();
  void KeepPlace();
  void ReturnToPlace();

  HelpFile& file_;
  QUrl page_;  // that is shown or being set
  QTimer resized_;
  std::optional<Place> place_;    // that was set last; a person may have moved on
  std::map<QUrl, Place> places_;  // that were left
  qreal basePoints_;
  int zoom_ = 100;
  int shownWidth_ = 0;
};

}  // namespace korva::desktop
