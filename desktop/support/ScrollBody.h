// The inside of a form: as large as its content asks for where the screen has room, else it scrolls.
#pragma once

#include <QScrollArea>

namespace korva::desktop {

class ScrollBody final : public QScrollArea {
 public:
  // Takes `content` in.
  explicit ScrollBody(QWidget* content, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  // Scrolls so that all of a widget inside can be seen.
  void Reveal(const QWidget& widget);
};

// Scrolls what `widget` stands in so that it can be seen, as soon as what was just shown has its place.
void BringIntoView(QWidget& widget);

}  // namespace korva::desktop
